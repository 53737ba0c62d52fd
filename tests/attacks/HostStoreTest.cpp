// A settings store that somebody else has made, changed or holds: it is told and left as it is, and nothing
// that it says is believed.
#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/RuntimeError.h"
#include "platform/host/HostRegistry.h"
#include "support/CannotPlay.h"
#include "support/ChildProcess.h"
#include "support/TestComputer.h"

namespace platform {
namespace {

namespace fs = std::filesystem;
using test::ChildProcess;

constexpr uid_t kNobody = 65534;

class StoreAttack : public testing::Test {
 protected:
  StoreAttack() { MakeGood(); }

  void MakeGood() {
    fs::remove_all(folder_);
    fs::create_directory(folder_);
    chmod(folder_.c_str(), 0700);
    HostRegistry store(file_);
    EXPECT_EQ(store.Write(kCurrentUser, "Software\\Orvane\\Tidorra", "Install Directory",
                          {ValueType::String, "C:\\Good\\", 0}),
              0);
  }
  void Craft(const char* sql) {
    sqlite3* database;
    ASSERT_EQ(sqlite3_open(file_.c_str(), &database), SQLITE_OK);
    char* fault = nullptr;
    EXPECT_EQ(sqlite3_exec(database, sql, nullptr, nullptr, &fault), SQLITE_OK) << fault;
    sqlite3_close(database);
  }
  void ExpectRefused(const std::string& what, StoreHealth health) {
    HostRegistry store(file_);
    EXPECT_THROW(store.Read(kCurrentUser, "Software\\Orvane\\Tidorra", "Install Directory"), RuntimeError)
        << what;
    EXPECT_NE(store.Write(kCurrentUser, "A", "b", {ValueType::String, "c", 0}), 0) << what;
    const StoreState state = store.State();
    EXPECT_EQ(state.health, health) << what;
    EXPECT_EQ(state.place, file_) << what;
    EXPECT_TRUE(!state.fault.empty() && !state.advice.empty()) << what;
  }

  test::TestComputer computer_{{.drives = {}, .layout = false}};
  const std::string folder_ = computer_.Root() + "/store", file_ = folder_ + "/registry.sqlite";
};

TEST_F(StoreAttack, ASchemaThatIsNotOursIsNeverEvaluated) {
  const std::pair<const char*, const char*> crafts[] = {
      {"a view that gives the values",
       "ALTER TABLE registry_values RENAME TO hidden;"
       "CREATE VIEW registry_values AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n LIMIT 99)"
       " SELECT i AS id, 2 AS key_id, 'n' || i AS name, 1 AS type, 'x' AS data FROM n"},
      {"a trigger", "CREATE TRIGGER t AFTER INSERT ON registry_values BEGIN DELETE FROM registry_keys; END"},
      {"one more table", "CREATE TABLE more(x)"},
      {"an index", "CREATE INDEX i ON registry_values(name, upper(data))"},
      {"a column that is computed",
       "ALTER TABLE registry_values ADD COLUMN more AS (upper(data) || zeroblob(9)) VIRTUAL"},
      {"another journal", "PRAGMA journal_mode = WAL"},
      {"keys without end",
       "WITH RECURSIVE n(i) AS (SELECT 1000 UNION ALL SELECT i+1 FROM n WHERE i < 3000)"
       " INSERT INTO registry_keys SELECT i, CASE i WHEN 1000 THEN 2 ELSE i-1 END, 'k' FROM n"},
      {"paths of gigabytes",
       "WITH RECURSIVE n(i) AS (SELECT 1000 UNION ALL SELECT i+1 FROM n WHERE i < 1300)"
       " INSERT INTO registry_keys SELECT i, CASE i WHEN 1000 THEN 2 ELSE i-1 END, hex(zeroblob(1000)) FROM "
       "n;"
       "WITH RECURSIVE n(i) AS (SELECT 2000 UNION ALL SELECT i+1 FROM n WHERE i < 4000)"
       " INSERT INTO registry_keys SELECT i, 1300, 'c' || i FROM n"},
  };
  for (auto [what, sql] : crafts) {
    MakeGood();
    Craft(sql);
    ExpectRefused(what, StoreHealth::Damaged);
  }
}

TEST_F(StoreAttack, AFileOfSixtyGigabytesIsNotRead) {
  ASSERT_EQ(truncate(file_.c_str(), 60'000'000'000), 0);
  ExpectRefused("sparse", StoreHealth::Damaged);
}

TEST_F(StoreAttack, AFileThatAnotherUserMayHaveMadeIsNotBelieved) {
  if (geteuid() != 0) CANNOT_PLAY("needs the superuser, to be another user");
  const std::string other = computer_.Root() + "/other.sqlite";
  fs::copy_file(file_, other);
  const std::pair<const char*, std::function<void()>> cases[] = {
      {"a foreign folder", [&] { EXPECT_EQ(chown(folder_.c_str(), kNobody, kNobody), 0); }},
      {"a foreign file", [&] { EXPECT_EQ(chown(file_.c_str(), kNobody, kNobody), 0); }},
      {"a foreign journal",
       [&] {
         std::ofstream(file_ + "-journal") << "x";
         EXPECT_EQ(chown((file_ + "-journal").c_str(), kNobody, kNobody), 0);
       }},
      {"a link",
       [&] {
         fs::remove(file_);
         fs::create_symlink(other, file_);
       }},
      {"a pipe",
       [&] {
         fs::remove(file_);
         EXPECT_EQ(mkfifo(file_.c_str(), 0600), 0);
       }},
  };
  for (const auto& [what, prepare] : cases) {
    MakeGood();
    prepare();
    ExpectRefused(what, StoreHealth::Refused);
  }
  // The superuser's folder is trusted, but not one where all may write.
  MakeGood();
  chmod(computer_.Root().c_str(), 0755);
  for (mode_t mode : {0755, 0777}) {
    chmod(folder_.c_str(), mode);
    chmod(file_.c_str(), 0644);
    auto health = [&]() -> std::string {
      test::BecomeNobody();
      return std::to_string(static_cast<int>(HostRegistry(file_).State().health));
    };
    StoreHealth expected = mode == 0755 ? StoreHealth::ReadOnly : StoreHealth::Refused;
    EXPECT_EQ(ChildProcess(health).Result(), std::to_string(static_cast<int>(expected)));
  }
}

TEST_F(StoreAttack, WhatTheUserOwnsIsTakenFromOthersEyes) {
  chmod(folder_.c_str(), 0777);
  chmod(file_.c_str(), 0666);
  EXPECT_EQ(HostRegistry(file_).State().health, StoreHealth::Good);
  for (const auto& [path, mode] : {std::pair{folder_, 0700u}, std::pair{file_, 0600u}}) {
    struct stat info {};
    EXPECT_EQ(stat(path.c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 07777, mode) << path;
  }
}

TEST_F(StoreAttack, AReadLockThatIsNeverGivenBackIsWaitedForOnce) {
  ChildProcess holder([&](const ChildProcess::Told& told) -> std::string {
    sqlite3* database;
    sqlite3_open(file_.c_str(), &database);
    sqlite3_exec(database, "BEGIN; SELECT count(*) FROM registry_keys", nullptr, nullptr, nullptr);
    told();
    pause();
    return {};
  });
  ASSERT_TRUE(holder.HasTold());
  HostRegistry store(file_);
  auto write = [&](const char* data) {
    auto start = std::chrono::steady_clock::now();
    long code = store.Write(kCurrentUser, "A", "b", {ValueType::String, data, 0});
    return std::pair{code, std::chrono::steady_clock::now() - start};
  };
  EXPECT_NE(write("1").first, 0);
  for (const char* data : {"2", "3", "4"}) {
    auto [code, time] = write(data);
    EXPECT_NE(code, 0);
    EXPECT_LT(time, std::chrono::seconds(1));
  }
  holder.Kill();
  holder.Result();
  EXPECT_EQ(write("5").first, 0);
}

}  // namespace
}  // namespace platform
