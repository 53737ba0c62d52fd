// Nothing is ever done through a link.
#include "PlatformTest.h"
#include "platform/LibDirectory.h"
#include "platform/LibEraser.h"
#include "platform/LibFile.h"
#include "platform/Listings.h"
#include "platform/RuntimeError.h"
#include "platform/TextFile.h"

using namespace platform;

namespace test {

class LinksTest : public PlatformTest {
 protected:
  static constexpr OpenMode kModes[] = {OpenMode::Read, OpenMode::Modify, OpenMode::CreateNew,
                                        OpenMode::Append, OpenMode::CreateOrEmpty};
  LinksTest() {
    computer.WriteFile("C:\\Outside\\kept.txt", "kept");
    computer.WriteFile("C:\\Outside\\sub\\kept.txt", "kept");
    computer.MakeLink("C:\\T\\folder", "C:\\Outside");
    computer.MakeLink("C:\\T\\loop", "C:\\T");
  }
  void MakeFileLinks() {
    computer.MakeLink("C:\\T\\file", "C:\\Outside\\kept.txt");
    computer.MakeLink("C:\\T\\dead", "C:\\nowhere");
  }
  ~LinksTest() override {
    EXPECT_EQ(computer.ReadFile("C:\\Outside\\kept.txt"), "kept");
    EXPECT_EQ(computer.ReadFile("C:\\Outside\\sub\\kept.txt"), "kept");
    EXPECT_EQ(computer.List("C:\\Outside"), (Strings{"kept.txt", "sub"}));
  }
};

TEST_F(LinksTest, AreRemovedAsLinks) {
  MakeFileLinks();
  EXPECT_EQ(LibFile().Delete("C:\\T\\file"), 1);
  EXPECT_EQ(LibDirectory().Remove("C:\\T\\dead"), 0);
  EXPECT_EQ(LibEraser().EraseFile("C:\\T\\dead", 1, 4096), 1);
  EXPECT_EQ(LibDirectory().Remove("C:\\T\\folder"), 1);
  EXPECT_EQ(LibDirectory().RemoveTree("C:\\T\\loop"), 1);
  EXPECT_TRUE(computer.List("C:\\T").empty());
  // On the way to a known folder as well.
  std::string temp = computer.Machine().Folder(KnownFolder::Temp), local = temp.substr(0, temp.rfind('\\'));
  computer.Remove(local);
  computer.MakeLink(local, "C:\\Outside");
  EXPECT_EQ(LibDirectory().Remove(local), 1);
}

TEST_F(LinksTest, AreNotWrittenThroughNorPassedOnTheWay) {
  EXPECT_THROW(WriteTextFile("C:\\T\\folder\\kept.txt", {"x"}), RuntimeError);
  EXPECT_THROW(AppendTextLine("C:\\T\\folder\\kept.txt", "x"), RuntimeError);
  EXPECT_EQ(LibFile().GetSize("C:\\T\\folder\\kept.txt"), -1);
  for (const char* path :
       {"C:\\T\\folder\\kept.txt", "C:\\T\\loop\\folder\\kept.txt", "C:\\T\\folder\\sub\\kept.txt"}) {
    EXPECT_EQ(LibFile().Delete(path), 0);
    EXPECT_NE(LibFile().MoveToRecycleBin(path), 0);
    EXPECT_TRUE(LibFile().ClearFile(path));
    EXPECT_EQ(LibEraser().EraseFile(path, 1, 4096), 0);
  }
  EXPECT_EQ(LibDirectory().RemoveTree("C:\\T\\folder\\sub"), 0);
  EXPECT_EQ(LibDirectory().Create("C:\\T\\folder\\new\\deep"), 0);
  computer.WriteFile("C:\\T\\own.txt");
  Status refused = computer.Files().Rename("C:\\T\\own.txt", "C:\\T\\folder\\moved", true);
  EXPECT_EQ(refused, Status::Refused);
  refused = computer.Files().Rename("C:\\T\\folder\\kept.txt", "C:\\T\\moved", true);
  EXPECT_EQ(refused, Status::Refused);
  for (OpenMode mode : kModes)
    for (const char* path : {"C:\\T\\folder\\kept.txt", "C:\\T\\folder\\new.txt"}) {
      EXPECT_FALSE(computer.Files().Open(path, mode, refused));
      bool mayBeMissing = mode == OpenMode::Read || mode == OpenMode::Modify;
      EXPECT_TRUE(refused == Status::Refused || (mayBeMissing && refused == Status::Missing)) << path;
    }
}

TEST_F(LinksTest, FileLinksAreNeitherOpenedNorLookedThrough) {
  MakeFileLinks();
  EXPECT_TRUE(LibFile().ClearFile("C:\\T\\file"));
  EXPECT_THROW(WriteTextFile("C:\\T\\file", {"x"}), RuntimeError);
  EXPECT_THROW(AppendTextLine("C:\\T\\file", "x"), RuntimeError);
  EXPECT_EQ(computer.Files().SetAttributes("C:\\T\\file", 1), Status::Refused);
  CountedList files;
  EXPECT_EQ(LibTreeList().ListFiles("C:\\T", files), 0);
  EXPECT_EQ(Sorted(files), (Strings{"C:\\T\\dead", "C:\\T\\file"}));
  EXPECT_EQ(LibDirectory().GetSize("C:\\T"), 0);
  for (OpenMode mode : kModes) {
    for (const char* link : {"C:\\T\\file", "C:\\T\\folder", "C:\\T\\dead"}) {
      Status status = Status::Done;
      EXPECT_FALSE(computer.Files().Open(link, mode, status));
      EXPECT_EQ(status, mode == OpenMode::CreateNew ? Status::Exists : Status::Refused) << link;
    }
  }
  EXPECT_FALSE(computer.Exists("C:\\nowhere"));
  EXPECT_EQ(LibFile().GetSize("C:\\T\\file"), -1);
  EXPECT_TRUE(LibFile().IsPresent("C:\\T\\dead"));
  EXPECT_FALSE(LibFile().IsPresent("C:\\T\\folder"));
}

TEST_F(LinksTest, ALinkThatTakesAFoldersPlaceIsNotPassed) {
  computer.WriteFile("C:\\T\\real\\kept.txt", "real");
  EXPECT_EQ(LibFile().GetSize("C:\\T\\real\\kept.txt"), 4);
  computer.Remove("C:\\T\\real");
  computer.MakeLink("C:\\T\\real", "C:\\Outside");
  EXPECT_EQ(LibFile().Delete("C:\\T\\real\\kept.txt"), 0);
}

TEST_F(LinksTest, AreListedButNotEntered) {
  computer.WriteFile("C:\\T\\own\\a.txt", "123");
  CountedList files, folders;
  EXPECT_EQ(LibFileList().ListTree("C:\\T", files, folders), 0);
  EXPECT_EQ(Sorted(files), Strings{"C:\\T\\own\\a.txt"});
  EXPECT_EQ(Sorted(folders), (Strings{"C:\\T\\folder", "C:\\T\\loop", "C:\\T\\own"}));
  EXPECT_EQ(LibDirectory().GetSize("C:\\T"), 3);

  // As a root of the user's own choice a link lists nothing.
  CountedList none;
  EXPECT_EQ(LibTreeList().ListAll("C:\\T\\folder", none, none), 0);
  EXPECT_EQ(LibFileList().ListTree("C:\\T\\folder\\", none, none), 0);
  EXPECT_EQ(LibFileList().ListFolder("C:\\T\\folder\\sub", none), 0);
  EXPECT_TRUE(none.Empty());
  EXPECT_EQ(LibDirectory().GetSize("C:\\T\\folder"), 0);
}

TEST_F(LinksTest, ATreeGoesWithItsLinksAndWithoutTheirTargets) {
  computer.WriteFile("C:\\T\\own\\deep\\a.txt");
  computer.MakeLink("C:\\T\\own\\deep\\up", "C:\\T");
  computer.SetAttributes("C:\\T\\own\\deep\\a.txt", 33);
  computer.SetAttributes("C:\\T\\own\\deep", 17);
  EXPECT_EQ(LibDirectory().RemoveTree("C:\\T\\"), 1);
  EXPECT_FALSE(computer.Exists("C:\\T"));
}

TEST_F(LinksTest, KnownFoldersMayLieBehindLinks) {
  // The Temp folder has been moved to another place.
  computer.MakeFolder("C:\\Away\\Temp\\sub");
  computer.WriteFile("C:\\Away\\Temp\\a.tmp", "123");
  computer.MakeLink("C:\\Away\\Temp\\link", "C:\\Outside");
  std::string temp = computer.Machine().Folder(KnownFolder::Temp);
  ASSERT_FALSE(temp.empty());
  computer.Remove(temp);
  computer.MakeLink(temp, "C:\\Away\\Temp");
  ASSERT_EQ(computer.Machine().Folder(KnownFolder::Temp), temp);

  CountedList files, folders;
  EXPECT_EQ(LibFileList().ListTree(temp + "\\", files, folders), 0);
  EXPECT_EQ(Sorted(files), Strings{temp + "\\a.tmp"});
  EXPECT_EQ(Sorted(folders), (Strings{temp + "\\link", temp + "\\sub"}));
  EXPECT_EQ(LibDirectory().GetSize(temp), 3);
  EXPECT_EQ(LibFile().Delete(temp + "\\link\\kept.txt"), 0);
  EXPECT_EQ(LibFile().GetSize(temp + "\\a.tmp"), 3);
  EXPECT_EQ(LibFile().Delete(temp + "\\a.tmp"), 1);
  EXPECT_EQ(LibDirectory().RemoveTree(temp + "\\sub"), 1);
  EXPECT_EQ(computer.List("C:\\Away\\Temp"), Strings{"link"});
  // The link itself stays: it is the way to the folder.
  EXPECT_EQ(LibDirectory().RemoveTree(temp), 0);
  EXPECT_TRUE(computer.IsLink(temp));
}

TEST_F(LinksTest, AKnownFoldersWayMayLeadThroughLinks) {
  std::string temp = computer.Machine().Folder(KnownFolder::Temp), local = temp.substr(0, temp.rfind('\\'));
  computer.WriteFile("C:\\Away\\Temp\\sub\\a.tmp");
  computer.WriteFile("C:\\Away\\Other\\kept.txt");
  computer.WriteFile("C:\\Away\\beside.txt");
  computer.Remove(local);
  computer.MakeLink(local, "C:\\Away");
  CountedList files, folders;
  EXPECT_EQ(LibFileList().ListTree(temp + "\\sub", files, folders), 0);
  EXPECT_EQ(Sorted(files), Strings{temp + "\\sub\\a.tmp"});
  EXPECT_EQ(LibFile().Delete(temp + "\\sub\\a.tmp"), 1);
  EXPECT_EQ(LibDirectory().Remove(temp + "\\sub"), 1);
  EXPECT_EQ(computer.Files().Look(temp).kind, EntryKind::Folder);
  // What lies behind the same link, but in no known folder, is out of reach.
  EXPECT_EQ(LibFile().Delete(local + "\\beside.txt"), 0);
  EXPECT_EQ(LibFile().Delete(local + "\\Other\\kept.txt"), 0);
  EXPECT_EQ(LibDirectory().RemoveTree(local + "\\Other"), 0);
  EXPECT_TRUE(computer.Exists("C:\\Away\\beside.txt"));
}

}  // namespace test
