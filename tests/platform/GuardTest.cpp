#include "PlatformTest.h"
#include "platform/Guard.h"
#include "platform/Listings.h"
#include "support/WatchedFiles.h"

using platform::MayActOn;
using platform::MayClearTree;

namespace test {

class GuardTest : public PlatformTest {};

TEST_F(GuardTest, ActsOnlyOnWholeAbsolutePaths) {
  for (const char* path : {"C:\\a", "z:\\a\\b.txt", "C:\\a\\...", "C:\\a\\.hidden", "C:\\a\\b ",
                           "C:\\console.txt", "C:\\com10\\x", "C:\\lpt.txt", "C:\\$Recycle.Bin"})
    EXPECT_TRUE(MayActOn(path)) << path;
  for (const char* path :
       {"", "a", "\\a", "C:", "C:\\", "C:a", "1:\\a", "\\\\server\\share\\a", "\\\\?\\C:\\a", "C:/a",
        "C:\\a/b", "C:\\a\\", "C:\\\\a", "C:\\.", "C:\\..\\a", "C:\\a\\..\\b", "C:\\a\\."})
    EXPECT_FALSE(MayActOn(path)) << path;
  EXPECT_FALSE(MayActOn(std::string_view("C:\\a\0b", 6)));
  // Where no name is special these are names like others.
  WatchedFiles files(computer.Machine());
  for (const char* path : {"C:\\a:stream", "C:\\a\\b::$DATA", "C:\\NUL", "C:\\a\\con", "C:\\a\\Con.txt",
                           "C:\\a\\aux .x.y", "C:\\com1\\a", "C:\\LPT9.log", "C:\\com\u00B2", "C:\\conin$"})
    for (bool special : {false, true}) {
      files.specialNames = special;
      EXPECT_EQ(MayActOn(path), !special) << path;
    }
}

TEST_F(GuardTest, ClearsNoFolderThatTheComputerNeeds) {
  for (const char* path :
       {"C:\\Temp", "C:\\Windows\\Prefetch\\", "C:\\Windows\\Downloaded Program Files",
        "C:\\Users\\User\\AppData\\Local\\Temp", "C:\\Users\\User\\Documents", "C:\\Users2",
        "C:\\Program Files\\Other", "C:\\Program Files\\Tidorra\\PlugIns", "D:\\Windows", "C:\\Progress~\\x"})
    EXPECT_TRUE(MayClearTree(path)) << path;
  for (const char* path : {"C:\\",
                           "D:\\",
                           "",
                           "Temp",
                           "C:\\Windows",
                           "C:\\WINDOWS\\",
                           "c:\\windows",
                           "C:\\Program Files",
                           "C:\\Program Files (x86)",
                           "C:\\program files\\",
                           "C:\\Users",
                           "C:\\Users\\User",
                           "C:\\Users\\Somebody",
                           "C:\\users\\OTHER\\",
                           "C:\\Program Files\\Tidorra",
                           "C:\\Users\\User\\AppData",
                           "C:\\Users\\User\\AppData\\Local",
                           "C:\\Temp\\..\\Windows",
                           "C:\\PROGRA~1",
                           "C:\\progra~2",
                           "C:\\WI1F2E~1\\",
                           "C:\\USERS~1\\x",
                           "C:\\Windows.",
                           "C:\\windows . .\\",
                           "C:\\PROGRA~1.",
                           "C:\\Users \\User."})
    EXPECT_FALSE(MayClearTree(path)) << path;

  platform::SetInstallFolder("D:\\Tools\\Tidorra\\");
  EXPECT_FALSE(MayClearTree("D:\\tools"));
  EXPECT_TRUE(MayClearTree("D:\\tools\\Tidorra\\Temp"));
  EXPECT_TRUE(MayClearTree("D:\\Tool"));
}

TEST_F(GuardTest, KeepsWhatWindowsNeedsAndAsksForWhatUsersKeep) {
  computer.MakeFolder("E:\\Old\\Somebody\\Documents");
  computer.MakeFolder("C:\\Users\\Somebody\\Pictures");
  computer.WriteFile("E:\\Old\\Somebody\\NTUSER.DAT");
  computer.WriteFile("E:\\Win\\System32\\config\\SYSTEM");
  platform::SetInstallFolder("C:\\Program Files\\Tidorra");
  using enum platform::Clearing;
  struct Case {
    const char* path;
    platform::Clearing clearing;
  };
  const Case cases[] = {{"C:\\Windows\\System32", Refused},
                        {"C:\\windows\\system32\\DRIVERS", Refused},
                        {"C:\\Windows\\System32\\LogFiles", Allowed},
                        {"C:\\Windows\\SysWOW64", Refused},
                        {"C:\\Windows\\WinSxS", Refused},
                        {"C:\\Windows\\Boot", Refused},
                        {"C:\\Windows\\Fonts", Refused},
                        {"C:\\Windows\\assembly", Refused},
                        {"C:\\Windows\\Temp", Allowed},
                        {"C:\\Program Files\\Tidorra\\Backup", Refused},
                        {"C:\\Program Files\\Tidorra\\Backup\\Old", Allowed},
                        {"C:\\Users\\User\\Documents", UsersOwn},
                        {"C:\\Users\\User\\desktop", UsersOwn},
                        {"C:\\Users\\Somebody\\Pictures", UsersOwn},
                        {"C:\\Users\\User\\Documents\\Old", Allowed},
                        {"C:\\Users\\User\\AppData\\Local\\Temp", Allowed},
                        {"E:\\Old\\Somebody", Refused},
                        {"E:\\Old\\Somebody\\Documents", UsersOwn},
                        {"E:\\Win", Refused},
                        {"E:\\Documents", Allowed}};
  for (const Case& c : cases) {
    platform::ClearingAnswer answer = platform::MayClear(c.path);
    EXPECT_EQ(answer.clearing, c.clearing) << c.path;
    EXPECT_EQ(answer.reason.empty(), c.clearing == Allowed) << c.path;
  }
  EXPECT_EQ(platform::MayClear("C:\\Program Files\\Tidorra").reason, "the program itself lies there");
}

}  // namespace test
