#include "PlatformTest.h"
#include "platform/LibDirectory.h"
#include "platform/LibFile.h"
#include "platform/LibSmall.h"

using platform::LibDirectory;
using platform::LibFile;

namespace test {

class LibFileTest : public PlatformTest {
 protected:
  LibFile file;
};

TEST_F(LibFileTest, SizeTellsFilesFromWhatIsNone) {
  computer.WriteFile("C:\\T\\zero", "");
  computer.WriteFile("C:\\T\\five", "12345");
  computer.MakeSparseFile("C:\\T\\huge", 5'000'000'000);
  for (auto [path, size] : {std::pair{"C:\\T\\zero", 0},
                            {"C:\\T\\five", 5},
                            {"C:\\T\\huge", 2147483647},
                            {"C:\\T", -1},
                            {"C:\\", -1}})
    EXPECT_EQ(file.GetSize(path), size) << path;
  for (const char* missing :
       {"C:\\T\\none", "C:\\none\\x", "C:\\T\\five\\x", "Q:\\x", "", "five", "C:\\T\\..\\T\\five"})
    EXPECT_EQ(file.GetSize(missing), 0) << missing;
  EXPECT_EQ(file.GetSize("C:\\T\\" + std::string(300, 'x')), 0);
}

TEST_F(LibFileTest, AttributeWordSurvives) {
  computer.WriteFile("C:\\T\\a.txt");
  EXPECT_EQ(file.GetAttributes("C:\\T\\a.txt"), 32);
  EXPECT_EQ(file.GetAttributes("C:\\T"), 16);
  EXPECT_EQ(file.GetAttributes("C:\\T\\none"), 0);
  for (long word : {33, 35, 39, 32}) {
    computer.SetAttributes("C:\\T\\a.txt", static_cast<std::uint32_t>(word));
    computer.Restart();
    EXPECT_EQ(file.GetAttributes("c:\\t\\A.TXT"), word);
  }
}

TEST_F(LibFileTest, AttributesWithoutArchiveAndOfFoldersSurvive) {
  computer.WriteFile("C:\\T\\.dot");
  for (long word : {1, 3, 0, 6}) {
    computer.SetAttributes("C:\\T\\.dot", static_cast<std::uint32_t>(word));
    computer.Restart();
    EXPECT_EQ(file.GetAttributes("C:\\T\\.dot"), word);
  }
  computer.SetAttributes("C:\\T", 1 + 2 + 16);
  EXPECT_EQ(file.GetAttributes("C:\\T"), 19);
}

TEST_F(LibFileTest, DeleteTellsWhetherTheFileIsGone) {
  computer.WriteFile("C:\\T\\a.txt");
  computer.MakeFolder("C:\\T\\folder");
  EXPECT_EQ(file.Delete("C:\\T\\a.txt"), 1);
  EXPECT_FALSE(computer.Exists("C:\\T\\a.txt"));
  for (const char* path : {"C:\\T\\a.txt", "C:\\T\\folder", "", "a.txt", "C:\\", "C:\\T\\",
                           "C:\\T\\folder\\..\\a.txt", "C:/T/a.txt"}) {
    EXPECT_EQ(file.Delete(path), 0) << path;
    EXPECT_EQ(file.Exists(path), -1) << path;
    EXPECT_FALSE(file.IsPresent(path)) << path;
  }
  EXPECT_FALSE(file.ClearFile("C:\\T\\a.txt"));
  EXPECT_TRUE(file.ClearFile("C:\\T\\folder") && file.ClearFile(""));
  EXPECT_TRUE(computer.Exists("C:\\T\\folder"));
}

TEST_F(LibFileTest, ReadOnlyFilesGoAndKeepTheirBitIfTheyStay) {
  computer.WriteFile("C:\\T\\a.txt");
  computer.SetAttributes("C:\\T\\a.txt", 33);
  // The primitive refuses, whoever runs it.
  EXPECT_EQ(computer.Files().RemoveFile("C:\\T\\a.txt"), platform::Status::Denied);
  {
    LockHolder holder(computer.Native("C:\\T\\a.txt"), LockKind::Flock);
    EXPECT_EQ(file.Delete("C:\\T\\a.txt"), 0);
    EXPECT_NE(file.MoveToRecycleBin("C:\\T\\a.txt"), 0);
    EXPECT_TRUE(file.ClearFile("C:\\T\\a.txt"));
    EXPECT_EQ(file.GetAttributes("C:\\T\\a.txt"), 33);
  }
  EXPECT_FALSE(file.ClearFile("C:\\T\\a.txt"));
  EXPECT_EQ(file.GetSize("C:\\T\\a.txt"), 0);
  EXPECT_EQ(file.GetAttributes("C:\\T\\a.txt"), 33);
  EXPECT_EQ(file.Delete("C:\\T\\a.txt"), 1);
  EXPECT_FALSE(computer.Exists("C:\\T\\a.txt"));
}

class LockedFileTest : public LibFileTest, public testing::WithParamInterface<LockKind> {};
INSTANTIATE_TEST_SUITE_P(Locks, LockedFileTest,
                         testing::Values(LockKind::Flock, LockKind::ForProcess, LockKind::ForOpenFile));

TEST_P(LockedFileTest, FilesInUseStayAsTheyAre) {
  computer.WriteFile("C:\\T\\a.txt", "held");
  {
    LockHolder holder(computer.Native("C:\\T\\a.txt"), GetParam());
    EXPECT_EQ(computer.Files().TestLock("C:\\T\\A.txt"), platform::Status::Locked);
    EXPECT_EQ(file.Delete("C:\\T\\a.txt"), 0);
    EXPECT_NE(file.MoveToRecycleBin("C:\\T\\a.txt"), 0);
    EXPECT_TRUE(file.ClearFile("C:\\T\\a.txt"));
    EXPECT_EQ(computer.ReadFile("C:\\T\\a.txt"), "held");
    EXPECT_EQ(computer.List("C:\\T"), Strings{"a.txt"});
  }
  EXPECT_EQ(computer.Files().TestLock("C:\\T\\a.txt"), platform::Status::Done);
  EXPECT_FALSE(file.ClearFile("C:\\T\\a.txt"));
  EXPECT_EQ(computer.ReadFile("C:\\T\\a.txt"), "");
  EXPECT_EQ(file.Delete("C:\\T\\a.txt"), 1);
}

TEST_F(LibFileTest, NamesMatchWithoutRegardToCase) {
  computer.WriteFile("C:\\Täst\\ÄÖÜ.Txt", "one");
  EXPECT_EQ(file.GetSize("c:\\TÄST\\äöü.tXT"), 3);
  EXPECT_EQ(file.Exists("C:\\täst\\ÄÖÜ.txt"), 1);
  // Names that only look alike are others.
  computer.WriteFile("C:\\Two\\strasse");
  EXPECT_EQ(file.Delete("C:\\Two\\straße"), 0);
  EXPECT_TRUE(computer.Exists("C:\\Two\\strasse"));
}

TEST_F(LibFileTest, NamesMayEndInBlanksAndDots) {
  computer.WriteFile("C:\\T\\a", "plain");
  computer.WriteFile("C:\\T\\a. ", "odd");
  EXPECT_EQ(file.GetSize("C:\\T\\a. "), 3);
  EXPECT_EQ(file.Delete("C:\\T\\a. "), 1);
  EXPECT_EQ(file.Delete("C:\\T\\a."), 0);
  EXPECT_EQ(computer.List("C:\\T"), Strings{"a"});
}

TEST_F(LibFileTest, NamesThatComeAndGoAreSeenInEveryCase) {
  computer.MakeFolder("C:\\T");
  for (int i = 0; i < 20; ++i) {
    std::string name = "File" + std::to_string(i);
    EXPECT_EQ(file.Exists("C:\\T\\FILE" + std::to_string(i)), -1);
    computer.WriteFile("C:\\T\\" + name);
    EXPECT_EQ(file.Exists("C:\\T\\FILE" + std::to_string(i)), 1);
  }
  for (int i = 0; i < 20; ++i) EXPECT_EQ(file.Delete("C:\\t\\FILE" + std::to_string(i)), 1);
  EXPECT_EQ(file.Exists("C:\\T\\FILE3"), -1);
  // A folder that is removed and made again is another one.
  computer.WriteFile("C:\\T\\a");
  EXPECT_EQ(file.Exists("C:\\T\\a"), 1);
  computer.Remove("C:\\T");
  EXPECT_EQ(file.Exists("C:\\T\\a"), -1);
  computer.WriteFile("C:\\T\\a");
  EXPECT_EQ(file.Exists("C:\\T\\a"), 1);
}

TEST_F(LibFileTest, PathsAreLongerThanTheSystemsLimit) {
  // What the systems below allow differs by far.
#ifdef _WIN32
  constexpr std::size_t kLength = 2000;
#else
  constexpr std::size_t kLength = 4000;
#endif
  std::string path = "C:";
  while (path.size() < kLength) path += "\\" + std::string(100, 'n');
  ASSERT_EQ(LibDirectory().Create(path), 1);
  path += "\\file.txt";
  platform::Status status;
  auto open = computer.Files().Open(path, platform::OpenMode::CreateNew, status);
  ASSERT_EQ(status, platform::Status::Done);
  std::byte bytes[7] = {};
  EXPECT_EQ(open->Write(0, bytes), platform::Status::Done);
  open.reset();
  EXPECT_EQ(file.GetSize(path), 7);
  EXPECT_EQ(file.GetSize("c" + path.substr(1)), 7);
  computer.SetAttributes(path, 35);
  EXPECT_EQ(file.GetAttributes(path), 35);
  EXPECT_EQ(file.Delete(path), 1);
  EXPECT_EQ(LibDirectory().RemoveTree("C:\\" + std::string(100, 'n')), 1);
}

}  // namespace test
