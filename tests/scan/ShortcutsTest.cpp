// Broken shortcuts: where they are looked for, and what counts as broken.

#include "scan/ScanFixture.h"
#include "scan/m_FileValidationShortcuts.h"
#include "scan/m_ScanComputer.h"
#include "support/Shortcuts.h"

namespace test {
namespace {

using platform::KnownFolder;

class ShortcutsTest : public ScanTest {
 protected:
  ShortcutsTest() {
    gRegistry->IncludeInvalidShortcutsBrsm = "1";
    computer.SetValue(core::keys::kSelectedDrives, "C:\\", "False");
    computer.WriteFile("C:\\Data\\there.txt");
  }
  std::string In(KnownFolder folder, const std::string& name) {
    return computer.Machine().Folder(folder) + "\\" + name;
  }
  void Shortcut(const std::string& path, const std::string& target) {
    computer.WriteFile(path, MakeShortcut(target));
  }
};

TEST_F(ShortcutsTest, FindsThoseWhoseTargetIsMissing) {
  computer.SetValue(core::keys::kSelectedDrives, "C:\\", "True");
  Filter("there", "True");
  const std::string broken = In(KnownFolder::StartMenu, "Programs\\broken.lnk");
  const std::string odd = In(KnownFolder::Desktop, "broken.LNK2");
  const std::string readOnly = In(KnownFolder::Desktop, "read-only.lnk");
  Shortcut(broken, "C:\\Data\\gone.txt");
  Shortcut(odd, "C:\\Data\\gone.txt");
  Shortcut(readOnly, "C:\\Data\\gone.txt");
  computer.SetAttributes(readOnly, platform::kReadOnly);
  Shortcut(In(KnownFolder::StartMenu, "good.lnk"), "C:\\Data\\there.txt");
  Shortcut(In(KnownFolder::StartMenu, "kept.lnk"), "C:\\Data\\gone.txt");
  Shortcut(In(KnownFolder::StartMenu, "broken.txt"), "C:\\Data\\gone.txt");
  computer.WriteFile(In(KnownFolder::StartMenu, "empty.lnk"), "");
  Shortcut("C:\\Data\\elsewhere.lnk", "C:\\Data\\gone.txt");
  ExcludeDirectory("\\KEPT");
  gRegistry->SkipReadOnlyFilesBrsm = "1";  // has no part in this phase

  Scan();

  EXPECT_EQ(gInvalidShortcuts[0], broken);
  EXPECT_EQ(Sorted(All(gInvalidShortcuts)), Sorted({broken, odd, readOnly}));
  EXPECT_EQ(form.lblBrokenShortcutsScanComputerBrasmir.Caption, "3");
  EXPECT_TRUE(form.ImgProcessBrasmir[2].Visible);
  EXPECT_EQ(gFiles.UpperBound(), 7);  // the candidates, and no longer the drive's files
  EXPECT_EQ(All(gGarbageFiles), Strings({"C:\\Data\\there.txt"}));
}

TEST_F(ShortcutsTest, TheOptionsWidenTheSearch) {
  const std::string own = In(KnownFolder::StartMenu, "own.lnk");
  const std::string shared = In(KnownFolder::CommonDesktop, "shared.lnk");
  const std::string recent = In(KnownFolder::Recent, "recent.lnk");
  const std::string anywhere = "C:\\Data\\anywhere.lnk";
  for (const std::string& path : {own, shared, recent, anywhere}) Shortcut(path, "C:\\Data\\gone.txt");

  Scan();
  EXPECT_EQ(All(gInvalidShortcuts), Strings({own}));
  gRegistry->BrokenShortCutsIncludeAllUsersBrsm = "1";
  Scan();
  EXPECT_EQ(All(gInvalidShortcuts), Strings({own, shared, recent}));  // in the order of the folders
  gRegistry->BrokenShortCutsScanAllDriveBrsm = "1";
  Scan();
  EXPECT_EQ(Sorted(All(gInvalidShortcuts)), Sorted({own, shared, recent, anywhere}));
}

TEST_F(ShortcutsTest, SkippingWhatPointsToRemovableDrives) {
  const std::string here = In(KnownFolder::Desktop, "here.lnk"), away = In(KnownFolder::Desktop, "away.lnk"),
                    network = In(KnownFolder::Desktop, "network.lnk"),
                    none = In(KnownFolder::Desktop, "none.lnk");
  Shortcut(here, "c:\\Data\\gone.txt");
  Shortcut(away, "E:\\gone.txt");
  computer.WriteFile(network, MakeShortcut(ShortcutParts{.networkName = "\\\\server\\share"}));
  computer.WriteFile(none, "no shortcut at all");

  Scan();
  EXPECT_EQ(Sorted(All(gInvalidShortcuts)), Sorted({here, away}));
  gRegistry->SkipShortcutsPointingToRemovableDrivesBrsm = "1";
  Scan();
  EXPECT_EQ(All(gInvalidShortcuts), Strings({here}));
  EXPECT_EQ(m_FileValidation::GetShortcutTarget(away), "E:\\gone.txt");
  EXPECT_EQ(m_FileValidation::GetShortcutTarget(network), "");
  EXPECT_EQ(m_FileValidation::GetShortcutTarget(none), "");
  EXPECT_EQ(m_FileValidation::GetShortcutTarget("C:\\Data\\absent.lnk"), "");
  EXPECT_EQ(computer.desktop.boxes, Strings());
}

TEST_F(ShortcutsTest, AFailedReadOfTheExclusionsEndsThePhase) {
  Shortcut(In(KnownFolder::Desktop, "a.lnk"), "C:\\Data\\gone.txt");
  FaultyMachine faulty(computer.Machine());
  faulty.registry.refuseNames = [&](std::string_view key) {
    return key == core::keys::kExcludedFiles ? 5L : 0L;
  };
  Scan();  // without a drive the validation reads nothing
  EXPECT_EQ(
      computer.desktop.boxes,
      Strings({"critical|Registry error...|Reading registry information returned with error\r\nCheck your "
               "permission with administrator or reinstall to correct the settings\r\nScanning for broken "
               "shortcuts will be terminated"}));
  EXPECT_TRUE(gAppRunning->StopProcess);
  EXPECT_EQ(gInvalidShortcuts.UpperBound(), 0);
}

TEST_F(ShortcutsTest, AFailedListingIsToldOnceAndSkipsTheTest) {
  // A folder that can't be known has no path to list.
  class NoStartMenu : public FaultyMachine {
   public:
    using FaultyMachine::FaultyMachine;
    std::string Folder(KnownFolder folder) override {
      return folder == KnownFolder::StartMenu ? std::string() : FaultyMachine::Folder(folder);
    }
  } machine(computer.Machine());
  Shortcut(computer.Profile() + "\\Desktop\\a.lnk", "C:\\Data\\gone.txt");
  Scan();
  EXPECT_EQ(
      computer.desktop.boxes,
      Strings({"critical|Drive error...|Scanning drive returned with error\r\nValidating shortcuts will be "
               "terminated"}));
  EXPECT_FALSE(form.ImgProcessBrasmir[2].Visible);
  EXPECT_EQ(gInvalidShortcuts.UpperBound(), 0);
}

TEST_F(ShortcutsTest, StopKeepsTheShortcutsFoundSoFar) {
  for (int i = 0; i < 10; ++i)
    Shortcut(In(KnownFolder::Desktop, std::to_string(i) + ".lnk"), "C:\\Data\\gone.txt");
  computer.desktop.onDoEvents = [&](long count) {
    EXPECT_EQ(form.lblProcessInfoScanComputerBrasmir.Caption, "Process: Scanning for broken shortcuts...");
    if (count == 4) form.UserClick(form.cmdScanComputerBrasmir);
  };
  Scan();
  EXPECT_EQ(gInvalidShortcuts.UpperBound(), 4);
  EXPECT_EQ(form.lblScanComputerProcentBrasmir.Caption, "0%");
}

}  // namespace
}  // namespace test
