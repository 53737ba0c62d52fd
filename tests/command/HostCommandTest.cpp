// What each command does, and what it ends with.
#include <algorithm>
#include <fstream>

#include "CommandFixture.h"
#include "platform/Machine.h"
#include "support/Hold.h"

namespace test {

using nlohmann::json;

std::vector<json> CommandTest::Objects(const Answer& answer) {
  std::ifstream file(BRASMIR_ROOT "/docs/tidorra.schema.json");
  const json schema = json::parse(file);
  std::vector<json> objects;
  std::istringstream out(answer.out);
  for (std::string line; std::getline(out, line);) {
    objects.push_back(json::parse(line));
    const json& object = objects.back();
    bool known = false;
    for (const json& kind : schema["oneOf"]) {
      if (kind["properties"]["type"]["const"] != object["type"]) continue;
      known = true;
      for (const json& name : kind["required"]) EXPECT_TRUE(object.contains(name)) << name << " in " << line;
      for (const auto& [name, value] : object.items()) {
        EXPECT_TRUE(kind["properties"].contains(name)) << name << " in " << line;
        json types = kind["properties"][name].value("type", json());
        if (types.is_string()) types = json::array({types});
        const char* type = value.is_number_integer() ? "integer" : value.type_name();
        EXPECT_TRUE(types.is_null() || std::ranges::find(types, type) != types.end())
            << name << " in " << line;
      }
    }
    EXPECT_TRUE(known) << line;
  }
  return objects;
}

namespace {

TEST_F(CommandTest, WrongWordsAreToldAndDoNothing) {
  computer.WriteFile("C:\\T\\a.tmp");
  const Strings wrong[] = {{},
                           {"scam"},
                           {"scan", "--nothing"},
                           {"scan", "extra"},
                           {"scan", "--drive", "Q:"},
                           {"scan", "--drive", "C:\\T"},
                           {"scan", "--drive"},
                           {"scan", "--json", "--null"},
                           {"clean", "--method", "burn", "--yes"},
                           {"clean", "--passes", "36", "--yes"},
                           {"clean", "--backup", "--no-backup", "--yes"},
                           {"clean", "--from", "/no/such/list", "--yes"},
                           {"clean"},
                           {"lumaro"},
                           {"lumaro", "clean", "--place", "nowhere", "--yes"},
                           {"lumaro", "clean"},
                           {"backup", "extract"},
                           {"backup", "delete", "--yes"},
                           {"backup", "delete", "C:\\T\\a.tmp", "--yes"},
                           {"plugin", "run", "--yes"},
                           {"plugin", "run", "No such", "--yes"},
                           {"schedule", "set", "--day", "Someday", "--yes"},
                           {"schedule", "set", "--time", "21h30", "--yes"},
                           {"schedule", "set", "--week", "5", "--yes"},
                           {"schedule", "set"},
                           {"settings", "get", "No such"},
                           {"settings", "set", "Brasmir\\Cleaning\\Erase passes", "0"},
                           {"settings", "set", "Brasmir\\Cleaning\\Delete files", "yes"},
                           {"settings", "set", "Install Directory", "C:\\"},
                           {"settings", "reset"},
                           {"help", "nothing"},
                           {"completion", "tcsh"}};
  for (const Strings& words : wrong) {
    std::string line;
    for (const std::string& word : words) line += word + " ";
    Answer answer = Run(words);
    EXPECT_EQ(answer.code, command::kUsedWrongly) << line;
    EXPECT_NE(answer.err, "") << line;
    EXPECT_EQ(answer.out, "") << line;
  }
  EXPECT_TRUE(computer.Exists("C:\\T\\a.tmp"));
  EXPECT_EQ(Stored(core::keys::kSchedule, "Schedule"), "0");
}

TEST_F(CommandTest, AScanListsWhatTheLineNamesAndChangesNothing) {
  computer.WriteFile("C:\\T\\a.tmp", "12345");
  computer.WriteFile("C:\\T\\keep\\b.tmp", "1");
  computer.WriteFile("C:\\T\\c.xyz", "123");
  computer.WriteFile("C:\\T\\d.dat", "");
  const std::string filters = Run({"settings", "export"}).out;
  struct Case {
    Strings words, found;
  };
  const Case cases[] = {
      {{}, {"C:\\T\\a.tmp", "C:\\T\\keep\\b.tmp"}},
      {{"--filter", ".xyz"}, {"C:\\T\\c.xyz"}},
      {{"--filter", ".xyz", "--filter", ".tmp"}, {"C:\\T\\a.tmp", "C:\\T\\c.xyz", "C:\\T\\keep\\b.tmp"}},
      {{"--zero-byte"}, {"C:\\T\\d.dat"}},
      {{"--exclude", "KEEP"}, {"C:\\T\\a.tmp"}},
      {{"--drive", "c:"}, {"C:\\T\\a.tmp", "C:\\T\\keep\\b.tmp"}},
      {{"--shortcuts"}, {}},
  };
  for (const Case& c : cases) {
    Strings words = {"scan", "--null"};
    words.insert(words.end(), c.words.begin(), c.words.end());
    Answer answer = Run(words);
    EXPECT_EQ(answer.code, 0) << answer.err;
    Strings mine = Paths(answer);
    std::erase_if(mine, [](const std::string& path) { return !path.starts_with("C:\\T\\"); });
    EXPECT_EQ(mine, c.found) << (c.words.empty() ? "" : c.words.back());
  }
  EXPECT_EQ(Run({"settings", "export"}).out, filters) << "the line changes nothing that stays";
  EXPECT_EQ(Run({"scan", "--quiet"}).out, "");
  const auto objects = Objects(Run({"scan", "--json", "--filter", ".xyz"}));
  ASSERT_EQ(objects.size(), 2u);
  EXPECT_EQ(objects[0], (json{{"type", "file"},
                              {"kind", "garbage"},
                              {"bytes", 3},
                              {"outcome", "found"},
                              {"path", "C:\\T\\c.xyz"}}));
  EXPECT_EQ(objects[1], (json{{"type", "summary"}, {"found", 1}, {"bytes", 3}}));
}

// What --null writes is what --from reads, whatever a name holds.
TEST_F(CommandTest, NamesOfAnyBytesGoThroughAPipe) {
  const Strings odd = {"C:\\T\\a b.tmp", "C:\\T\\line\nend.tmp", "C:\\T\\\xFF\xED\xA0\x80.tmp",
                       "C:\\T\\\xE2\x80\xAEname.tmp", "C:\\T\\'\"$(x).tmp"};
  computer.WriteFiles(odd);
  computer.WriteFile("C:\\T\\new.tmp");
  Answer scan = Run({"scan", "--null", "--filter", ".tmp", "--exclude", "new"});
  Strings sorted = odd;
  std::sort(sorted.begin(), sorted.end());
  EXPECT_EQ(Paths(scan), sorted);
  const auto objects = Objects(Run({"scan", "--json", "--filter", ".tmp"}));
  EXPECT_TRUE(std::ranges::any_of(objects, [](const json& object) {
    return object.value("path_hex", "") == "433a5c545cffeda0802e746d70";
  }));
  // A table keeps each row on its line.
  const std::string table = Run({"scan", "--filter", ".tmp"}).out;
  EXPECT_EQ(std::count(table.begin(), table.end(), '\n'), 7);
  EXPECT_EQ(table.find('\xAE'), table.npos);

  Answer clean = Run({"clean", "--from", "-", "--yes", "--method", "delete", "--quiet"}, scan.out);
  EXPECT_EQ(clean.code, 0) << clean.err;
  EXPECT_EQ(computer.List("C:\\T"), Strings{"new.tmp"});
}

TEST_F(CommandTest, ACleaningAsksAndSaysWhatBecameOfEachFile) {
  computer.WriteFile("C:\\T\\a.tmp", "12345");
  computer.WriteFile("C:\\T\\held.tmp", "1");
  EXPECT_EQ(Run({"clean", "--dry-run"}).code, 0);
  EXPECT_EQ(Run({"clean"}, "n\n", true).code, command::kNothingDone);
  EXPECT_EQ(Run({"clean"}, "", true).code, command::kNothingDone);
  EXPECT_EQ(computer.List("C:\\T").size(), 2u);
  {
    Hold held(computer.Native("C:\\T\\held.tmp"));
    Answer answer = Run({"clean", "--json", "--method", "delete"}, "y\n", true);
    EXPECT_EQ(answer.code, command::kSomethingStayed);
    EXPECT_NE(answer.err.find("Delete 2 files of 6 bytes? [y/N]"), std::string::npos) << answer.err;
    const auto objects = Objects(answer);
    ASSERT_EQ(objects.size(), 3u);
    EXPECT_EQ(objects[0]["path"], "C:\\T\\a.tmp");
    EXPECT_EQ(objects[0]["outcome"], "removed");
    EXPECT_EQ(objects[1]["outcome"], "stayed");
    EXPECT_EQ(objects[2], (json{{"type", "summary"}, {"removed", 1}, {"stayed", 1}, {"bytes", 5}}));
  }
  EXPECT_EQ(computer.List("C:\\T"), Strings{"held.tmp"});
  EXPECT_EQ(Stored(core::keys::kCleaningStatus, "Total files deleted"), "1");
  EXPECT_EQ(Run({"clean", "--method", "bin", "--yes"}).code, 0);
  EXPECT_EQ(computer.InBin(), 1);
  EXPECT_EQ(Stored(core::keys::kCleaning, "Confirm Cleaning"), "1");

  // A list of one's own: what is excluded or isn't there stays.
  computer.WriteFiles({"C:\\T\\b.doc", "C:\\T\\c.doc"});
  computer.SetValue(core::keys::kExcludedDirectories, "c.doc", "");
  Answer list = Run({"clean", "--from", "-", "--method", "delete", "--yes"},
                    "C:\\T\\b.doc\r\nC:\\T\\c.doc\nC:\\T\\none.doc\n\\relative\nC:\\T\n");
  EXPECT_EQ(list.code, command::kSomethingStayed);
  EXPECT_NE(list.err.find("1 file removed, 7 bytes; 4 files stayed"), std::string::npos) << list.err;
  EXPECT_EQ(computer.List("C:\\T"), Strings{"c.doc"});
}

TEST_F(CommandTest, ABackupIsMadeCheckedShownAndBroughtBack) {
  computer.WriteFile("C:\\T\\a.tmp", "first");
  computer.WriteFile("C:\\T\\b.tmp", "second");
  EXPECT_EQ(Run({"backup", "verify"}).code, command::kNothingDone);
  EXPECT_EQ(Run({"clean", "--filter", ".tmp", "--backup", "--method", "delete", "--yes"}).code, 0);
  EXPECT_EQ(computer.List("C:\\T"), Strings());
  const auto listed = Objects(Run({"backup", "list", "--json"}));
  ASSERT_EQ(listed.size(), 1u);
  const std::string archive = listed[0]["archive"];

  EXPECT_EQ(Paths(Run({"backup", "show", "--null"})), (Strings{"C:\\T\\a.tmp", "C:\\T\\b.tmp"}));
  EXPECT_EQ(Objects(Run({"backup", "verify", "--json"})).back()["good"], 2);
  EXPECT_EQ(Run({"backup", "restore", archive, "--file", "C:\\T\\a.tmp", "--yes"}).code, 0);
  EXPECT_EQ(computer.List("C:\\T"), Strings{"a.tmp"});
  EXPECT_EQ(computer.ReadFile("C:\\T\\a.tmp"), "first");
  computer.MakeFolder("C:\\Out");
  EXPECT_EQ(Run({"backup", "extract", "--to", "C:\\Out"}).code, 0);
  EXPECT_EQ(computer.ReadFile("C:\\Out\\b.tmp"), "second");
  EXPECT_EQ(Run({"backup", "extract", "--to", "C:\\Windows\\..\\x"}).code, command::kSomethingStayed);

  // One byte of it is another.
  const std::string path = TestComputer::InstallDirectory() + "Backup\\" + archive;
  std::string bytes = computer.ReadFile(path);
  bytes[bytes.find("second") != bytes.npos ? bytes.find("second") : 80] ^= 1;
  computer.WriteFile(path, bytes);
  EXPECT_EQ(Run({"backup", "verify"}).code, command::kSomethingStayed);
  EXPECT_EQ(Run({"backup", "delete", archive}, "y\n", true).code, 0);
  EXPECT_FALSE(computer.Exists(path));
  EXPECT_EQ(Run({"backup", "list"}).out, "");
}

TEST_F(CommandTest, LumaroClearsTheNamedPlacesAlone) {
  const std::string temp = computer.Machine().Folder(platform::KnownFolder::Temp) + "\\";
  const std::string recent = computer.Machine().Folder(platform::KnownFolder::Recent) + "\\";
  const std::string cookies = computer.Machine().Folder(platform::KnownFolder::Cookies) + "\\";
  computer.WriteFile(temp + "t.txt", "1234");
  computer.WriteFiles(
      {recent + "r.lnk", cookies + "user@bank.example[1].txt", cookies + "user@ads.example[1].txt"});
  for (const json& place : Objects(Run({"lumaro", "list", "--json"})))
    EXPECT_TRUE(place["on"].is_boolean()) << place;
  auto scan = Objects(Run({"lumaro", "scan", "--place", "temp", "--json"}));
  ASSERT_EQ(scan.size(), 2u);
  EXPECT_EQ(scan[0]["bytes"], 4);
  EXPECT_EQ(Run({"lumaro", "clean", "--place", "temp", "--dry-run"}).code, 0);
  EXPECT_TRUE(computer.Exists(temp + "t.txt"));
  EXPECT_EQ(Run({"lumaro", "clean", "--place", "temp", "--yes", "--method", "delete"}).code, 0);
  EXPECT_FALSE(computer.Exists(temp + "t.txt"));
  EXPECT_TRUE(computer.Exists(recent + "r.lnk"));
  Run({"lumaro", "clean", "--place", "cookies", "--keep-cookie", "Bank.example", "--yes"});
  EXPECT_EQ(computer.List(cookies.substr(0, cookies.size() - 1)), Strings{"user@bank.example[1].txt"});
  EXPECT_EQ(Stored(core::keys::kLumaroInternetFiles, "Cookies"), "0");
}

TEST_F(CommandTest, APlugInIsShownBeforeItRuns) {
  auto write = [&](const char* name, const std::string& rules) {
    computer.WriteFile(
        TestComputer::InstallDirectory() + "PlugIns\\Mine\\" + name + ".plg",
        std::string("[Plug-In Name]\r\n") + name +
            "\r\n\r\n[Plug-In Description]\r\nTests\r\n\r\n[Plug-In Category]\r\nMine\r\n\r\n" + rules);
  };
  const std::string rest =
      "\r\n[Folder Rules]\r\nC:\\Old\r\n\r\n[Registry Key Rules]\r\nHKEY_CURRENT_USER|Software\\Old\\Key"
      "\r\n\r\n[Registry Value Rules]\r\nSingle Value|HKEY_CURRENT_USER|Software\\Kept|gone\r\n";
  write("Good", "[File Rules]\r\nSingle File|C:\\T\\one.txt\r\nAll Files|C:\\T\\all\r\n" + rest);
  write("Bad", "[File Rules]\r\nAll Files/Sub|C:\\Windows\\System32\r\n" + rest);
  write("Broken", "[File Rules]\r\nSingle File\r\n");
  computer.WriteFiles({"C:\\T\\one.txt", "C:\\T\\all\\x", "C:\\T\\all\\deep\\y", "C:\\Old\\z"});
  computer.SetValue("Software\\Old\\Key", "v", "1");
  computer.SetValue("Software\\Kept", "gone", "1");
  computer.SetValue("Software\\Kept", "stays", "1");

  EXPECT_EQ(Run({"plugin", "check", "Good"}).code, 0);
  EXPECT_EQ(Run({"plugin", "check", "Mine\\Bad"}).code, command::kSomethingStayed);
  EXPECT_EQ(Run({"plugin", "check", "Broken"}).code, command::kSomethingStayed);
  for (const Strings& words : {Strings{"plugin", "show", "Good", "--json"},
                               Strings{"plugin", "run", "Good", "--dry-run", "--json"}}) {
    const auto objects = Objects(Run(words));
    Strings told;
    for (const json& object : objects)
      if (object["type"] == "rule") told.push_back(object["path"]);
    EXPECT_EQ(told,
              (Strings{"C:\\T\\one.txt", "C:\\T\\all\\x", "C:\\Old\\z", "C:\\Old",
                       "HKEY_CURRENT_USER\\Software\\Old\\Key", "HKEY_CURRENT_USER\\Software\\Kept\\gone"}));
  }
  EXPECT_TRUE(computer.Exists("C:\\T\\one.txt"));
  EXPECT_EQ(Run({"plugin", "run", "Good"}, "n\n", true).code, command::kNothingDone);
  EXPECT_EQ(Run({"plugin", "run", "Good", "--yes"}).code, 0);
  EXPECT_EQ(computer.Left({"C:\\T\\one.txt", "C:\\T\\all\\x", "C:\\T\\all\\deep\\y", "C:\\Old"}),
            Strings{"C:\\T\\all\\deep\\y"});
  EXPECT_FALSE(computer.HasValue("Software\\Kept", "gone"));
  EXPECT_TRUE(computer.HasValue("Software\\Kept", "stays"));
  EXPECT_EQ(Run({"plugin", "run", "Broken", "--yes"}).code, command::kSomethingStayed);
}

TEST_F(CommandTest, SettingsAreCarriedOverAsAWhole) {
  EXPECT_EQ(Run({"settings", "set", "brasmir\\cleaning\\erase passes", "7"}).code, 0);
  EXPECT_EQ(Stored(core::keys::kCleaning, "Erase passes"), "7");
  EXPECT_EQ(Objects(Run({"settings", "get", "Brasmir\\Cleaning\\Erase passes", "--json"}))[0]["value"], "7");
  computer.SetValue(core::keys::kExcludedDirectories, "C:\\Mine", "a note");
  const std::string exported = Run({"settings", "export"}).out;
  EXPECT_EQ(Run({"settings", "reset", "--yes"}).code, 0);
  EXPECT_EQ(Stored(core::keys::kCleaning, "Erase passes"), "3");
  EXPECT_FALSE(computer.HasValue(core::keys::kExcludedDirectories, "C:\\Mine"));
  EXPECT_EQ(Stored(core::keys::kTidorra, "Install Directory"), TestComputer::InstallDirectory());

  // Nothing of what isn't good as a whole.
  auto changed = [&](const char* from, const char* to) {
    std::string text = exported;
    text.replace(text.find(from), std::string(from).size(), to);
    return text;
  };
  for (const std::string& bad :
       {std::string("{}"), std::string("no JSON"), exported.substr(0, exported.size() / 2),
        changed("\"7\"", "\"77\""), changed("\"7\"", "7"), changed("Erase passes", "Install Directory"),
        changed("Brasmir\\\\Drives", "Brasmir\\\\Backup\\\\Backup files"), changed("\"a note\"", "1")}) {
    EXPECT_EQ(Run({"settings", "import", "-", "--yes"}, bad).code, command::kNothingDone);
    EXPECT_EQ(Stored(core::keys::kCleaning, "Erase passes"), "3");
  }
  auto window = computer.AnotherMachine();
  ASSERT_TRUE(window->GetProcesses().ClaimInstance("Brasmir"));
  EXPECT_EQ(Run({"settings", "import", "-", "--yes"}, exported).code, command::kNothingDone)
      << "it would write its own";
  window->GetProcesses().ReleaseInstance("Brasmir");
  EXPECT_EQ(Run({"settings", "import", "-", "--yes"}, exported).code, 0);
  EXPECT_EQ(Run({"settings", "export"}).out, exported);
}

TEST_F(CommandTest, OneRunAtATime) {
  computer.WriteFile("C:\\T\\a.tmp");
  auto other = computer.AnotherMachine();
  ASSERT_TRUE(other->GetProcesses().ClaimInstance("Brasmir run"));
  for (const Strings& words :
       {Strings{"scan"}, Strings{"clean", "--yes"}, Strings{"lumaro", "clean", "--yes"}})
    EXPECT_EQ(Run(words).code, command::kNothingDone);
  EXPECT_TRUE(computer.Exists("C:\\T\\a.tmp"));
}

TEST_F(CommandTest, WhatCantBeReadIsTold) {
  EXPECT_EQ(Run({"schedule", "off"}).code, 0);
  EXPECT_EQ(Objects(Run({"disk", "--json"}))[0]["drive"], "C:\\");
  EXPECT_EQ(Objects(Run({"schedule", "show", "--json"}))[0]["on"], false);
  std::ofstream(computer.DataFolder() + "/registry.sqlite", std::ios::trunc) << "no store";
  Answer answer = Run({"scan"});
  EXPECT_EQ(answer.code, command::kNothingDone);
  EXPECT_NE(answer.err.find("registry"), std::string::npos) << answer.err;
}

}  // namespace
}  // namespace test
