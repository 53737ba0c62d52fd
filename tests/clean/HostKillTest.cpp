// The program killed at any step of a backup and a clean.
#include <atomic>
#include <csignal>
#include <cstdlib>
#include <map>
#include <random>

#include "backup/AbaleZip.h"
#include "backup/BackupRestorePage.h"
#include "clean/Wire.h"
#include "scan/ScanFixture.h"
#include "scan/m_Results.h"
#include "settings/FormSettings.h"
#include "settings/m_Registry.h"
#include "support/ChildProcess.h"
#include "support/WatchedFiles.h"

namespace test {
namespace {

class KillTest : public ScanTest {
 protected:
  static constexpr int kFiles = 40;

  KillTest() {
    clean::WireClean(form);
    backup::WireBackup(form);
    form.ShowPage(form.fraScanningResultsBrasmir);
    m_Results::OfferCategories(form, {forms::ResultCategory::GarbageFiles});
    gRegistry->UseBackupBrsm = "1";
    gRegistry->ConfirmCleaningBrsm = "0";
    gRegistry->MoveFilesToRecyclebinBrsm = "0";
    gRegistry->EraseFilesBrsm = "0";
    std::mt19937 random(20261122);
    for (int i = 0; i < kFiles; ++i) {
      std::string content(3000 + random() % 30000, '\0');
      for (char& c : content) c = static_cast<char>(random() % 64);
      files_[Path(i)] = std::move(content);
    }
  }

  static std::string Path(int i) { return "C:\\Data\\f" + std::to_string(i) + ".tmp"; }

  void PutFilesBack() {
    gGarbageFiles.Reset();
    for (const auto& [path, content] : files_) {
      if (!computer.Exists(path)) computer.WriteFile(path, content);
      gGarbageFiles.Add(path);
    }
  }

  // What the user does, in a process of its own that is killed before the step `last` of its work on files,
  // with settings saved at the end. How many steps it took, or the box that came.
  std::string CleanWithBackup(int last) {
    auto machine = computer.AnotherMachine();
    WatchedFiles files(*machine);
    std::atomic<int> done = 0;
    files.onStep = [&] {
      if (done++ == last) raise(SIGKILL);
    };
    gAppRunning->NewSession = true;
    form.cboSelectResultsBrasmir.SetListIndex(0);
    form.lvwFilesResultsBrasmir.CheckAll(true);
    form.cmdDeleteResultsBrasmir.Click();
    settings::SaveRegistrySettings(form);
    return computer.desktop.boxes.empty() ? std::to_string(done) : computer.desktop.boxes.front();
  }

  // The archives that a user would find, whatever else a kill has left in the folder.
  std::vector<std::string> Archives() const {
    std::vector<std::string> names;
    for (const std::string& name : computer.List(Backups()))
      if (name.starts_with("Backup Brasmir ") && name.ends_with(".zip")) names.push_back(name);
    return names;
  }
  static std::string Backups() { return TestComputer::InstallDirectory() + "Backup"; }

  // Every file is in its place as it was, or in a readable archive as it was.
  void ExpectNothingLost() {
    for (const std::string& name : Archives()) {
      backup::AbaleZip zip;
      zip.ZipFilename = Backups() + "\\" + name;
      zip.TargetFolder = "C:\\Extracted";
      zip.KeepPaths = false;
      long result = zip.Unzip();
      EXPECT_NE(result, 526) << name << ": " << zip.ErrorDescription(result);
    }
    for (const auto& [path, content] : files_) {
      std::string place =
          computer.Exists(path) ? path : "C:\\Extracted\\" + path.substr(path.rfind('\\') + 1);
      EXPECT_TRUE(computer.ReadFile(place) == content) << path << " is lost";
    }
  }

  void TidyUp() {
    for (const std::string& name : computer.List(Backups())) computer.Remove(Backups() + "\\" + name);
    if (computer.Exists("C:\\Extracted")) computer.Remove("C:\\Extracted");
  }

  std::map<std::string, std::string> files_;
};

TEST_F(KillTest, NoFileIsLostAndTheSettingsStayReadable) {
  constexpr int kPoints = 60;
  computer.MakeFolder("C:\\Data");
  PutFilesBack();
  int steps = 0;
  {
    ChildProcess whole([this] { return CleanWithBackup(-1); });
    std::string told = whole.Result();
    steps = std::atoi(told.c_str());
    ASSERT_GT(steps, kFiles) << told;
  }
  ASSERT_FALSE(computer.Exists(Path(0)));
  ExpectNothingLost();
  TidyUp();

  for (int point = 0; point < kPoints && !HasFailure(); ++point) {
    int step = point * (steps - 1) / (kPoints - 1);
    SCOPED_TRACE("killed before step " + std::to_string(step) + " of " + std::to_string(steps));
    PutFilesBack();
    {
      ChildProcess child([&] { return CleanWithBackup(step); });
      EXPECT_EQ(child.Result(), "killed by signal 9");
    }
    computer.Restart();
    c_Registry settings = *gRegistry;
    EXPECT_TRUE(m_Registry::ReadRegistrySettings());
    *gRegistry = settings;
    std::vector<std::string> names;
    EXPECT_EQ(computer.Registry().Names(platform::kCurrentUser, core::keys::kBackupFiles, names), 0);
    ExpectNothingLost();
    // The points reach from before the first file goes to behind it.
    if (point == 0 || point == kPoints - 1) {
      EXPECT_EQ(computer.Exists(Path(0)), point == 0);
    }
    TidyUp();
  }
}

}  // namespace
}  // namespace test
