// What a run may rely on once its backup is taken.
#include <filesystem>

#include "backup/ZipFixture.h"
#include "core/m_SharedProcedures.h"
#include "support/Raised.h"

namespace test {

using Paths = std::vector<std::string>;
using platform::OpenMode;
using platform::Status;

namespace {

// Does something to the archive at the moment when it is opened to be read back.
class Meddling {
 public:
  Meddling(WatchedFiles& watched, const std::string& archive, std::function<void()> act) {
    watched.onOpen = [=](std::string_view path, OpenMode mode) {
      if (path == archive && mode == OpenMode::Read) act();
      return Status::Done;
    };
  }
};

}  // namespace

TEST_F(ZipTest, OnlyWhatIsReadBackIsPromised) {
  Paths paths = {"C:\\Data\\a.txt", "C:\\Data\\b.txt", "C:\\Data\\c.txt", "C:\\Data\\empty.txt"};
  computer.WriteFile(paths[0], Words(50'000));
  computer.WriteFile(paths[1], Words(5'000'000, 3));  // of two pieces
  computer.WriteFile(paths[2], "c");
  computer.WriteFile(paths[3], "");
  backup::BackupPromise whole;
  ASSERT_EQ(Store(paths, whole), 0);
  for (const std::string& path : paths) EXPECT_TRUE(Holds(whole, path)) << path;
  std::string sound = computer.ReadFile(kArchive);

  auto at = [&](const std::string& text, std::size_t from) { return sound.find(text, from); };
  std::size_t second = at("C:/Data/b.txt", 0), third = at("C:/Data/c.txt", 0), directory = at("PK\1\2", 0);
  const struct {
    const char* name;
    std::size_t offset;
    std::size_t held;  // of the four
    std::size_t lost;  // the one that isn't, if three are
  } cases[] = {{"the first file's content", at("PK\3\4", 0) + 300, 3, 0},
               {"the second file's first piece", second + 300, 3, 1},
               {"the second file's last piece", third - 300, 3, 1},
               {"the third file's name", third, 3, 2},
               {"the third file's checksum in its header", third - 16, 3, 2},
               {"the directory", directory + 60, 0, 0},
               {"the end", sound.size() - 10, 0, 0}};
  for (const auto& one : cases) {
    SCOPED_TRACE(one.name);
    computer.Remove(kArchive);
    WatchedFiles watched(computer.Machine());
    Meddling meddling(watched, kArchive, [&] {
      std::string damaged = computer.ReadFile(kArchive);
      ASSERT_EQ(damaged.size(), sound.size());
      damaged[one.offset] = static_cast<char>(damaged[one.offset] ^ 1);
      computer.WriteFile(kArchive, damaged);
    });
    backup::BackupPromise promise;
    EXPECT_EQ(Store(paths, promise), 0);
    EXPECT_EQ(static_cast<std::size_t>(promise.Count()), one.held);
    if (one.held == 3) {
      EXPECT_FALSE(Holds(promise, paths[one.lost]));
    }
  }
  for (bool cut : {true, false}) {
    computer.Remove(kArchive);
    WatchedFiles watched(computer.Machine());
    Meddling meddling(watched, kArchive, [&] {
      std::string other = computer.ReadFile(kArchive);
      cut ? other.pop_back() : other.push_back('x');
      computer.WriteFile(kArchive, other);
    });
    backup::BackupPromise promise;
    EXPECT_EQ(Store(paths, promise), 0);
    EXPECT_EQ(promise.Count(), 0);
  }
}

TEST_F(ZipTest, AFileThatChangesOrIsLeftOutIsNotPromised) {
  Paths paths = {"C:\\Data\\a.txt", "C:\\Data\\b.txt"};
  for (const std::string& path : paths) computer.WriteFile(path);
  backup::BackupPromise promise;
  ASSERT_EQ(Store({paths[0], "C:\\Data\\gone.txt"}, promise), 525);
  EXPECT_TRUE(Holds(promise, paths[0]));
  EXPECT_FALSE(Holds(promise, paths[1]));
  computer.WriteFile(paths[0], "another content");
  EXPECT_FALSE(Holds(promise, paths[0]));
  // Stored once more it is the newer one that counts.
  ASSERT_EQ(Store(paths, promise), 0);
  EXPECT_TRUE(Holds(promise, paths[0]));
  EXPECT_TRUE(Holds(promise, paths[1]));
}

TEST_F(ZipTest, JoinedCallsAreOneWork) {
  constexpr std::size_t kSize = 700'000;
  computer.WriteFile("C:\\Data\\old.txt", Words(kSize));
  ASSERT_EQ(Store({"C:\\Data\\old.txt"}), 0);
  std::string before = computer.ReadFile(kArchive);
  backup::BackupPromise promise;
  std::size_t written = 0;
  {
    WatchedFiles watched(computer.Machine());
    watched.onWrite = [&](const std::string&, std::size_t bytes) {
      written += bytes;
      return Status::Done;
    };
    zip.Join();
    for (int i = 0; i < 5; ++i) {
      std::string path = "C:\\Data\\" + std::to_string(i);
      computer.WriteFile(path, path);
      // A file that two places hold is stored once.
      ASSERT_EQ(Store({path, "C:\\Data\\0"}, promise), 0);
      EXPECT_EQ(computer.ReadFile(kArchive), before);
    }
    EXPECT_EQ(promise.Count(), 0);
    ASSERT_EQ(zip.Finish(&promise), 0);
    EXPECT_EQ(watched.flushes, 1);
  }
  EXPECT_LT(written, before.size() + 5'000);
  EXPECT_EQ(promise.Count(), 5);
  EXPECT_EQ(List().size(), 6u);
  ExpectSound();

  std::string joined = computer.ReadFile(kArchive);
  zip.Join();
  computer.WriteFile("C:\\Data\\more");
  ASSERT_EQ(Store({"C:\\Data\\more"}, promise), 0);
  zip.Cancel();
  EXPECT_EQ(computer.ReadFile(kArchive), joined);
  EXPECT_EQ(BackupFolder().size(), 1u);
}

TEST_F(ZipTest, AStopLeavesTheArchiveAsItWasAndPromisesNothing) {
  gAppRunning = std::make_unique<c_AppRunning>();
  Paths paths;
  for (int i = 0; i < 6; ++i) {
    paths.push_back("C:\\Data\\" + std::to_string(i));
    computer.WriteFile(paths.back());
  }
  auto stopAt = [](const std::string& name) {
    return [name](std::string_view path, OpenMode) {
      if (path.ends_with(name)) gAppRunning->StopProcess = true;
      return Status::Done;
    };
  };
  backup::BackupPromise promise;
  for (const char* moment : {"\\3", ".zip"}) {
    SCOPED_TRACE(moment);
    WatchedFiles watched(computer.Machine());
    watched.onOpen = stopAt(moment);
    EXPECT_EQ(Store(paths, promise), 526);
    EXPECT_EQ(promise.Count(), 0);
    EXPECT_EQ(Why(), "The work was stopped.");
    gAppRunning->StopProcess = false;
  }
  // A stop of an earlier run is over.
  gAppRunning->StopProcess = true;
  computer.Remove(kArchive);
  EXPECT_EQ(Store(paths, promise), 0);
  EXPECT_EQ(promise.Count(), 6);
  gAppRunning->StopProcess = false;
  // Between what a run stores and the moment when it is written.
  std::string before = computer.ReadFile(kArchive);
  zip.Join();
  EXPECT_EQ(Store({paths[0]}), 0);
  gAppRunning->StopProcess = true;
  EXPECT_EQ(zip.Finish(&promise), 526);
  EXPECT_EQ(computer.ReadFile(kArchive), before);
  gAppRunning->StopProcess = false;

  computer.Remove("C:\\Data");
  {
    WatchedFiles watched(computer.Machine());
    int made = 0;
    watched.onOpen = [&](std::string_view, OpenMode mode) {
      if (mode == OpenMode::CreateNew && ++made == 2) gAppRunning->StopProcess = true;
      return Status::Done;
    };
    EXPECT_EQ(Restore(), 526);
    EXPECT_EQ(Why(), "The work was stopped.");
  }
  for (const std::string& name : computer.List("C:\\Data")) EXPECT_EQ(name.size(), 1u) << name;
  gAppRunning.reset();
}

}  // namespace test
