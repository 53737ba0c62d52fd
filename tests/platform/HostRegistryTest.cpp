#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <random>
#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

#include "platform/LibRegistry.h"
#include "platform/RuntimeError.h"
#include "platform/host/HostRegistry.h"
#include "support/ChildProcess.h"
#include "support/TestComputer.h"

namespace platform {
namespace {

namespace fs = std::filesystem;
using test::ChildProcess;
using Texts = test::Strings;

RegistryValue Text(std::string text) {
  return {ValueType::String, std::move(text), 0};
}
RegistryValue Number(std::uint32_t number) {
  return {ValueType::DWord, {}, number};
}

std::string Bytes(const std::string& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

void SetBytes(const std::string& file, const std::string& bytes) {
  std::ofstream(file, std::ios::binary | std::ios::trunc) << bytes;
}

std::string Get(RegistryStore& store, std::string_view key, std::string_view name) {
  return store.Read(kCurrentUser, key, name).text;
}

Texts NamesOf(RegistryStore& store, std::string_view key) {
  Texts names;
  EXPECT_EQ(store.Names(kCurrentUser, key, names), 0);
  return names;
}

long Set(RegistryStore& store, std::string_view key, std::string_view name, std::string text) {
  return store.Write(kCurrentUser, key, name, Text(std::move(text)));
}

// The user's texts.
void SetAll(RegistryStore& store,
            std::initializer_list<std::tuple<const char*, const char*, const char*>> values) {
  for (auto [key, name, text] : values) EXPECT_EQ(Set(store, key, name, text), 0) << key << " " << name;
}
void ExpectAll(RegistryStore& store,
               std::initializer_list<std::tuple<const char*, const char*, const char*>> values) {
  for (auto [key, name, text] : values) EXPECT_EQ(Get(store, key, name), text) << key << " " << name;
}

class HostRegistryTest : public testing::Test {
 protected:
  HostRegistryTest()
      : computer_({.drives = {}, .layout = false}), file_(computer_.Root() + "/store/registry.sqlite") {
    fs::create_directory(Folder());
  }
  std::string Folder() const { return computer_.Root() + "/store"; }
  Texts FolderNames() const {
    Texts names;
    for (const auto& entry : fs::directory_iterator(Folder())) names.push_back(entry.path().filename());
    return names;
  }

  test::TestComputer computer_;
  std::string file_;
};

TEST_F(HostRegistryTest, KeepsTypesSpellingAndOrderAcrossRuns) {
  {
    HostRegistry store(file_);
    SetAll(store, {{"Software\\Orvane", "Zebra", "1"},
                   {"Software\\Orvane", "apple", "2"},
                   {"Software\\Orvane", "Move files to recycle bin ", "3"},
                   {"Software\\Orvane", "Ärger", "4"},
                   {"Software\\Orvane", "", "the key's own"}});
    EXPECT_EQ(store.Write(kLocalMachine, "SYSTEM\\Memory", "Clear", Number(4000000000u)), 0);
    EXPECT_EQ(store.Write(kLocalMachine, "SYSTEM\\Memory", "Raw", {ValueType::Other, "0102", 0}), 0);
    // Another spelling is the same value in its old place; removing and writing makes a new one at the end.
    EXPECT_EQ(Set(store, "SOFTWARE\\orvane", "ZEBRA", "5"), 0);
    EXPECT_EQ(store.RemoveValue(kCurrentUser, "Software\\Orvane", "APPLE"), 0);
    EXPECT_EQ(Set(store, "Software\\Orvane", "Apple", "6"), 0);
    EXPECT_EQ(Set(store, "Software\\Orvane", "ÄRGER", "7"), 0);
  }
  HostRegistry store(file_);
  EXPECT_EQ(NamesOf(store, "software\\ORVANE"),
            (Texts{"Zebra", "Move files to recycle bin ", "Ärger", "", "Apple"}));
  ExpectAll(store, {{"Software\\Orvane", "zebra", "5"},
                    {"Software\\Orvane", "apple", "6"},
                    {"Software\\Orvane", "ärger", "7"},
                    {"Software\\Orvane", "", "the key's own"}});
  EXPECT_EQ(store.Read(kCurrentUser, "Software\\Orvane", "Move files to recycle bin").type,
            ValueType::Absent);
  RegistryValue number = store.Read(kLocalMachine, "system\\memory", "clear");
  EXPECT_EQ(number.type, ValueType::DWord);
  EXPECT_EQ(number.number, 4000000000u);
  EXPECT_EQ(number.text, "4000000000");
  EXPECT_EQ(store.Read(kLocalMachine, "SYSTEM\\Memory", "Raw").type, ValueType::Other);
  // A changed type holds too.
  EXPECT_EQ(store.Write(kLocalMachine, "SYSTEM\\Memory", "Clear", Text("0")), 0);
  EXPECT_EQ(store.Read(kLocalMachine, "SYSTEM\\Memory", "Clear").type, ValueType::String);
}

TEST_F(HostRegistryTest, KeepsNamesOfAnyBytes) {
  const Texts odd = {"C:\\caf\xE9\\\xFF.tmp", "a'b\"c;%?", "a\tb\nc"};
  {
    HostRegistry store(file_);
    for (const std::string& name : odd) EXPECT_EQ(Set(store, "Excluded", name, name), 0);
    EXPECT_EQ(Set(store, "Excluded", std::string("a\0b", 3), "x"), kRegistryInvalidParameter);
    EXPECT_EQ(Set(store, "Excluded", "a", std::string("x\0y", 3)), kRegistryInvalidParameter);
  }
  HostRegistry store(file_);
  EXPECT_EQ(NamesOf(store, "Excluded"), odd);
  for (const std::string& name : odd) EXPECT_EQ(Get(store, "Excluded", name), name);
}

TEST_F(HostRegistryTest, KeysStandOnTheirOwnUnderEachRoot) {
  HostRegistry store(file_);
  for (std::uint32_t root = kClassesRoot; root <= kDynData; ++root)
    EXPECT_EQ(store.Write(root, "Same\\Key", "root", Number(root)), 0);
  for (std::uint32_t root = kClassesRoot; root <= kDynData; ++root)
    EXPECT_EQ(store.Read(root, "same\\key", "ROOT").number, root);

  SetAll(store, {{"A\\B\\C", "x", "1"}, {"A\\Bc", "y", "2"}, {"A\\B c", "z", "3"}, {"A", "own", "4"}});
  EXPECT_TRUE(store.KeyExists(kCurrentUser, "a\\b"));
  EXPECT_EQ(store.RemoveAllValues(kCurrentUser, "A\\B\\C"), 0);
  EXPECT_TRUE(store.KeyExists(kCurrentUser, "A\\B\\C")) << "an empty key stays";
  EXPECT_EQ(Set(store, "A\\B\\C", "x", "1"), 0);

  EXPECT_EQ(store.RemoveKey(kCurrentUser, "a\\b"), 0);
  EXPECT_FALSE(store.KeyExists(kCurrentUser, "A\\B"));
  EXPECT_FALSE(store.KeyExists(kCurrentUser, "A\\B\\C"));
  ExpectAll(store, {{"A\\Bc", "y", "2"}, {"A\\B c", "z", "3"}, {"A", "own", "4"}});
  EXPECT_EQ(store.RemoveKey(kCurrentUser, "A\\B"), 0) << "nothing to remove";
  // A key of the same name is a fresh one.
  EXPECT_EQ(Set(store, "A\\B\\C", "new", "5"), 0);
  EXPECT_EQ(NamesOf(store, "A\\B\\C"), Texts{"new"});

  EXPECT_EQ(store.RemoveKey(kCurrentUser, ""), kRegistryAccessDenied);
  EXPECT_EQ(store.RemoveKey(0x12345678u, "A"), kRegistryInvalidRoot);
  EXPECT_EQ(store.RemoveKey(kDynData + 1, "A"), kRegistryInvalidRoot);
  for (const char* key : {"\\A", "A\\", "A\\\\B", "\\"})
    EXPECT_EQ(Set(store, key, "x", "1"), kRegistryBadPath) << key;
  EXPECT_EQ(Get(store, "A", "own"), "4");

  HostRegistry again(file_);
  EXPECT_FALSE(again.KeyExists(kCurrentUser, "A\\B\\C\\x"));
  EXPECT_EQ(NamesOf(again, "A\\B\\C"), Texts{"new"});
  EXPECT_EQ(Get(again, "A\\Bc", "y"), "2");
}

TEST_F(HostRegistryTest, TransactionsNestAndBecomeLastingTogether) {
  HostRegistry store(file_);
  ASSERT_EQ(Set(store, "K", "a", "old"), 0);
  store.Begin();
  EXPECT_EQ(Set(store, "K", "a", "new"), 0);
  store.Begin();
  EXPECT_EQ(Set(store, "K\\Sub", "b", "1"), 0);
  EXPECT_EQ(store.End(), 0);
  EXPECT_EQ(Get(store, "K", "a"), "new") << "own reads see it";
  {
    HostRegistry other(file_);
    EXPECT_EQ(Get(other, "K", "a"), "old");
    EXPECT_FALSE(other.KeyExists(kCurrentUser, "K\\Sub"));
  }
  EXPECT_EQ(store.End(), 0);
  HostRegistry other(file_);
  EXPECT_EQ(Get(other, "K", "a"), "new");
  EXPECT_EQ(Get(other, "K\\Sub", "b"), "1");
  EXPECT_EQ(store.End(), 0) << "one End too many";
}

TEST_F(HostRegistryTest, SeesWhatAnotherStoreWritesAndWritesUponIt) {
  HostRegistry one(file_), two(file_);
  // Each has an image that the other makes old again and again.
  for (int i = 0; i < 20; ++i) {
    ASSERT_EQ(Set(one, "List\\Of", "one " + std::to_string(i), "x"), 0);
    ASSERT_EQ(Set(two, "List\\Of", "two " + std::to_string(i), "x"), 0);
    ASSERT_EQ(one.RemoveValue(kCurrentUser, "List\\Of", "two " + std::to_string(i - 1)), 0);
  }
  ASSERT_EQ(two.RemoveKey(kCurrentUser, "list"), 0);
  ASSERT_EQ(Set(one, "List\\Of", "last", "y"), 0);
  HostRegistry fresh(file_);
  EXPECT_EQ(NamesOf(fresh, "List\\Of"), Texts{"last"});

  auto seen = [&](HostRegistry& store) { return Get(store, "List\\Of", "last") == "y"; };
  for (int i = 0; i < 500 && !seen(two); ++i) std::this_thread::sleep_for(std::chrono::milliseconds(10));
  EXPECT_TRUE(seen(two));
}

TEST_F(HostRegistryTest, ATransactionBeginsWithTheNewestState) {
  HostRegistry one(file_, false), two(file_, false);
  for (int i = 0; i < 20; ++i) {
    const std::string text = std::to_string(i);
    Get(one, "K", "a");
    ASSERT_EQ(Set(two, "K", "a", text), 0);
    one.Begin();
    EXPECT_EQ(Get(one, "K", "a"), text);
    ASSERT_EQ(one.End(), 0);
  }
}

TEST_F(HostRegistryTest, TwoProcessesThatWriteAtOnceLoseNothing) {
  constexpr int kRounds = 60;
  auto writer = [&](const std::string& name) {
    return [&, name]() -> std::string {
      HostRegistry store(file_);
      for (int i = 0; i < kRounds; ++i) {
        store.Begin();
        // A count that both raise: right only if each transaction starts from the newest state.
        long first = Set(store, "Both\\Deep\\Key", name + std::to_string(i), "x");
        RegistryValue count = store.Read(kCurrentUser, "Both", "Count");
        long second = store.Write(kCurrentUser, "BOTH", "COUNT", Number(count.number + 1));
        if (first || second || store.End()) return name + " failed in round " + std::to_string(i);
      }
      return {};
    };
  };
  ChildProcess a(writer("a")), b(writer("b"));
  EXPECT_EQ(a.Result(), "");
  EXPECT_EQ(b.Result(), "");
  HostRegistry store(file_);
  EXPECT_EQ(store.Read(kCurrentUser, "Both", "Count").number, 2u * kRounds);
  EXPECT_EQ(NamesOf(store, "Both\\Deep\\Key").size(), 2u * kRounds);
}

TEST_F(HostRegistryTest, AKillAtAnyMomentLeavesWholeTransactions) {
  constexpr int kNames = 150, kKills = 50;
  std::mt19937 random(7);
  auto key = [](int i) { return "Kill\\" + std::to_string(i % 5); };
  // Long enough that each transaction writes many pages.
  auto text = [](unsigned long generation) { return std::to_string(generation) + std::string(400, '.'); };
  unsigned long last = 0;
  for (int round = 0; round < kKills; ++round) {
    // Without waiting for the disk nearly all the time goes into the writing itself, and the kills meet that.
    bool waitForDisk = round % 5 == 0;
    int told[2];
    ASSERT_EQ(pipe(told), 0);
    ChildProcess child([&]() -> std::string {
      HostRegistry store(file_, waitForDisk);
      for (unsigned long generation = last + 1;; ++generation) {
        store.Begin();
        for (int i = 0; i < kNames; ++i) Set(store, key(i), std::to_string(i), text(generation));
        // Rows come and go, so that pages are split and freed.
        std::string bulk = "Kill\\Bulk" + std::to_string(generation % 3);
        if (generation % 2) store.RemoveKey(kCurrentUser, bulk);
        for (int i = 0; i < 40; ++i) Set(store, bulk, std::to_string(i), std::string(100, 'x'));
        if (store.End() != 0) return "a commit failed";
        if (write(told[1], &generation, sizeof generation) != sizeof generation) return "told nobody";
      }
    });
    close(told[1]);
    // Sometimes in the making of the store, mostly in the middle of the writing.
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 60000));
    child.Kill();
    EXPECT_EQ(child.Result(), "killed by signal 9");
    unsigned long committed = last, next;
    while (read(told[0], &next, sizeof next) == sizeof next) committed = next;
    close(told[0]);

    HostRegistry store(file_, waitForDisk);
    std::string first = Get(store, key(0), "0");
    unsigned long found = first.empty() ? 0 : std::stoul(first);
    EXPECT_GE(found, committed) << "a finished transaction is lost";
    EXPECT_LE(found, committed + 1);
    for (int i = 0; i < kNames; ++i) {
      ASSERT_EQ(Get(store, key(i), std::to_string(i)), found ? text(found) : "") << i;
    }
    if (found > 0) {
      EXPECT_EQ(NamesOf(store, "Kill\\Bulk" + std::to_string(found % 3)).size(), 40u);
    }
    last = found;
  }
  EXPECT_GT(last, 0u);
}

TEST_F(HostRegistryTest, ADamagedStoreIsToldAndLeftAlone) {
  {
    HostRegistry store(file_);
    store.Begin();
    for (int i = 0; i < 300; ++i)
      Set(store, "Key" + std::to_string(i % 20), std::to_string(i), std::string(80, 'v'));
    ASSERT_EQ(store.End(), 0);
  }
  const std::string good = Bytes(file_);
  ASSERT_GT(good.size(), 3 * 4096u);

  std::vector<std::pair<std::string, std::string>> damages = {
      {"text", "this is no registry, but a text that somebody has put here\n"},
      {"zeros", std::string(good.size(), '\0')},
      {"a byte", "S"},
      {"the second page", good.substr(0, 4096) + std::string(4096, '\xFF') + good.substr(8192)},
      {"a hole", good.substr(0, 4096) + std::string(good.size() - 4096, '\0')},
  };
  for (std::size_t size :
       {std::size_t{10}, std::size_t{99}, std::size_t{511}, std::size_t{513}, std::size_t{4095},
        std::size_t{4096}, good.size() / 2, good.size() - 4096, good.size() - 1})
    damages.emplace_back("cut to " + std::to_string(size), good.substr(0, size));

  for (const auto& [what, bytes] : damages) {
    SetBytes(file_, bytes);
    HostRegistry store(file_);
    test::Strings names;
    EXPECT_THROW(store.Read(kCurrentUser, "Key1", "1"), RuntimeError) << what;
    EXPECT_THROW(store.Names(kCurrentUser, "Key1", names), RuntimeError) << what;
    EXPECT_THROW(store.KeyExists(kCurrentUser, "Key1"), RuntimeError) << what;
    EXPECT_NE(Set(store, "Key1", "1", "new"), 0) << what;
    EXPECT_NE(store.RemoveKey(kCurrentUser, "Key1"), 0) << what;
    store.Begin();
    EXPECT_NE(Set(store, "Key1", "1", "new"), 0) << what;
    EXPECT_NE(store.End(), 0) << what;
    EXPECT_TRUE(Bytes(file_) == bytes) << what;
    EXPECT_EQ(FolderNames(), Texts{"registry.sqlite"}) << what;
  }

  // Put right while the program runs, it is read again.
  SetBytes(file_, "broken");
  HostRegistry store(file_);
  EXPECT_THROW(Get(store, "Key1", "1"), RuntimeError);
  SetBytes(file_, good);
  EXPECT_EQ(Get(store, "Key1", "1"), std::string(80, 'v'));
}

TEST_F(HostRegistryTest, WithoutAFolderReadsRaiseAndWritesAnswer) {
  HostRegistry store(computer_.Root() + "/nowhere/registry.sqlite");
  EXPECT_THROW(Get(store, "A", "b"), RuntimeError);
  EXPECT_NE(Set(store, "A", "b", "c"), 0);
  // Once it can be made it is.
  fs::create_directory(computer_.Root() + "/nowhere");
  EXPECT_EQ(Set(store, "A", "b", "c"), 0);
  EXPECT_EQ(Get(store, "A", "b"), "c");
}

TEST_F(HostRegistryTest, AStoreThatCanOnlyBeReadIsRead) {
  {
    HostRegistry store(file_);
    ASSERT_EQ(Set(store, "Software\\Orvane", "a", "1"), 0);
  }
  std::string empty = Folder() + "/empty.sqlite";
  SetBytes(empty, "");
  chmod(computer_.Root().c_str(), 0755);
  chmod(empty.c_str(), 0444);

  auto check = [&]() -> std::string {
    test::BecomeNobody();
    HostRegistry store(file_);
    if (Get(store, "software\\orvane", "A") != "1") return "not read";
    if (Set(store, "Software\\Orvane", "a", "2") == 0) return "written";
    if (store.RemoveValue(kCurrentUser, "Software\\Orvane", "a") == 0) return "value removed";
    if (store.RemoveKey(kCurrentUser, "Software\\Orvane") == 0) return "key removed";
    store.Begin();
    if (Set(store, "Software\\Orvane", "a", "3") == 0) return "written in a transaction";
    if (store.End() == 0) return "committed";
    if (Get(store, "Software\\Orvane", "a") != "1") return "what couldn't be written is read";
    HostRegistry nothing(empty);
    if (nothing.KeyExists(kCurrentUser, "Software") || !NamesOf(nothing, "Software").empty())
      return "not empty";
    return Set(nothing, "Software", "a", "1") == 0 ? "the empty one was written" : "";
  };
  // The file can't be written, nor its folder; then only the folder, so that no journal can be made.
  chmod(Folder().c_str(), 0555);
  chmod(file_.c_str(), 0444);
  EXPECT_EQ(ChildProcess(check).Result(), "");
  chmod(file_.c_str(), 0600);
  EXPECT_EQ(chown(file_.c_str(), 65534, 65534), 0);
  EXPECT_EQ(ChildProcess(check).Result(), "");
  chmod(Folder().c_str(), 0755);
}

TEST_F(HostRegistryTest, ACommitThatFailsTakesAllItsWritesBack) {
  HostRegistry first(file_);
  ASSERT_EQ(Set(first, "K", "a", "old"), 0);
  ASSERT_EQ(Set(first, "Ballast", "a", std::string(200'000, 'x')), 0);
  std::string result = ChildProcess([&]() -> std::string {
                         HostRegistry store(file_);
                         if (Get(store, "K", "a") != "old") return "not read";
                         std::signal(SIGXFSZ, SIG_IGN);
                         rlimit limit{};
                         getrlimit(RLIMIT_FSIZE, &limit);
                         rlimit small = limit;
                         small.rlim_cur = fs::file_size(file_);
                         setrlimit(RLIMIT_FSIZE, &small);
                         store.Begin();
                         // More than the file may hold, so that writing the pages out fails; the journal of
                         // the old ones fits.
                         long code = Set(store, "K", "a", "new");
                         for (int i = 0; i < 200; ++i)
                           code |= Set(store, "K\\Big", std::to_string(i), std::string(500, 'x'));
                         if (code != 0) return "failed before the commit";
                         if (store.End() == 0) return "committed";
                         if (Get(store, "K", "a") != "old") return "half written";
                         if (store.KeyExists(kCurrentUser, "K\\Big")) return "a key of a failed commit";
                         setrlimit(RLIMIT_FSIZE, &limit);
                         if (Set(store, "K", "a", "later") != 0) return "not written with room";
                         return {};
                       }).Result();
  EXPECT_EQ(result, "");
  HostRegistry store(file_);
  EXPECT_EQ(Get(store, "K", "a"), "later");
  EXPECT_FALSE(store.KeyExists(kCurrentUser, "K\\Big"));
}

TEST_F(HostRegistryTest, WaitsForAnotherProcessThatIsWriting) {
  HostRegistry store(file_);
  ASSERT_EQ(Set(store, "K", "a", "1"), 0);
  ChildProcess other([&](const ChildProcess::Told& told) -> std::string {
    HostRegistry mine(file_);
    mine.Begin();
    if (Set(mine, "K", "a", "2") != 0) return "no lock";
    told();
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    return mine.End() == 0 ? "" : "not committed";
  });
  ASSERT_TRUE(other.HasTold());
  EXPECT_EQ(Get(store, "K", "a"), "1") << "reads don't wait for it";
  EXPECT_EQ(Set(store, "K", "b", "3"), 0);
  EXPECT_EQ(other.Result(), "");
  EXPECT_EQ(Get(store, "K", "a"), "2");
}

TEST(HostRegistryTransactionTest, CommitsOnce) {
  test::TestComputer computer;
  auto write = [](const char* text) {
    LibRegistry().WriteValue(kCurrentUser, "Software\\Test", "Name", text);
  };
  auto seenFromOutside = [&] {
    return computer.AnotherMachine()->Registry().Read(kCurrentUser, "Software\\Test", "Name").text;
  };
  {
    RegistryTransaction outer, inner;
    write("1");
    EXPECT_EQ(inner.Commit(), 0);
    EXPECT_EQ(seenFromOutside(), "");
    EXPECT_EQ(outer.Commit() + outer.Commit(), 0);
    EXPECT_EQ(seenFromOutside(), "1");
  }
  {
    RegistryTransaction forgotten;
    write("2");
  }
  EXPECT_EQ(seenFromOutside(), "2");
}

}  // namespace
}  // namespace platform
