#include <map>

#include "PlatformTest.h"
#include "platform/LibDirectory.h"
#include "platform/Listings.h"

using namespace platform;

namespace test {

class ListingsTest : public PlatformTest {
 protected:
  CountedList files, folders;
};

TEST_F(ListingsTest, AppendAndKeepTheInvariant) {
  TestComputer two({.drives = {{'C', DriveKind::Fixed}, {'D', DriveKind::Fixed}}, .layout = false});
  two.WriteFile("C:\\a\\one.txt");
  two.WriteFile("C:\\two");
  two.WriteFile("D:\\three.txt");
  EXPECT_EQ(LibDriveScan().ScanTree("C:\\", "*.*", files), 0);
  EXPECT_EQ(LibDriveScan().ScanTree("D:", "*.*", files), 0);
  EXPECT_EQ(Sorted(files), (Strings{"C:\\a\\one.txt", "C:\\two", "D:\\three.txt"}));
  EXPECT_EQ(files.UpperBound(), 3);
  EXPECT_EQ(files[3], "");
}

TEST_F(ListingsTest, EveryOperationListsItsKind) {
  computer.WriteFile("C:\\T\\b\\c\\two.txt", "22");
  computer.WriteFile("C:\\T\\one", "1");
  computer.WriteFile("C:\\T\\.dot", "");
  computer.SetAttributes("C:\\T\\one", 2 + 4);
  const Strings allFiles = {"C:\\T\\.dot", "C:\\T\\b\\c\\two.txt", "C:\\T\\one"};
  const Strings allFolders = {"C:\\T\\b", "C:\\T\\b\\c"};
  auto expect = [&](long code, bool withFiles, bool withFolders) {
    EXPECT_EQ(code, 0);
    EXPECT_EQ(Sorted(files), withFiles ? allFiles : Strings());
    EXPECT_EQ(Sorted(folders), withFolders ? allFolders : Strings());
    files.Reset();
    folders.Reset();
  };
  for (std::string root : {"C:\\T", "C:\\T\\", "C:\\T"}) {
    expect(LibDriveScan().ScanTree(root, "*.*", files), true, false);
    expect(LibDriveScan().ScanFolders(root, "*.*", folders), false, true);
    expect(LibTreeList().ListFiles(root, "*.*", files), true, false);
    expect(LibTreeList().ListFolders(root, "*.*", folders), false, true);
    expect(LibTreeList().ListAll(root, "*.*", files, folders), true, true);
    expect(LibFileList().ListTree(root, files, folders), true, true);
    EXPECT_EQ(LibDirectory().GetSize(root, 0), 3);
  }
  EXPECT_EQ(LibFileList().ListFolder("C:\\T\\", files), 0);
  EXPECT_EQ(Sorted(files), (Strings{"C:\\T\\.dot", "C:\\T\\one"}));
}

TEST_F(ListingsTest, FoldersComeBeforeWhatLiesInThem) {
  for (const char* folder : {"a\\b\\c", "a\\d", "e", "e\\f\\g\\h", "a\\b\\i"})
    computer.MakeFolder("C:\\T\\" + std::string(folder));
  EXPECT_EQ(LibTreeList().ListFolders("C:\\T", "*.*", folders), 0);
  std::map<std::string, int> places;
  for (int i = 0; i < folders.UpperBound(); ++i) places[folders[i]] = i;
  EXPECT_EQ(places.size(), 9u);
  for (auto& [path, place] : places) {
    std::string parent = path.substr(0, path.rfind('\\'));
    EXPECT_LT(parent == "C:\\T" ? -1 : places.at(parent), place) << path;
  }
}

TEST_F(ListingsTest, ARootThatIsNotThereListsNothing) {
  computer.WriteFile("C:\\T\\file");
  EXPECT_EQ(LibDriveScan().ScanTree("Q:\\", "*.*", files), 0);
  EXPECT_EQ(LibFileList().ListTree("C:\\none", files, folders), 0);
  EXPECT_EQ(LibFileList().ListFolder("C:\\T\\file", files), 0);
  for (const char* none : {"", "T", "C:\\T\\.."})
    EXPECT_NE(LibTreeList().ListAll(none, "*.*", files, folders), 0) << none;
  EXPECT_TRUE(files.Empty() && folders.Empty());
  EXPECT_EQ(LibDirectory().GetSize("C:\\none", 0), 0);
}

TEST_F(ListingsTest, ListTreeRefusesWhatItsCallersMustNotClear) {
  for (std::string root : {"C:\\", "C:\\Windows", "C:\\windows\\", "C:\\Users", "C:\\Users\\User",
                           "C:\\Program Files\\", "C:\\Program Files\\Tidorra"})
    EXPECT_NE(LibFileList().ListTree(root, files, folders), 0) << root;
  EXPECT_TRUE(files.Empty() && folders.Empty());
  EXPECT_EQ(LibFileList().ListTree("C:\\Program Files\\Tidorra\\PlugIns", files, folders), 0);
}

TEST_F(ListingsTest, OddNamesAreListedAsTheyAre) {
  computer.WriteFile("C:\\T\\trailing. ");
  computer.WriteFile("C:\\T\\日本語");
  EXPECT_EQ(LibTreeList().ListFiles("c:\\t", "*.*", files), 0);
  EXPECT_EQ(Sorted(files), (Strings{"c:\\t\\trailing. ", "c:\\t\\日本語"}));
}

TEST_F(ListingsTest, LetTheStopControlIn) {
  for (int i = 0; i < 2000; ++i) computer.WriteFile("C:\\T\\" + std::to_string(i), "");
  long before = computer.desktop.breathes;
  LibTreeList().ListFiles("C:\\T", "*.*", files);
  EXPECT_GE(computer.desktop.breathes - before, 4);
  EXPECT_LT(computer.desktop.breathes - before, 100);
}

TEST_F(ListingsTest, LookingAheadTellsFilesThatAreNotEmptyAndNoOthers) {
  // Enough folders for the looking ahead to be caught up with, and one that is handed over in pieces.
  std::map<std::string, bool> filled;
  for (int i = 0; i < 6000; ++i) {
    std::string folder = i < 1000 ? "C:\\T\\" + std::to_string(i / 10) : "C:\\T\\gro\xC3\x9F";
    std::string path = folder + "\\" + std::to_string(i);
    filled[path] = i % 3 != 0;
    computer.WriteFile(path, filled[path] ? "x" : "");
  }
  computer.WriteFile("C:\\Outside", "content");
  computer.MakeLink("C:\\T\\folder", "C:\\");
#ifndef _WIN32
  // To Wine a link to a file is that file, and a dead one is nothing.
  for (const std::string name : {"C:\\T\\link", "C:\\T\\0\\dead"}) {
    filled[name] = false;
    computer.MakeLink(name, name.ends_with("link") ? "C:\\Outside" : "C:\\nowhere");
  }
#endif
  // What is known depends on who was faster; in the end each has been known once.
  std::map<std::string, bool> known;
  while (known.size() < 4000) {
    files.Reset();
    auto ahead = LibDriveScan().LookAhead();
    ASSERT_TRUE(ahead);
    ASSERT_EQ(LibDriveScan().ScanTree("C:\\T\\1", "*.*", files, ahead.get()), 0);
    ASSERT_EQ(LibDriveScan().ScanTree("C:\\T", "*.*", files, ahead.get()), 0);
    ASSERT_EQ(files.UpperBound(), 10 + static_cast<int>(filled.size()));
    for (int i = 0; i < files.UpperBound(); ++i) {
      if (!ahead->IsFilled(i)) continue;
      ASSERT_TRUE(filled[files[i]]) << files[i];
      known[files[i]] = true;
    }
  }
  EXPECT_EQ(known.size(), 4000u);
}

}  // namespace test
