#include <chrono>
#include <map>
#include <optional>
#include <set>
#include <thread>

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
  EXPECT_EQ(LibDriveScan().ScanTree("C:\\", files), 0);
  EXPECT_EQ(LibDriveScan().ScanTree("D:", files), 0);
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
    expect(LibDriveScan().ScanTree(root, files), true, false);
    expect(LibDriveScan().ScanFolders(root, folders), false, true);
    expect(LibTreeList().ListFiles(root, files), true, false);
    expect(LibTreeList().ListFolders(root, folders), false, true);
    expect(LibTreeList().ListAll(root, files, folders), true, true);
    expect(LibFileList().ListTree(root, files, folders), true, true);
    EXPECT_EQ(LibDirectory().GetSize(root), 3);
  }
  EXPECT_EQ(LibFileList().ListFolder("C:\\T\\", files), 0);
  EXPECT_EQ(Sorted(files), (Strings{"C:\\T\\.dot", "C:\\T\\one"}));
}

TEST_F(ListingsTest, FoldersComeBeforeWhatLiesInThem) {
  for (const char* folder : {"a\\b\\c", "a\\d", "e", "e\\f\\g\\h", "a\\b\\i"})
    computer.MakeFolder("C:\\T\\" + std::string(folder));
  EXPECT_EQ(LibTreeList().ListFolders("C:\\T", folders), 0);
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
  EXPECT_EQ(LibDriveScan().ScanTree("Q:\\", files), 0);
  EXPECT_EQ(LibFileList().ListTree("C:\\none", files, folders), 0);
  EXPECT_EQ(LibFileList().ListFolder("C:\\T\\file", files), 0);
  for (const char* none : {"", "T", "C:\\T\\.."})
    EXPECT_NE(LibTreeList().ListAll(none, files, folders), 0) << none;
  EXPECT_TRUE(files.Empty() && folders.Empty());
  EXPECT_EQ(LibDirectory().GetSize("C:\\none"), 0);
}

TEST_F(ListingsTest, WhatTheirCallersMustNotClearIsRefused) {
  for (std::string root : {"C:\\", "C:\\Windows", "C:\\windows\\", "C:\\Users", "C:\\Users\\User",
                           "C:\\Program Files\\", "C:\\Program Files\\Tidorra"}) {
    EXPECT_NE(LibFileList().ListTree(root, files, folders), 0) << root;
    EXPECT_NE(LibFileList().ListFolder(root, files), 0) << root;
  }
  EXPECT_TRUE(files.Empty() && folders.Empty());
  EXPECT_EQ(LibFileList().ListTree("C:\\Program Files\\Tidorra\\PlugIns", files, folders), 0);
}

TEST_F(ListingsTest, OddNamesAreListedAsTheyAre) {
  computer.WriteFile("C:\\T\\trailing. ");
  computer.WriteFile("C:\\T\\日本語");
  EXPECT_EQ(LibTreeList().ListFiles("c:\\t", files), 0);
  EXPECT_EQ(Sorted(files), (Strings{"c:\\t\\trailing. ", "c:\\t\\日本語"}));
}

TEST_F(ListingsTest, LetTheStopControlIn) {
  for (int i = 0; i < 2000; ++i) computer.WriteFile("C:\\T\\" + std::to_string(i), "");
  long before = computer.desktop.breathes;
  LibTreeList().ListFiles("C:\\T", files);
  EXPECT_GE(computer.desktop.breathes - before, 4);
  EXPECT_LT(computer.desktop.breathes - before, 100);
}

TEST_F(ListingsTest, LookingAheadTellsTheSizesOfPlainFilesAlone) {
  // Enough folders for the looking ahead to be caught up with, and one that is handed over in pieces.
  std::map<std::string, long> sizes;
  for (int i = 0; i < 6000; ++i) {
    std::string folder = i < 1000 ? "C:\\T\\" + std::to_string(i / 10) : "C:\\T\\gro\xC3\x9F";
    std::string path = folder + "\\" + std::to_string(i);
    sizes[path] = i % 3;
    computer.WriteFile(path, std::string(static_cast<std::size_t>(i % 3), 'x'));
  }
  computer.WriteFile("C:\\Outside", "content");
  computer.MakeLink("C:\\T\\folder", "C:\\");
  std::size_t plain = sizes.size();
#ifndef _WIN32
  // To Wine a link to a file is that file, and a dead one is nothing.
  for (const std::string name : {"C:\\T\\link", "C:\\T\\0\\dead"}) {
    sizes[name] = -1;
    computer.MakeLink(name, name.ends_with("link") ? "C:\\Outside" : "C:\\nowhere");
  }
#endif
  auto ahead = platform::ops::LookAhead();
  ASSERT_TRUE(ahead);
  ASSERT_EQ(platform::ops::ListFiles("C:\\T\\1", files, ahead.get()), platform::Status::Done);
  ASSERT_EQ(platform::ops::ListFiles("C:\\T", files, ahead.get()), platform::Status::Done);
  ASSERT_EQ(files.UpperBound(), 10 + static_cast<int>(sizes.size()));
  std::set<std::string> known;
  for (int i = 0; i < files.UpperBound(); ++i) {
    bool filled = ahead->IsFilled(i);
    std::optional<std::uint64_t> size = ahead->SizeOf(i);
    ASSERT_TRUE(!filled || sizes[files[i]] > 0) << files[i];
    ASSERT_TRUE(!size || static_cast<long>(*size) == sizes[files[i]]) << files[i];
    if (filled || size) known.insert(files[i]);
  }
#ifdef _WIN32
  plain -= 2000;  // what the listing shows as empty must be asked itself
#endif
  EXPECT_EQ(known.size(), plain);
  EXPECT_FALSE(ahead->SizeOf(files.UpperBound()));
}

TEST_F(ListingsTest, AFileThatWasEmptySomeSecondsAgoIsNotTakenForEmpty) {
  for (int i = 0; i < 100; ++i) computer.WriteFile("C:\\T\\" + std::to_string(i), "");
  auto ahead = platform::ops::LookAhead();
  ASSERT_TRUE(ahead);
  ASSERT_EQ(platform::ops::ListFiles("C:\\T", files, ahead.get()), platform::Status::Done);
  ahead->SizeOf(0);
  std::this_thread::sleep_for(std::chrono::milliseconds(2100));
  for (int i = 0; i < 100; ++i) computer.WriteFile("C:\\T\\" + std::to_string(i), "x");
  for (int i = 1; i < 100; ++i) EXPECT_NE(ahead->SizeOf(i).value_or(1), 0u) << i;
}

}  // namespace test
