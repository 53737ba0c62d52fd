#include <cstring>
#include <unistd.h>

#include "HostPlatformTest.h"
#include "platform/LibFile.h"
#include "platform/LibShell.h"
#include "support/CannotPlay.h"

using platform::LibFile;
using platform::LibShell;

namespace test {

class HostRecycleBinTest : public PlatformTest {
 protected:
  // The user's folder of a drive's bin, with a backslash.
  static std::string Bin(char drive = 'C') {
    return std::string(1, drive) + ":\\$Recycle.Bin\\S-1-22-1-" + std::to_string(getuid()) + "\\";
  }
  static std::uint64_t Number(const std::string& bytes, std::size_t offset, std::size_t count) {
    std::uint64_t number = 0;
    for (std::size_t i = 0; i < count; ++i)
      number |= std::uint64_t{static_cast<unsigned char>(bytes.at(offset + i))} << (8 * i);
    return number;
  }
};

TEST_F(HostRecycleBinTest, AFileCanBeBroughtBackByHand) {
  std::string path = "C:\\T\\Grüße \U0001F600.Txt";
  computer.WriteFile(path, "content");
  computer.SetAttributes(path, 35);
  EXPECT_EQ(LibFile().MoveToRecycleBin(path), 0);
  EXPECT_FALSE(computer.Exists(path));

  auto names = computer.List(Bin());
  ASSERT_EQ(names.size(), 2u);
  EXPECT_EQ(names[0].substr(0, 2), "$I");
  EXPECT_EQ(names[1], "$R" + names[0].substr(2));
  EXPECT_TRUE(names[0].ends_with(".Txt"));
  EXPECT_EQ(names[0].size(), 12u);

  std::string info = computer.ReadFile(Bin() + names[0]);
  EXPECT_EQ(Number(info, 0, 8), 2u);
  EXPECT_EQ(Number(info, 8, 8), 7u);
  std::uint64_t removed = Number(info, 16, 8) / 10'000'000 - 11'644'473'600;
  EXPECT_NEAR(static_cast<double>(removed), static_cast<double>(time(nullptr)), 100);
  std::u16string expected = u"C:\\T\\Grüße \U0001F600.Txt";
  ASSERT_EQ(Number(info, 24, 4), expected.size() + 1);
  ASSERT_EQ(info.size(), 28 + 2 * (expected.size() + 1));
  for (std::size_t i = 0; i <= expected.size(); ++i)
    EXPECT_EQ(Number(info, 28 + 2 * i, 2), i < expected.size() ? expected[i] : 0u);

  EXPECT_EQ(computer.Files().Rename(Bin() + names[1], path, false), platform::Status::Done);
  EXPECT_EQ(computer.ReadFile(path), "content");
}

TEST_F(HostRecycleBinTest, TellsWhereThereIsNone) {
  platform::RecycleBin& bin = computer.Machine().Bin();
  computer.WriteFile("C:\\a");
  EXPECT_TRUE(bin.IsThereFor("C:\\a"));
  EXPECT_FALSE(bin.IsThereFor(Bin() + "$R123456"));
  computer.Remove("C:\\$Recycle.Bin");
  computer.WriteFile("C:\\$Recycle.Bin");
  EXPECT_FALSE(bin.IsThereFor("C:\\a"));
}

TEST_F(HostRecycleBinTest, EachDriveHasItsOwnBin) {
  TestComputer two(
      {.drives = {{'C', platform::DriveKind::Fixed}, {'D', platform::DriveKind::Fixed}}, .layout = false});
  two.WriteFile("C:\\a");
  two.WriteFile("D:\\b");
  two.MakeLink("D:\\link", "D:\\target");
  for (const char* path : {"C:\\a", "D:\\b", "D:\\link"})
    EXPECT_EQ(LibFile().MoveToRecycleBin(path), 0) << path;
  EXPECT_EQ(two.List(Bin('C')).size(), 2u);
  EXPECT_EQ(two.List(Bin('D')).size(), 4u);
  EXPECT_EQ(LibShell().EmptyRecycleBin(), 0);
  EXPECT_TRUE(two.List(Bin('C')).empty());
  EXPECT_TRUE(two.List(Bin('D')).empty());
}

TEST_F(HostRecycleBinTest, FailuresLeaveTheFileAndNoTrace) {
  computer.WriteFile("C:\\T\\held.txt", "held");
  computer.WriteFile("C:\\T\\first.txt");
  ASSERT_EQ(LibFile().MoveToRecycleBin("C:\\T\\first.txt"), 0);
  auto before = computer.List(Bin());
  {
    LockHolder holder(computer.Native("C:\\T\\held.txt"), LockKind::ForOpenFile);
    EXPECT_NE(LibFile().MoveToRecycleBin("C:\\T\\held.txt"), 0);
  }
  for (const std::string& none :
       {std::string("C:\\T"), std::string("C:\\T\\none"), std::string(), Bin() + before[1]})
    EXPECT_NE(LibFile().MoveToRecycleBin(none), 0) << none;
  EXPECT_EQ(computer.List(Bin()), before);
  EXPECT_EQ(computer.ReadFile("C:\\T\\held.txt"), "held");

  computer.MakeFolder("C:\\small");
  SmallDisk disk(computer.Native("C:\\small"), "64k");
  if (!disk) CANNOT_PLAY("no small disk can be mounted");
  computer.WriteFile("C:\\small\\a.txt", "here");
  computer.SetAttributes("C:\\small\\a.txt", 33);
  EXPECT_NE(LibFile().MoveToRecycleBin("C:\\small\\a.txt"), 0);
  EXPECT_EQ(computer.ReadFile("C:\\small\\a.txt"), "here");
  EXPECT_EQ(computer.GetAttributes("C:\\small\\a.txt"), 33u);
  EXPECT_EQ(computer.List(Bin()), before);
}

TEST_F(HostRecycleBinTest, ABinThatIsALinkIsNotUsed) {
  computer.WriteFile("C:\\T\\a.txt");
  computer.MakeFolder("C:\\Elsewhere");
  computer.MakeLink("C:\\$Recycle.Bin", "C:\\Elsewhere");
  EXPECT_NE(LibFile().MoveToRecycleBin("C:\\T\\a.txt"), 0);
  EXPECT_TRUE(computer.Exists("C:\\T\\a.txt"));
  EXPECT_TRUE(computer.List("C:\\Elsewhere").empty());
}

TEST_F(HostRecycleBinTest, EmptyingTakesNothingButThePairs) {
  computer.WriteFile("C:\\T\\a.txt");
  computer.WriteFile("C:\\T\\held.txt");
  ASSERT_EQ(LibFile().MoveToRecycleBin("C:\\T\\a.txt"), 0);
  computer.WriteFile("C:\\Target\\kept.txt", "kept");
  computer.MakeLink(Bin() + "$RLINKED", "C:\\Target");
  computer.WriteFile(Bin() + "$ILINKED", "");
  computer.WriteFile(Bin() + "desktop.ini");
  computer.WriteFile(Bin() + "$RFOLDER\\inside.txt");
  computer.WriteFile("C:\\$Recycle.Bin\\S-1-5-21-1-2-3-1001\\$RABCDEF.txt");
  EXPECT_EQ(LibShell().EmptyRecycleBin(), 0);
  EXPECT_EQ(computer.List(Bin()), (Strings{"$RFOLDER", "desktop.ini"}));
  EXPECT_EQ(computer.ReadFile("C:\\Target\\kept.txt"), "kept");
  EXPECT_TRUE(computer.Exists("C:\\$Recycle.Bin\\S-1-5-21-1-2-3-1001\\$RABCDEF.txt"));

  ASSERT_EQ(LibFile().MoveToRecycleBin("C:\\T\\held.txt"), 0);
  std::string held;
  for (const std::string& name : computer.List(Bin()))
    if (name.starts_with("$R") && name.ends_with(".txt")) held = name;
  {
    LockHolder holder(computer.Native(Bin() + held), LockKind::Flock);
    EXPECT_NE(LibShell().EmptyRecycleBin(), 0);
    EXPECT_TRUE(computer.Exists(Bin() + "$I" + held.substr(2)));
  }
  EXPECT_EQ(LibShell().EmptyRecycleBin(), 0);
}

}  // namespace test
