// Drives, known folders, the shell and shortcuts.
#include <algorithm>

#include "PlatformTest.h"
#include "platform/LibDisk.h"
#include "platform/LibFolders.h"
#include "platform/LibShell.h"
#include "platform/LibSmall.h"
#include "platform/RuntimeError.h"
#include "support/Shortcuts.h"

using namespace platform;

namespace test {

class LibSystemTest : public PlatformTest {};

TEST_F(LibSystemTest, DrivesTellTheirKindInBothForms) {
  TestComputer many({.drives = {{'C', DriveKind::Fixed},
                                {'D', DriveKind::Removable},
                                {'E', DriveKind::Network},
                                {'F', DriveKind::CdRom},
                                {'G', DriveKind::RamDisk},
                                {'H', DriveKind::Unknown}},
                     .layout = false});
  std::string drives;
  for (const auto& drive : FileSystemObject().Drives())
    drives += drive.DriveLetter + std::to_string(drive.DriveType);
  EXPECT_EQ(drives, "C2D1E3F4G5H0");
  const char* kinds[] = {"Fixed drive",  "Removable drive", "Network drive",
                         "CD-ROM drive", "RAM disk",        "Unknown drive"};
  for (int i = 0; i < 6; ++i)
    EXPECT_EQ(LibDisk().DriveType({static_cast<char>('c' + i), ':', '\\'}), kinds[i]);
  // Others use the disk meanwhile.
  double total = LibDisk().TotalSpace("C:\\");
  EXPECT_GT(total, 0);
  EXPECT_NEAR(LibDisk().UsedSpace("C:\\") + LibDisk().FreeSpace("C:\\"), total, total / 10);
  EXPECT_GT(LibDisk().ClusterSize("C:\\"), 0);
  EXPECT_NE(LibDisk().FileSystem("C:\\"), "");
  for (const char* none : {"Q:\\", "", "C:\\T"}) {
    EXPECT_EQ(LibDisk().TotalSpace(none), 0) << none;
    EXPECT_EQ(LibDisk().ClusterSize(none), 0) << none;
    EXPECT_EQ(LibDisk().FileSystem(none) + LibDisk().VolumeName(none), "") << none;
  }
  EXPECT_EQ(LibDisk().DriveType("Q:\\"), "");
}

TEST_F(LibSystemTest, KnownFoldersAreFoundOrEmpty) {
  LibFolders folders;
  EXPECT_EQ(folders.Windows(), "C:\\Windows");
  EXPECT_EQ(folders.System(), "C:\\Windows");
  Strings all = {folders.InternetCache(),  folders.Cookies(),     folders.History(),
                 folders.Recent(),         folders.AppData(),     folders.Temp(),
                 folders.UserFolderA(),    folders.UserFolderB(), folders.AllUsersFolderA(),
                 folders.AllUsersFolderB()};
  for (const std::string& folder : all) EXPECT_TRUE(computer.Exists(folder)) << folder;
  std::sort(all.begin(), all.end());
  EXPECT_EQ(std::unique(all.begin(), all.end()), all.end());
  computer.Remove(folders.Recent());
  EXPECT_EQ(folders.Recent(), "");
}

TEST_F(LibSystemTest, TheShellOpensFoldersThatAreThere) {
  EXPECT_EQ(LibShell().OpenFolder("C:\\Windows\\"), 0);
  EXPECT_NE(LibShell().OpenFolder(""), 0);
  EXPECT_NE(LibShell().OpenFolder("C:\\none"), 0);
  EXPECT_EQ(computer.desktop.opened, Strings{"folder C:\\Windows\\"});
  EXPECT_EQ(LibShell().RebootNT(), 0);
  EXPECT_EQ(LibShell().RebootWin9x(), 0);
}

TEST_F(LibSystemTest, OnlyAMissingTargetMakesAShortcutBroken) {
  computer.WriteFile("C:\\Games\\Play.exe");
  computer.MakeLink("C:\\Old Games", "C:\\Games");
  auto valid = [this](const std::string& target) {
    computer.WriteFile("C:\\T\\a.lnk", MakeShortcut(target));
    return LibShortcut().IsTargetValid("C:\\T\\a.lnk");
  };
  for (const char* good :
       {"C:\\Games\\Play.exe", "c:\\GAMES\\play.EXE", "C:\\Games", "C:\\Games\\", "C:\\", "C:/Games",
        "C:\\Old Games\\Play.exe", "C:\\Old Games\\None.exe", "C:\\Games\\..\\None.exe",
        "\\\\server\\share\\None.exe", "%windir%\\none.exe", "none.exe"})
    EXPECT_NE(valid(good), 0) << good;
  for (const char* broken :
       {"C:\\Games\\None.exe", "C:\\None\\", "Q:\\", "Q:\\None.exe", "C:\\Games\\Play.exe\\x"})
    EXPECT_EQ(valid(broken), 0) << broken;
  computer.WriteFile("C:\\T\\a.lnk", "no shortcut at all");
  EXPECT_NE(LibShortcut().IsTargetValid("C:\\T\\a.lnk"), 0);
  EXPECT_EQ(LibShortcut().GetPath("C:\\T\\a.lnk"), "");
  EXPECT_NE(LibShortcut().IsTargetValid("C:\\T\\none.lnk"), 0);
  EXPECT_THROW(LibShortcut().GetPath("C:\\T\\none.lnk"), RuntimeError);
}

}  // namespace test
