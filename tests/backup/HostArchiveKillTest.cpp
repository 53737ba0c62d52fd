// Backup, restore and extract, ended at any moment.
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>

#include "backup/ZipFixture.h"
#include "support/ChildProcess.h"

namespace test {

using Paths = std::vector<std::string>;

namespace {

namespace fs = std::filesystem;

std::string ReadNative(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

class ArchiveKillTest : public ZipTest {
 protected:
  // By default some points, spread evenly; where this is set, a thousand, in a work of as many steps.
  const bool all = std::getenv("BRASMIR_ALL_KILLS") != nullptr;
  int Points(int steps) { return std::min(steps, all ? 1000 : 24); }
  int fileCount = all ? 200 : 60;
  static std::string Path(int file) {
    return "C:\\Data\\part" + std::to_string(file % 4) + "\\file " + std::to_string(file) + ".txt";
  }
  static std::string New(int file) {
    return "new " + std::to_string(file) + Words(static_cast<std::size_t>(file * 37));
  }
  static std::string Old(int file) { return "old " + std::to_string(file); }
  // Every third file lies there with another content.
  static bool HasOld(int file) { return file % 3 == 0; }

  void WriteNew() {
    for (int i = 0; i < fileCount; ++i) computer.WriteFile(Path(i), New(i));
  }
  Paths AllPaths() {
    Paths paths;
    for (int i = 0; i < fileCount; ++i) paths.push_back(Path(i));
    return paths;
  }
  // Does `act` in a process that is killed before its step `last`. False if it came to its end.
  bool KillAt(int last, const std::function<long()>& act, int* steps = nullptr) {
    ChildProcess child([&] {
      int done = 0;
      WatchedFiles files(computer.Machine());
      files.onStep = [&] {
        if (done++ == last) raise(SIGKILL);
      };
      files.onRead = [&](const std::string&, std::uint64_t) { return files.Step(), platform::Status::Done; };
      long result = act();
      return result == 0 ? std::to_string(done) : "failed: " + Why();
    });
    std::string result = child.Result();
    if (result == "killed by signal 9") return true;
    if (steps) *steps = std::atoi(result.c_str());
    EXPECT_GT(std::atoi(result.c_str()), 0) << result;
    return false;
  }
  // `reset` brings the disk to where it begins, `check` looks at what a kill has left.
  void KillEverywhere(const std::function<void()>& reset, const std::function<long()>& act,
                      const std::function<void()>& check) {
    int steps = 0;
    reset();
    ASSERT_FALSE(KillAt(-1, act, &steps));
    check();
    int points = Points(steps), killed = 0;
    for (int point = 0; point < points; ++point) {
      int step = static_cast<int>(std::int64_t{point} * steps / points);
      SCOPED_TRACE("killed before step " + std::to_string(step) + " of " + std::to_string(steps));
      reset();
      killed += KillAt(step, act);
      check();
      if (HasFailure()) return;
    }
    EXPECT_EQ(killed, points);
    RecordProperty("steps", steps);
    RecordProperty("points", points);
  }
  // The contents of all files of the drive, those of the bin too.
  std::multiset<std::string> Contents() {
    std::multiset<std::string> contents;
    for (const auto& entry : fs::recursive_directory_iterator(computer.Native("C:\\")))
      if (entry.is_regular_file()) contents.insert(ReadNative(entry.path()));
    return contents;
  }
  int Leftovers(const std::string& folder) {
    int count = 0;
    for (const auto& entry : fs::recursive_directory_iterator(computer.Native(folder)))
      count += entry.path().extension() == ".brasmir";
    return count;
  }
  void EmptyBin() { computer.Remove("C:\\$Recycle.Bin"); }
};

TEST_F(ArchiveKillTest, ABackupLeavesTheOldArchiveOrTheNewOne) {
  if (all) fileCount = 520;  // each of which takes fewer steps than at a restore
  WriteNew();
  computer.WriteFile("C:\\Data\\first.txt", "first");
  ASSERT_EQ(Store({"C:\\Data\\first.txt"}), 0);
  std::string before = computer.ReadFile(kArchive);
  KillEverywhere(
      [&] {
        computer.Remove("C:\\Backup");
        computer.WriteFile(kArchive, before);
      },
      [&] { return Store(AllPaths()); },
      [&] {
        if (computer.ReadFile(kArchive) == before) return;
        EXPECT_EQ(List().size(), static_cast<std::size_t>(fileCount) + 1);
        ExpectSound();
      });
}

TEST_F(ArchiveKillTest, ARestoreLeavesTheOldFileOrTheNewOneAndLosesNone) {
  WriteNew();
  ASSERT_EQ(Store(AllPaths()), 0);
  KillEverywhere(
      [&] {
        computer.Remove("C:\\Data");
        EmptyBin();
        for (int i = 0; i < fileCount; ++i)
          if (HasOld(i)) computer.WriteFile(Path(i), Old(i));
      },
      [&] { return Restore(); },
      [&] {
        std::multiset<std::string> contents = Contents();
        for (int i = 0; i < fileCount; ++i) {
          std::string there = computer.ReadFile(Path(i));
          bool isOld = HasOld(i) ? there == Old(i) : !computer.Exists(Path(i));
          EXPECT_TRUE(isOld || there == New(i)) << Path(i);
          if (HasOld(i)) {
            EXPECT_TRUE(contents.contains(Old(i))) << Path(i);
          }
        }
        // The next one brings all and clears what was left.
        EXPECT_EQ(Restore(), 0) << Why();
        for (int i = 0; i < fileCount; ++i) EXPECT_EQ(computer.ReadFile(Path(i)), New(i));
        EXPECT_EQ(Leftovers("C:\\Data"), 0);
        contents = Contents();
        for (int i = 0; i < fileCount; ++i)
          if (HasOld(i)) {
            EXPECT_TRUE(contents.contains(Old(i))) << Path(i);
          }
      });
}

TEST_F(ArchiveKillTest, AnExtractionLeavesWholeFilesAlone) {
  WriteNew();
  ASSERT_EQ(Store(AllPaths()), 0);
  computer.Remove("C:\\Data");
  auto name = [](int file) { return "C:\\Out\\file " + std::to_string(file) + ".txt"; };
  KillEverywhere(
      [&] {
        computer.Remove("C:\\Out");
        for (int i = 0; i < fileCount; ++i)
          if (HasOld(i)) computer.WriteFile(name(i), Old(i));
      },
      [&] { return Extract("C:\\Out"); },
      [&] {
        for (int i = 0; i < fileCount; ++i) {
          std::string second = "C:\\Out\\file " + std::to_string(i) + " (2).txt";
          if (HasOld(i)) {
            EXPECT_EQ(computer.ReadFile(name(i)), Old(i));
          }
          const std::string& placed = HasOld(i) ? second : name(i);
          if (computer.Exists(placed)) {
            EXPECT_EQ(computer.ReadFile(placed), New(i));
          }
        }
        EXPECT_EQ(Extract("C:\\Out"), 0) << Why();
        EXPECT_EQ(Leftovers("C:\\Out"), 0);
      });
}

}  // namespace test
