#include "PlatformTest.h"
#include "platform/LibDirectory.h"
#include "platform/LibFile.h"

using platform::LibDirectory;

namespace test {

class LibDirectoryTest : public PlatformTest {
 protected:
  LibDirectory directory;
};

TEST_F(LibDirectoryTest, CreatesWithAllFoldersAbove) {
  EXPECT_EQ(directory.Create("C:\\New\\Täst\\deep\\"), 1);
  EXPECT_EQ(directory.Create("C:\\new\\täst"), 1);
  auto names = computer.List("C:\\");
  EXPECT_EQ(std::count(names.begin(), names.end(), "new"), 0);
  EXPECT_EQ(directory.Create("C:\\"), 1);
  computer.WriteFile("C:\\file");
  EXPECT_TRUE(directory.Exists("C:\\NEW\\TÄST\\deep") && directory.Exists("C:\\"));
  for (const char* none : {"Q:\\", "C:\\none", "C:\\file"}) EXPECT_FALSE(directory.Exists(none)) << none;
  for (const char* path : {"", "rel", "C:\\file", "C:\\file\\sub", "Q:\\x", "C:\\a\\..\\b"})
    EXPECT_EQ(directory.Create(path), 0) << path;
}

TEST_F(LibDirectoryTest, RemoveTakesOnlyEmptyFolders) {
  computer.MakeFolder("C:\\T\\empty");
  computer.WriteFile("C:\\T\\full\\a");
  computer.SetAttributes("C:\\T\\empty", 17);
  EXPECT_EQ(directory.Remove("C:\\t\\EMPTY\\"), 1);
  for (const char* path : {"C:\\T\\full", "C:\\T\\full\\a", "C:\\T\\empty", "C:\\", ""})
    EXPECT_EQ(directory.Remove(path), 0) << path;
  EXPECT_EQ(computer.List("C:\\T"), Strings{"full"});
}

TEST_F(LibDirectoryTest, FoldersThatStayKeepTheirReadOnlyBit) {
  computer.WriteFile("C:\\T\\full\\a");
  computer.SetAttributes("C:\\T\\full", 17);
  EXPECT_EQ(directory.Remove("C:\\T\\full"), 0);
  EXPECT_EQ(computer.GetAttributes("C:\\T\\full"), 17u);
  LockHolder holder(computer.Native("C:\\T\\full\\a"), LockKind::Flock);
  EXPECT_EQ(directory.RemoveTree("C:\\T"), 0);
  EXPECT_EQ(computer.GetAttributes("C:\\T\\full"), 17u);
}

TEST_F(LibDirectoryTest, RemoveTreeLeavesWhatIsInUseAndTheFoldersAboveIt) {
  computer.WriteFile("C:\\T\\a\\held.txt", "held");
  computer.WriteFile("C:\\T\\a\\b\\x.txt");
  computer.WriteFile("C:\\T\\c\\read-only.txt");
  computer.SetAttributes("C:\\T\\c\\read-only.txt", 33);
  computer.SetAttributes("C:\\T\\a", 17);
  {
    LockHolder holder(computer.Native("C:\\T\\a\\held.txt"), LockKind::Flock);
    EXPECT_EQ(directory.RemoveTree("C:\\T"), 0);
  }
  EXPECT_EQ(computer.List("C:\\T"), Strings{"a"});
  EXPECT_EQ(computer.List("C:\\T\\a"), Strings{"held.txt"});
  EXPECT_EQ(directory.RemoveTree("C:\\T\\"), 1);
  EXPECT_FALSE(computer.Exists("C:\\T"));
  EXPECT_EQ(directory.RemoveTree("C:\\T"), 0);
}

TEST_F(LibDirectoryTest, RemoveTreeRefusesWhatTheComputerNeeds) {
  const Strings kept = {"C:\\Windows\\kept", "C:\\Program Files\\Tidorra\\kept", "C:\\Users\\Other\\kept"};
  computer.WriteFiles(kept);
  computer.MakeLink("C:\\Users\\Linked", "C:\\Users\\Other");
  for (const char* path : {"", "C:\\", "C:\\Users\\Linked", "C:\\Windows", "C:\\WINDOWS\\",
                           "C:\\Program Files", "C:\\Program Files\\Tidorra", "C:\\Users", "C:\\Users\\other",
                           "C:\\Users\\User", "C:\\Users\\User\\AppData", "C:\\T\\.."})
    EXPECT_EQ(directory.RemoveTree(path), 0) << path;
  EXPECT_EQ(computer.Left(kept), kept);
  EXPECT_TRUE(computer.IsLink("C:\\Users\\Linked"));
}

TEST_F(LibDirectoryTest, SizesAreOfAllFilesBelow) {
  computer.WriteFile("C:\\T\\a", "12");
  computer.WriteFile("C:\\T\\b\\c\\d", "345");
  computer.MakeSparseFile("C:\\T\\b\\big", 6'000'000'000);
  EXPECT_EQ(directory.GetSize("C:\\T"), 6'000'000'005.0);
  EXPECT_EQ(directory.GetSize("c:\\t\\B\\"), 6'000'000'003.0);
}

}  // namespace test
