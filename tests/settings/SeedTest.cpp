// The settings of a first start.
#include <set>
#include <stdexcept>

#include "SettingsFixture.h"
#include "core/Numbers.h"
#include "core/Text.h"

namespace {

using namespace core::keys;
using settings::ParseSeed;
using settings::SeedValue;

class SeedTest : public ::testing::Test {
 protected:
  SeedTest() : computer({.layout = false}) {}
  test::TestComputer computer;
  const std::string text = test::PackagedFile("first-time-settings.txt");
  const std::string install = "C:\\Program Files\\Tidorra\\";
};

TEST_F(SeedTest, ThePackagedFileHoldsEverySettingInAFormThatItsReadersTake) {
  test::SessionObjects session;
  EXPECT_FALSE(settings::HasSettings());
  ASSERT_TRUE(settings::Seed(text, install));
  EXPECT_TRUE(settings::HasSettings());
  std::set<std::string> seen;
  for (const SeedValue& value : ParseSeed(text, install))
    EXPECT_TRUE(seen.insert(core::Fold(value.key + "|" + value.name)).second) << value.name << " twice";
  for (const settings::Setting& setting : settings::AllSettings()) {
    EXPECT_TRUE(computer.HasValue(setting.key, setting.name)) << setting.key << " " << setting.name;
    std::string data = computer.GetValue(setting.key, setting.name);
    std::string name = setting.name;
    if (name == "Install Directory") {
      EXPECT_EQ(data, install);
    } else if (name == "Program Files") {
      EXPECT_EQ(data, "C:\\Program Files\\");
    } else if (name == "Erase passes") {
      EXPECT_GE(core::ToNumber(data), 1);
    } else if (name != "Day" && name != "Time" && name != "Week") {
      EXPECT_TRUE(data == "0" || data == "1") << name << " is " << data;
    }
  }
  for (const char* folder : {"Temp", "Backup", "Reports", "PlugIns", "Skin", "Help", "Animations"})
    EXPECT_TRUE(computer.Exists(install + folder)) << folder;

  // The fill takes it without a word.
  frmMain form;
  settings::WireSettings(form);
  ASSERT_TRUE(m_Registry::ReadRegistrySettings());
  settings::AssignRegistrySettings(form);
  m_Registry::SaveCleaningStatus();
  EXPECT_TRUE(computer.desktop.boxes.empty());
  EXPECT_TRUE(form.lvwDrivesBrasmir.Checked(1));
  EXPECT_EQ(form.lvwDrivesBrasmir.Text(1), "C:\\");
}

TEST_F(SeedTest, ThePackagedFileIsSafe) {
  ASSERT_TRUE(settings::Seed(text, install));
  const char* safe[][3] = {{kCleaning, "Confirm Cleaning", "1"},
                           {kCleaning, "Move files To Recycle bin", "1"},
                           {kCleaning, "Delete files", "0"},
                           {kCleaning, "Erase files", "0"},
                           {kLumaroAdvanced, "Confirm deleting file(s)", "1"},
                           {kLumaroAdvanced, "Move files to recycle bin ", "1"},
                           {kBackup, "Delete backup files", "0"},
                           {kLumaroDirectories, "Recycle bin", "0"},
                           {kLumaro, "Load on Windows startup", "0"},
                           {kLumaroAdvanced, "Clean on Windows startup", "0"}};
  for (auto [key, name, data] : safe) EXPECT_EQ(computer.GetValue(key, name), data) << name;
  // Nothing that is protected stands in the way of a place that Lumaro clears.
  auto excluded = [&](const char* path) {
    for (const std::string& entry : computer.ValueNames(kExcludedDirectories))
      if (core::Contains(path, entry)) return true;
    return false;
  };
  for (const char* place : {"C:\\Windows\\Temp\\x.tmp", "C:\\Windows\\Downloaded Program Files\\a.ocx",
                            "C:\\Windows\\Offline Web Pages\\a.htm", "C:\\Windows\\Prefetch\\A.pf",
                            "C:\\Users\\User\\AppData\\Local\\Temp\\a.tmp"})
    EXPECT_FALSE(excluded(place)) << place;
  for (const char* place : {"c:\\windows\\system32\\drivers\\a.tmp", "D:\\$RECYCLE.BIN\\S-1\\$R1.tmp",
                            "C:\\Program Files\\Tidorra\\Backup\\a.tmp"})
    EXPECT_TRUE(excluded(place)) << place;
  // A filter that could hit every name, and a star, which would be looked for as one.
  for (const std::string& filter : computer.ValueNames(kFileFilters)) {
    EXPECT_TRUE(filter.size() > 1 || computer.GetValue(kSelectedFileFilters, filter) == "False") << filter;
    EXPECT_EQ(filter.find('*'), std::string::npos);
    EXPECT_NE(filter, ".");
    EXPECT_TRUE(computer.HasValue(kSelectedFileFilters, filter)) << filter;
    EXPECT_TRUE(computer.HasValue(kExcludeZeroByteFiles, filter)) << filter;
    EXPECT_NE(computer.GetValue(kFileFilters, filter), "");
  }
}

TEST_F(SeedTest, ReadsItsFormAndNamesTheLineThatBreaksIt) {
  auto values = ParseSeed(
      "# comment\r\n\r\n[Tidorra\\A + B + C D]\r\n  \"a = b \" = \"x%SystemDrive%\" \"\" \"[z] # no "
      "comment\"  "
      "\n[Tidorra]\n\"%InstallDirectory%\"=\"%ProgramFiles%\"",
      "D:\\Tools");
  EXPECT_EQ(values,
            (std::vector<SeedValue>{{"Software\\Orvane\\Tidorra\\A", "a = b ", "xC:"},
                                    {"Software\\Orvane\\Tidorra\\A\\B", "a = b ", ""},
                                    {"Software\\Orvane\\Tidorra\\A\\C D", "a = b ", "[z] # no comment"},
                                    {"Software\\Orvane\\Tidorra", "D:\\Tools\\", "C:\\Program Files"}}));
  for (const char* broken : {"\"a\" = \"b\"", "[Tidorra\n", "[]\n", "[A +  + B]\n", "[A]\n\"a\" \"b\"",
                             "[A]\n\"a\" = b", "[A]\n\"a\" = \"b", "[A]\n\"a\" = \"b\" \"c\"",
                             "[A + B]\n\"a\" = \"b\"", "[A]\na = \"b\"", "[A]\nx"}) {
    EXPECT_THROW(ParseSeed(broken, install), std::invalid_argument) << broken;
    EXPECT_FALSE(settings::Seed(broken, install));
  }
  EXPECT_FALSE(settings::Seed("# nothing\n", install));
  EXPECT_FALSE(settings::HasSettings());
}

TEST_F(SeedTest, AFailedSeedLeavesNothingHalf) {
  // On a store with transactions, and on one that writes at once.
  for (const char* stumble : {"Week", "~"}) {
    test::FaultyMachine faulty(computer.Machine());
    faulty.registry.refuseWrite = [&](std::string_view, std::string_view name) {
      return name == stumble ? 5L : 0L;
    };
    EXPECT_FALSE(settings::Seed(text, install));
    EXPECT_FALSE(settings::HasSettings());
    EXPECT_FALSE(computer.Exists(install));
  }
  test::FaultyMachine faulty(computer.Machine());
  faulty.registry.commitCode = 112;
  EXPECT_FALSE(settings::Seed(text, install));
  EXPECT_FALSE(settings::HasSettings());
}

}  // namespace
