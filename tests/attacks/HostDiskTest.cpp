// A disk that somebody else has prepared, in the place of the played computer's: nothing outside of it is
// written, none of its files is executed, and none of its lists is believed.
#include <filesystem>
#include <fstream>
#include <sys/stat.h>
#include <unistd.h>

#include "computer/ProgramFiles.h"
#include "plugins/m_PlugIns.h"
#include "removal/m_Log.h"
#include "settings/m_Registry.h"
#include "settings/m_RegistryLists.h"
#include "siblings/SiblingFixture.h"
#include "siblings/kelvish/Kelvish.h"

namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t kHuge = 60'000'000'000;

class DiskAttack : public test::SiblingTest {
 protected:
  DiskAttack() {
    for (const char* file : {"pictures/Zinc-blue2.bmp", "help/html/index.html", "bin/Kelvish", "bin/Chronel",
                             "plug-ins/Viewers/Old Viewer.plg"}) {
      fs::create_directories((share_ / file).parent_path());
      std::ofstream(share_ / file) << "ours";
    }
    fs::create_directory(outside_);
    std::ofstream(outside_ / "Kelvish.exe") << "theirs";
  }
  test::Strings Outside() const {
    test::Strings names;
    for (const auto& entry : fs::recursive_directory_iterator(outside_))
      names.push_back(entry.path().filename());
    return names;
  }

  const fs::path share_ = computer.Root() + "/share", outside_ = computer.Root() + "/outside";
};

TEST_F(DiskAttack, LinksLeadNoFileOfOursOut) {
  computer.Remove(Install("Skin"));
  computer.MakeLink(Install("Skin"), outside_.string());
  computer.MakeLink(Install("Kelvish.exe"), (outside_ / "Kelvish.exe").string());
  computer.Remove(Install("PlugIns"));
  computer.MakeLink(Install("PlugIns"), outside_.string());
  computer::InstallProgramFiles(share_, Install(""), true);
  EXPECT_EQ(Outside(), test::Strings{"Kelvish.exe"});
  std::ifstream theirs(outside_ / "Kelvish.exe");
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(theirs), {}), "theirs");
  EXPECT_EQ(computer.ReadFile(Install("Help\\html\\index.html")), "ours") << "the rest is there";
  EXPECT_EQ(computer.ReadFile(Install("Chronel.exe")), "ours");
}

// Of the same size and newer, as a disk that was made for it would have it.
TEST_F(DiskAttack, AForeignFileInThePlaceOfOursIsReplaced) {
  computer.WriteFile(Install("Chronel.exe"), "evil");
  computer.WriteFile(Install("PlugIns\\Viewers\\Old Viewer.plg"), "mine");
  computer::InstallProgramFiles(share_, Install(""), true);
  EXPECT_EQ(computer.ReadFile(Install("Chronel.exe")), "ours");
  EXPECT_EQ(computer.ReadFile(Install("PlugIns\\Viewers\\Old Viewer.plg")), "mine") << "the user's own stays";
}

TEST_F(DiskAttack, WithoutADriveNothingIsInstalledAnywhere) {
  fs::remove_all(computer.Native("C:"));
  const fs::path before = fs::current_path();
  fs::current_path(outside_);
  computer::InstallProgramFiles(share_, Install(""), true);
  EXPECT_EQ(Outside(), test::Strings{"Kelvish.exe"});
  fs::current_path(before);
  EXPECT_FALSE(fs::exists(computer.Native("C:")));
}

TEST_F(DiskAttack, AListOnTheDiskRemovesNothing) {
  computer.WriteFile("C:\\Users\\thesis.doc");
  const std::string lists[] = {Install("Temp\\Locked Files.txt"), Install("Temp\\Index Files.txt"),
                               Install("Temp\\Locked Files in work.txt")};
  for (const std::string& list : lists) computer.WriteFile(list, "C:\\Users\\thesis.doc\r\n");
  EXPECT_TRUE(kelvish::WorkOff());
  EXPECT_EQ(computer.ReadFile("C:\\Users\\thesis.doc"), "content");
  computer.MakeSparseFile(lists[0], kHuge);
  computer.MakeFolder("C:\\locked.tmp");
  HandLocked({"C:\\locked.tmp"});
  EXPECT_TRUE(kelvish::WorkOff());
  EXPECT_FALSE(computer.Exists(lists[0])) << "a copy that says something else is made anew";
}

TEST_F(DiskAttack, AListThatIsFullIsTold) {
  test::SessionObjects session;
  m_Registry::ReadRegistrySettings();
  computer.WriteFile("C:\\locked.tmp");
  computer.SetValue(core::keys::kKelvish, "Locked files", "100001 100000 9");
  m_Log::WriteLockedFilesToLog("C:\\locked.tmp");
  ASSERT_EQ(computer.desktop.boxes.size(), 1u);
  EXPECT_NE(computer.desktop.boxes[0].find("Too many files"), std::string::npos);
  EXPECT_EQ(LockedCopy(), "");
  EXPECT_TRUE(core::handover::IsEmpty(core::handover::kLockedFiles));
}

TEST_F(DiskAttack, OversizedPlugInsAreNotRead) {
  test::SessionObjects session;
  m_Registry::ReadRegistrySettings();
  frmMain form;
  core::SetMainForm(&form);
  computer.MakeSparseFile(Install("PlugIns\\Viewers\\Big.plg"), kHuge);
  m_PlugIns::RunPlugInFile("Viewers", "Big");
  m_Registry::AssignPlugIns(form);
  EXPECT_EQ(computer.desktop.boxes.size(), 2u);
  core::SetMainForm(nullptr);
}

// Each would be waited for or read without end.
TEST_F(DiskAttack, DrivesAreToldByAPlainSmallFileAlone) {
  const std::string marks = computer.Machine().DrivesFolder() + "/drives.ini";
  const std::string elsewhere = (outside_ / "drives.ini").string();
  std::ofstream(elsewhere) << "c: removable\n";
  for (const char* what : {"pipe", "link", "huge"}) {
    fs::remove(marks);
    if (*what == 'p') {
      EXPECT_EQ(mkfifo(marks.c_str(), 0600), 0);
    }
    if (*what == 'l') fs::create_symlink(elsewhere, marks);
    if (*what == 'h') {
      std::ofstream(marks) << "c: removable\n";
      fs::resize_file(marks, kHuge);
    }
    const auto drives = computer.Machine().GetDrives().List();
    ASSERT_EQ(drives.size(), 1u) << what;
    EXPECT_EQ(drives[0].kind, platform::DriveKind::Fixed) << what;
  }
}

}  // namespace
