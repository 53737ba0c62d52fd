// Lumaro's scan and run by its pages.
#include "Hands.h"
#include "LumaroPlay.h"
#include "Sample.h"
#include "Scenarios.h"
#include "core/Numbers.h"
#include "core/m_SharedProcedures.h"
#include "play/Driver.h"
#include "support/Hold.h"

namespace fs = std::filesystem;
using play::Player;

namespace e2e {

namespace {

// As a listing counts: a link to a folder is a folder, any other a file.
int FilesIn(const fs::path& folder) {
  int files = 0;
  for (const auto& [name, size] : Listing(folder)) {
    std::error_code leadsNowhere;
    files += size >= 0 || !fs::is_directory(folder / name, leadsNowhere);
  }
  return files;
}

bool IsEmpty(const fs::path& folder) {
  return fs::exists(folder) && Listing(folder).empty();
}

// What each place must hold after everything was cleared.
void CheckPlaces(const Sample& sample) {
  const fs::path cache = sample.Profile() / "AppData/Local/Microsoft/Windows/INetCache";
  const fs::path history = sample.Profile() / "AppData/Local/Microsoft/Windows/History";
  Check(Listing(sample.Temp()) == std::map<std::string, long>{{"read-only.tmp", 2000}},
        "the rest of Temp is gone");
  Check(!fs::exists(sample.Temp() / "link to outside") && !fs::is_symlink(sample.Temp() / "link to outside"),
        "the link out of Temp is gone");
  for (const char* folder : {"Windows/Downloaded Program Files", "Windows/Offline Web Pages",
                             "Users/User/AppData/Roaming/Microsoft/Windows/Recent"})
    Check(IsEmpty(sample.Drive() / folder), std::string("empty: ") + folder);
  Check(Listing(sample.Drive() / "Windows/Prefetch").size() == 1, "Prefetch keeps what is no .pf");
  Check(Listing(sample.Cookies()) == std::map<std::string, long>{{"index.dat", 16384}},
        "of the cookies the locked index stays");
  Check(ReadAll(sample.Install() / "Temp/Index Files.txt").ends_with("\\INetCookies\\index.dat\r\n"),
        "it stands in the list for the next start");
  for (const auto& [name, size] : Listing(history)) Check(size == 0, "emptied: " + name);
  for (const auto& [name, size] : Listing(cache))
    Check(name == "entries.txt" || (name == "Content.IE5/index.dat" && size == 0), "of the cache: " + name);
}

// Everything switched on, with links in a user's folder, in Temp and in the Firefox profile.
int Lumaro() {
  Sample sample;
  auto system = Listing(sample.Drive() / "Windows/System32");
  const fs::path outside = sample.data / "outside", own = sample.Drive() / "Loose Ends";
  const fs::path firefox = sample.Profile() / "AppData/Roaming/Mozilla/Firefox/Profiles/k3x9a1bc.default";
  WriteAll(own / "notes.txt", "notes");
  WriteAll(own / "deep/down.txt", std::string(2043, 'x'));
  WriteAll(outside / "cookies.txt", "not ours");
  for (const fs::path& folder : {own, firefox}) {
    fs::create_directory_symlink(outside, folder / "Cache link");
    fs::create_symlink(outside / "keep me.tmp", folder / "deep link");
  }
  auto kept = Listing(outside);
  test::Hold held(sample.Cookies() / "index.dat");
  sample.Run([&](Player& player) {
    frmMain& form = player.Form();
    LumaroPlay lumaro(player);
    lumaro.OpenPage();
    // Tells that what goes to the bin goes from there as well.
    player.Answer("OK");
    lumaro.Choose({{&form.chkCookiesOptionsLumaro, 1},
                   {&form.chkHistoryOptionsLumaro, 1},
                   {&form.chkClearIndexDatOptionsLumaro, 1},
                   {&form.chkFireFoxCacheOptionsLumaro, 1},
                   {&form.chkClearRecentFolderOptionsLumaro, 1},
                   {&form.chkEmptyXPPrefetchDirOptionsLumaro, 1},
                   {&form.chkEmptyRecycleBinOptionsLumaro, 1}});

    player.Click("lblMoreFoldersOptionsLumaro");
    player.AwaitPage(form.fraUserDefinedFoldersLumaro);
    TypeInto(player, "txtListFoldersUserDefinedFoldersLumaro", "loose ends",
             [&] { return form.txtListFoldersUserDefinedFoldersLumaro.Text.Get(); });
    player.Click("cmdListFoldersUserDefinedFoldersLumaro");
    controls::ListView& list = form.lvwUserDefinedFoldersLumaro;
    player.Await("the folder", [&] { return list.Count() == 1; });
    Check(list.Text(1) == "C:\\Loose Ends", "the search has found the folder");
    player.Click("cmdSelectAllUserDefinedFoldersLumaro");
    // The two files and the link to a file; the link to a folder is one.
    player.Await("the measure of all", [&] {
      return form.lblTotalFilesUserDefinedFoldersLumaro[0].Caption == "Total files: 3" &&
             form.lblTotalFoldersUserDefinedFoldersLumaro[0].Caption == "Total folders: 2" &&
             form.lblTotalSpaceUserDefinedFoldersLumaro[0].Caption == "Total space: 2 KB";
    });
    player.Click("cmdUnselectAllUserDefinedFoldersLumaro");
    player.Await("no ticks", [&] { return list.CheckedCount() == 0; });
    player.Tick(list.Name(), 1);
    player.Await("the folder's tick", [&] { return list.Checked(1); });
    if (!play::driver::ClickRow(list.Name(), 1)) Check(false, "the row can be clicked");
    player.Await("the measure of the row",
                 [&] { return form.lblTotalFilesUserDefinedFoldersLumaro[1].Caption == "Files: 3"; });
    player.Click("lblHome(8)");
    player.AwaitPage(form.fraScanComputerLumaro);

    lumaro.Scan();
    Check(core::ToNumber(form.lblTempFolderScanComputerLumaro.Caption.Get()) == FilesIn(sample.Temp()),
          "Temp is measured");
    Check(form.lblUserDefinedFoldersScanComputerLumaro.Caption == "3", "the folder is measured");
    Check(form.lblCookiesScanComputerLumaro.Caption == "5", "the cookies are measured");
    player.Answer("Yes");
    lumaro.Clean();
    Check(form.lblTempFolderScanComputerLumaro.Caption == "1",
          "Temp holds but the read-only file that is skipped: " +
              form.lblTempFolderScanComputerLumaro.Caption.Get());
    for (const controls::Label* count :
         {&form.lblTemporaryInternetFilesScanComputerLumaro, &form.lblCookiesScanComputerLumaro,
          &form.lblDownloadedProgramFilesScanComputerLumaro, &form.lblOfflineFilesScanComputerLumaro,
          &form.lblRecentFolderScanComputerLumaro, &form.lblUserDefinedFoldersScanComputerLumaro})
      Check(count->Caption == "0", count->Name() + " closes with " + count->Caption.Get());
    Check(gCleaningStatus->FilesDeleted > 500, "the files are counted");
    Check(form.lblUserInfoScanComputerLumaro.Caption == "Locked files to be cleared on next Windows boot.",
          "the page tells of the locked file: " + form.lblUserInfoScanComputerLumaro.Caption.Get());
    player.Await("the reboot link", [] { return play::driver::Find("lblRebootScanComputerLumaro"); });
    player.Close();
  });
  CheckPlaces(sample);
  Check(fs::exists(firefox / "prefs.js") && !fs::exists(firefox / "Cache") &&
            !fs::exists(firefox / "cookies.txt") && !fs::exists(firefox / "history.dat"),
        "Firefox has lost its cache, cookies and history, and nothing else");
  Check(!fs::is_symlink(firefox / "Cache link") && fs::is_symlink(firefox / "deep link"),
        "a link to a cache goes as a link");
  Check(fs::exists(own) && fs::is_empty(own), "the user's folder is empty");
  Check(sample.InBin() == 0, "the bin is empty");
  Check(Listing(outside) == kept, "what the links led to is there");
  CheckTheRestStands(sample, system);
  return Failures();
}

// With a backup, and stopped in the middle of Temp: what went is in the archive, what is left is counted.
int LumaroStop() {
  Sample sample(6000);
  auto before = Listing(sample.Temp());
  const int files = FilesIn(sample.Temp()), soon = 200;
  sample.Run([&](Player& player) {
    frmMain& form = player.Form();
    LumaroPlay lumaro(player);
    lumaro.OpenPage();
    // Erasing has so much to do on each file that the click comes through long before the last one. A machine
    // that is busy elsewhere makes no difference: frames go by the clock, and time passes on each file.
    lumaro.Choose(
        {{&form.chkTemporaryInternetFilesOptionsLumaro, 0}, {&form.chkFireFoxCacheOptionsLumaro, 1}},
        {{&form.chkEraseFilesAdvancedLumaro, 1}, {&form.chkConfirmCleaningAdvancedLumaro, 0}});
    lumaro.UseBackup();
    lumaro.Scan();
    // The count runs down with each file.
    player.When(
        [&form, files] {
          return core::ToNumber(form.lblTempFolderScanComputerLumaro.Caption.Get()) <= files - soon;
        },
        [] { play::driver::Click("cmdCleanUpScanComputerLumaro"); });
    // Links aren't in the backup; they stay, and that is told.
    player.Answer("OK");
    lumaro.Clean();
    int left = FilesIn(sample.Temp());
    Check(gAppRunning->StopProcess, "the stop was taken");
    Check(left > files / 2 && left < files - soon / 2,
          "some files are gone and most are left: " + std::to_string(left));
    Check(form.lblTempFolderScanComputerLumaro.Caption == std::to_string(left),
          "the closing count is what is left: " + form.lblTempFolderScanComputerLumaro.Caption.Get());
    Check(form.cmdCleanUpScanComputerLumaro.Caption == "Clean up", "the button starts again");
    player.Close();
  });
  Check(fs::exists(sample.Profile() / "AppData/Roaming/Mozilla/Firefox/Profiles/k3x9a1bc.default/Cache"),
        "what comes behind the stop is passed over");
  auto stored = Listing(sample.UnpackedBackup() / "C:/Users/User/AppData/Local/Temp");
  auto after = Listing(sample.Temp());
  for (const auto& [name, size] : before) {
    if (after.count(name) || size < 0) continue;
    auto found = stored.find(name);
    if (found != stored.end() && found->second == size) continue;
    Check(false, "stored before it went: " + name);
    break;
  }
  return Failures();
}

}  // namespace

std::vector<Scenario> LumaroScenarios() {
  return {{"lumaro", Lumaro}, {"lumaro-stop", LumaroStop}};
}

}  // namespace e2e
