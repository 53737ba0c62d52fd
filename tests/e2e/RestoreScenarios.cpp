// What a cleaning with backup took comes back by the page of the backups.
#include "Hands.h"
#include "Sample.h"
#include "Scenarios.h"
#include "backup/BackupFileInformation.h"
#include "backup/ZipControls.h"
#include "core/m_SharedProcedures.h"
#include "forms/frmBackupFileInformation.h"

namespace fs = std::filesystem;
using play::Player;

namespace e2e {

namespace {

constexpr char kWindow[] = "List backup file.";

// Content and date of each file below a folder.
std::map<std::string, std::pair<std::string, fs::file_time_type>> Contents(const fs::path& folder) {
  std::map<std::string, std::pair<std::string, fs::file_time_type>> files;
  for (const auto& [name, size] : Listing(folder))
    if (size >= 0) files[name] = {ReadAll(folder / name), fs::last_write_time(folder / name)};
  return files;
}

int Restore() {
  const std::string kTemp = "AppData/Local/Temp/";
  Sample sample;
  WriteAll(sample.Temp() / "only here.tmp", "the one of its name");
  auto before = Contents(sample.Profile());
  fs::create_directories(sample.Drive() / "Out");
  sample.Run([&](Player& player) {
    frmMain& form = player.Form();
    DeleteDirectly(player);
    UseBackup(player);
    player.Scan();
    player.OpenResults();
    // A link isn't in the backup; it stays, and that is told.
    player.Answer("OK");
    player.CleanAll();
    Check(!fs::exists(sample.Temp() / "hidden.tmp"), "the files have gone");

    // All of it.
    player.Click("lblMainMenu(4)");
    player.AwaitPage(form.fraBackupRestore);
    player.Await("the backup's row", [&] { return form.lvwBackupsBrasmir.Count() == 1; });
    Select(player, form.lvwBackupsBrasmir, 1);
    player.Answer("Yes");
    player.Click("cmdRestoreBackupBrasmir");
    player.Await("the restored backup", [&] { return form.lblUserInfoBackupBrasmir.Caption == "Finished"; });
    int wrong = 0;
    for (const auto& [name, file] : before) {
      fs::path path = sample.Profile() / name;
      if (!fs::exists(path) || ReadAll(path) != file.first) {
        if (++wrong == 1) Check(false, "back as it was: " + name);
        continue;
      }
      auto apart = fs::last_write_time(path) - file.second;
      // An archive keeps a tenth of a microsecond.
      if (apart > std::chrono::microseconds(1) || apart < -std::chrono::microseconds(1))
        if (++wrong == 1) Check(false, "back with its date: " + name);
    }
    Check(wrong == 0, std::to_string(wrong) + " files aren't back");

    // Three of it.
    AwaitWindow(player, form.Caption);
    player.Click("cmdListBackupBrasmir");
    AwaitWindow(player, kWindow);
    frmBackupFileInformation& window = *backup::BackupFileInformation().Loaded();
    controls::ListView& rows = window.lvwZipFileInformation;
    player.Await("the entries", [&] { return rows.Count() > 100; });
    fs::path other = sample.Native(std::string(rows.Text(5)));
    fs::remove(other);
    for (int row : {1, 2, 4}) {
      fs::remove(sample.Native(std::string(rows.Text(row))));
      Tick(player, rows, row);
    }
    player.Answer("OK");
    player.Click("lblRestore");
    AwaitWindow(player, kWindow);
    for (int row : {1, 2, 4})
      Check(fs::exists(sample.Native(std::string(rows.Text(row)))), "a ticked file is back");
    Check(!fs::exists(other), "one that isn't ticked stays away");
    TypeInto(player, "txtSearchFileName", "ONLY Here", [&] { return window.txtSearchFileName.Text.Get(); });
    player.Click("lblSearch");
    player.Await("the finding", [&] { return window.lblSearchFound.Caption == "Found: 1 File(s)"; });
    Check(rows.Text(rows.SelectedIndex()).ends_with("\\only here.tmp"), "the search selects what it found");
    player.Click("lblClose");
    player.Await("the window's end", [] { return !backup::BackupFileInformation().Loaded(); });

    // Into a folder, and then away with the archive.
    AwaitWindow(player, form.Caption);
    form.lblUserInfoBackupBrasmir.Caption = "";
    Pick(player, "Select a folder", sample.Drive() / "Out");
    player.Answer("Yes");
    player.Click("cmdExtractBackupBrasmir");
    player.Await("the extracted backup", [&] { return form.lblUserInfoBackupBrasmir.Caption == "Finished"; });
    Check(ReadAll(sample.Drive() / "Out/only here.tmp") == before[kTemp + "only here.tmp"].first,
          "the folder has the files");
    Check(!fs::exists(other), "and their own places haven't");
    AwaitWindow(player, form.Caption);
    player.Answer("Yes");
    player.Click("cmdDeleteBackupBrasmir");
    player.Await("the deleted backup", [&] { return form.lvwBackupsBrasmir.Count() == 0; });
    player.Close();
  });
  Check(fs::is_empty(sample.Install() / "Backup"), "the archive has gone");
  return Failures();
}

}  // namespace

std::vector<Scenario> RestoreScenarios() {
  return {{"restore", Restore}};
}

}  // namespace e2e
