// Lumaro's scan and run by its pages.
#include <memory>
#include <set>

#include "Hands.h"
#include "LumaroPlay.h"
#include "Sample.h"
#include "Scenarios.h"
#include "core/Numbers.h"
#include "core/m_SharedProcedures.h"
#include "lumaro/ManageCookies.h"
#include "platform/Machine.h"
#include "view/Driver.h"

namespace fs = std::filesystem;
using program::Player;

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

// Presses OK in each box that comes.
void AnswerOk(Player& player) {
  player.When(
      [still = view::driver::Stillness()]() mutable { return still.Reached(view::driver::Find("OK")); },
      [&player] {
        view::driver::Click("OK");
        AnswerOk(player);
      });
}

// Everything switched on, with links in a user's folder, in Temp and in the Firefox profile.
int Lumaro() {
  Sample sample;
  auto system = Listing(sample.Drive() / "Windows/System32");
  const fs::path outside = sample.data / "outside", own = sample.Drive() / "Loose Ends";
  const fs::path firefox = sample.Profile() / "AppData/Roaming/Mozilla/Firefox/Profiles/k3x9a1bc.default";
  const fs::path cache = sample.Profile() / "AppData/Local/Microsoft/Windows/INetCache";
  const fs::path history = sample.Profile() / "AppData/Local/Microsoft/Windows/History";
  WriteAll(own / "notes.txt", "notes");
  WriteAll(own / "deep/down.txt", std::string(2043, 'x'));
  WriteAll(outside / "cookies.txt", "not ours");
  for (const fs::path& folder : {own, firefox}) {
    fs::create_directory_symlink(outside, folder / "Cache link");
    fs::create_symlink(outside / "keep me.tmp", folder / "deep link");
  }
  auto kept = Listing(outside);
  HeldFile held(sample.Cookies() / "index.dat");
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
    if (!view::driver::ClickRow(list.Name(), 1)) Check(false, "the row can be clicked");
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
    player.Await("the reboot link", [] { return view::driver::Find("lblRebootScanComputerLumaro"); });
    player.Close();
  });
  Check(Listing(sample.Temp()) == std::map<std::string, long>{{"read-only.tmp", 2000}},
        "the rest of Temp is gone");
  Check(!fs::exists(sample.Temp() / "link to outside") && !fs::is_symlink(sample.Temp() / "link to outside"),
        "the link out of Temp is gone");
  Check(fs::exists(own) && fs::is_empty(own), "the user's folder is empty");
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
  Check(fs::exists(firefox / "prefs.js") && !fs::exists(firefox / "Cache") &&
            !fs::exists(firefox / "cookies.txt") && !fs::exists(firefox / "history.dat"),
        "Firefox has lost its cache, cookies and history, and nothing else");
  Check(!fs::is_symlink(firefox / "Cache link") && fs::is_symlink(firefox / "deep link"),
        "a link to a cache goes as a link");
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
        [] { view::driver::Click("cmdCleanUpScanComputerLumaro"); });
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

int LumaroOff() {
  Sample sample;
  auto everything = [&] {
    auto files = Listing(sample.Drive());
    std::erase_if(files, [](const auto& file) { return file.first.starts_with("Program Files/Tidorra/"); });
    return files;
  };
  auto before = everything();
  sample.Run([&](Player& player) {
    frmMain& form = player.Form();
    LumaroPlay lumaro(player);
    lumaro.OpenPage();
    lumaro.Choose(lumaro.AllOff(), {{&form.chkConfirmCleaningAdvancedLumaro, 0}});
    lumaro.Scan();
    Check(form.lblTempFolderScanComputerLumaro.Caption == "0", "nothing is measured");
    form.lblTotalSizeScanComputerLumaro.Caption = "";
    lumaro.Clean();
    Check(form.lblTotalSizeScanComputerLumaro.Caption == "0 KB", "the closing scan has run");
    for (int row : form.ImgProcessLumaro.Indices())
      Check(!form.ImgProcessLumaro[row].Visible, "no row is marked");
    Check(gCleaningStatus->FilesDeleted == 0, "nothing is counted");
    player.Close();
  });
  Check(everything() == before, "nothing is touched");
  return Failures();
}

// A backup that can't be written: only what needs none is cleaned.
int LumaroFailedBackup() {
  Sample sample;
  const fs::path windows = sample.Drive() / "Windows", cache = sample.Profile() / "AppData/Local/Microsoft";
  // Enough for the window to be painted meanwhile.
  for (int i = 0; i < 5000; ++i) WriteAll(windows / "Prefetch" / (std::to_string(i) + ".pf"), "");
  const fs::path needBackup[] = {sample.Temp(), windows / "Downloaded Program Files",
                                 windows / "Offline Web Pages",
                                 sample.Profile() / "AppData/Roaming/Microsoft/Windows/Recent"};
  std::vector<std::map<std::string, long>> before;
  for (const fs::path& folder : needBackup) before.push_back(Listing(folder));
  auto shown = std::make_shared<std::set<std::string>>();
  sample.Run([&](Player& player) {
    frmMain& form = player.Form();
    LumaroPlay lumaro(player);
    lumaro.OpenPage();
    lumaro.Choose({{&form.chkCookiesOptionsLumaro, 1},
                   {&form.chkClearRecentFolderOptionsLumaro, 1},
                   {&form.chkEmptyXPPrefetchDirOptionsLumaro, 1}},
                  {{&form.chkDeleteFilesAdvancedLumaro, 1}, {&form.chkConfirmCleaningAdvancedLumaro, 0}});
    lumaro.UseBackup();
    lumaro.Scan();
    fs::remove_all(sample.Install() / "Backup");
    WriteAll(sample.Install() / "Backup", "in the way");
    AnswerOk(player);
    // Looked at with each frame of the run.
    player.When(
        [&form, shown] {
          if (!gAppRunning || !gAppRunning->AppRunning) return false;
          if (form.lblProcessInfoScanComputerLumaro.Caption == "Process: Cleaning computer...Please wait" &&
              form.prgScanComputerProgressLumaro.Max == 10.0)
            shown->insert(form.lblScanComputerProcentLumaro.Caption);
          return false;
        },
        [] {});
    lumaro.Clean();
    Check(core::ToNumber(form.lblTempFolderScanComputerLumaro.Caption.Get()) == FilesIn(sample.Temp()),
          "Temp is counted as it was");
    Check(form.lblCookiesScanComputerLumaro.Caption == "0", "the cookies are counted as gone");
    player.Close();
  });
  for (std::size_t i = 0; i < before.size(); ++i)
    Check(Listing(needBackup[i]) == before[i], "nothing of it is touched: " + needBackup[i].string());
  Check(Listing(sample.Cookies()).size() == 1, "the cookies are gone");
  Check(Listing(windows / "Prefetch").size() == 1, "what Prefetch held is gone");
  Check(shown->count("70%") == 1, "the cleaning of Prefetch is shown");
  for (const char* step : {"30%", "40%", "50%", "60%", "80%"})
    Check(shown->count(step) == 0, std::string("passed over: ") + step);
  return Failures();
}

// Two cookies kept, or none, with the clearing of cookies on and off.
int LumaroCookies() {
  Sample sample;
  const fs::path index = sample.Profile() / "AppData/Local/Microsoft/Windows/INetCache/entries.txt";
  const std::string entries = ReadAll(index);
  const std::set<std::string> kept = {"shop.example", "mail.example"};
  std::map<std::string, std::string> files;
  for (const auto& [name, size] : Listing(sample.Cookies())) files[name] = ReadAll(sample.Cookies() / name);
  const std::set<std::string> all = {"news.example", "shop.example", "maps.example", "video.example",
                                     "mail.example"};
  auto hostsOf = [](const std::vector<std::string>& texts) {
    std::set<std::string> hosts;
    for (const std::string& text : texts) {
      std::size_t at = text.find('@');
      if (at != text.npos) hosts.insert(text.substr(at + 1, text.find_first_of("[/", at) - at - 1));
    }
    return hosts;
  };
  sample.Run([&](Player& player) {
    frmMain& form = player.Form();
    LumaroPlay lumaro(player);
    lumaro.OpenPage();
    lumaro.Choose(lumaro.AllOff(), {{&form.chkConfirmCleaningAdvancedLumaro, 0}});
    for (int clear : {1, 0})
      for (bool keep : {false, true}) {
        const std::string which =
            std::string(clear ? "cleared, " : "left alone, ") + (keep ? "two kept: " : "none kept: ");
        WriteAll(index, entries);
        for (const auto& [name, text] : files) WriteAll(sample.Cookies() / name, text);

        player.Click("cmdOptionsLumaro");
        player.AwaitPage(form.fraOptionsLumaro);
        lumaro.Tick(form.chkTemporaryInternetFilesOptionsLumaro, 1);
        lumaro.Tick(form.chkCookiesOptionsLumaro, clear);
        player.Click("lblManageCookiesOptionsLumaro");
        view::driver::Stillness still;
        player.Await("the cookie manager", [&] { return still.Reached(view::driver::Find("lvwCookies")); });
        controls::ListView& list = lumaro::ManageCookies().Get().lvwCookies;
        Check(list.Count() == 5, which + "each cookie has its row, and the index has none");
        std::string wanted;
        for (int row = 1; row <= list.Count(); ++row) {
          std::string path(list.Text(row));
          bool stays = keep && kept.count(*hostsOf({path}).begin());
          if (stays) wanted += path + "\r\n";
          if (list.Checked(row) == !stays) continue;
          player.Tick(list.Name(), row);
          player.Await("the cookie's tick", [&] { return list.Checked(row) == !stays; });
        }
        player.Click("lblClose");
        player.Await("the end of the manager", [] { return !lumaro::ManageCookies().Loaded(); });
        Check(ReadAll(sample.Install() / "Cookies.txt") == wanted, which + "the list is written");
        player.Click("lblHome(3)");
        player.AwaitPage(form.fraScanComputerLumaro);
        lumaro.Scan();
        lumaro.Clean();

        std::vector<std::string> names, keys;
        for (const auto& [name, size] : Listing(sample.Cookies())) names.push_back(name);
        Check(hostsOf(names) == (clear == 0 ? all
                                 : keep     ? kept
                                            : std::set<std::string>{}),
              which + "the cookies themselves");
        platform::CurrentMachine().Cache().List(keys);
        auto cookies = hostsOf(keys);
        Check(cookies.size() == keys.size(), which + "every other entry of the cache is gone");
        Check(cookies == (keep ? kept : clear ? std::set<std::string>{} : all), which + "their entries");
      }
    player.Close();
  });
  Check(fs::exists(sample.Cookies() / "index.dat"), "the cookies' index is no cookie");
  return Failures();
}

}  // namespace

std::vector<Scenario> LumaroScenarios() {
  return {{"lumaro", Lumaro},
          {"lumaro-stop", LumaroStop},
          {"lumaro-off", LumaroOff},
          {"lumaro-failed-backup", LumaroFailedBackup},
          {"lumaro-cookies", LumaroCookies}};
}

}  // namespace e2e
