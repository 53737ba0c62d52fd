// Opens every page and every secondary window, filled with sample data, and saves a picture of each. Run by
// tools/screenshots.
#include <cstdio>
#include <cstring>
#include <functional>
#include <string>
#include <utility>
#include <vector>
#include <wx/display.h>

#include "forms/frmBackupFileInformation.h"
#include "forms/frmCleanOnStartup.h"
#include "forms/frmDiskSpaceInformation.h"
#include "forms/frmExcludedZeroByteFilesFileFilters.h"
#include "forms/frmMain.h"
#include "forms/frmManageCookies.h"
#include "forms/frmPlugInMaker.h"
#include "forms/frmUserInformation.h"
#include "play/Driver.h"
#include "play/Input.h"
#include "view/Application.h"
#include "view/FormWindow.h"
#include "view/Native.h"
#include "view/Screen.h"
#include "view/WxDesktop.h"

namespace {

using play::driver::WaitFor;

std::string out;
constexpr char kSkin[] = "C:\\Program Files\\Tidorra\\Skin\\Zinc-blue2.bmp";
int number = 0;

void Shoot(wxTopLevelWindow& window, const std::string& name) {
  // The window manager and the toolkit need a few rounds until a new window stands still.
  wxImage last;
  for (int same = 0, rounds = 0; same < 4 && rounds < 200; ++rounds) {
    bool once = false;
    WaitFor([&] { return std::exchange(once, true); });
    view::Screen::Current()->Flush();
    view::native::Paint(window);
    wxImage now = play::input::CaptureScreen(window.GetRect().Intersect(wxDisplay().GetGeometry()));
    bool equal = last.IsOk() && now.IsOk() && last.GetSize() == now.GetSize() &&
                 std::memcmp(last.GetData(), now.GetData(), 3u * now.GetWidth() * now.GetHeight()) == 0;
    same = equal ? same + 1 : 0;
    last = now;
  }
  char prefix[8];
  std::snprintf(prefix, sizeof prefix, "%02d-", ++number);
  play::driver::Screenshot(window, out + "/" + prefix + name + ".png");
}

view::FormWindow& WindowOf(controls::Form& form) {
  return *view::Screen::Current()->WindowOf(form);
}

void Rows(controls::ListView& list, const std::vector<std::vector<std::string>>& rows, int icon) {
  for (const auto& row : rows) {
    int at = list.AddRow(row[0], icon);
    for (std::size_t i = 1; i < row.size(); ++i) list.SetSubItem(at, static_cast<int>(i), row[i]);
    if (at % 3 == 1) list.SetChecked(at, true);
  }
}

void FillMain(frmMain& form) {
  form.lblDateUsedCleaningStatus.Caption = "11/22/2026";
  form.lblTimeUsedCleaningStatus.Caption = "21:14:07";
  form.lblFilesDeletedCleaningStatus.Caption = "1432";
  form.lblSizeFreedUpCleaningStatus.Caption = "218.44 MB";
  form.lblTotalTimesUsedCleaningStatus.Caption = "17";
  form.lblTotalFilesDeletedCleaningStatus.Caption = "120934";
  form.lblTotalSizeFreedUpCleaningStatus.Caption = "30218.02 MB";
  form.cboDaySchedule.AddItem("Monday");
  form.cboDaySchedule.SetListIndex(0);
  form.txtTimeSchedule.Text = "21:00:00";
  form.cboWeekSchedule.AddItem("Every Week");
  form.cboWeekSchedule.SetListIndex(0);
  form.lblScheduleStatus.Caption = "Brasmir is configured to run automatically...";
  form.imgUser[forms::ScheduleMark].Visible = true;
  for (const char* category : {"Garbage files", "Zero byte files", "Invalid shortcuts"})
    form.cboSelectResultsBrasmir.AddItem(category);
  form.cboSelectResultsBrasmir.SetListIndex(0);
  form.lblCleaningMethodResultsBrasmir.Caption = "Cleaning method: Move files to Recycle bin";
  form.lblBackupSelectedResultsBrasmir.Caption = "Backup selected: Yes";
  form.lblUserInfoResultsBrasmir[forms::ResultsProgress].Caption = "4 Garbage files";
  Rows(form.lvwFilesResultsBrasmir,
       {{"setup.tmp", "C:\\Users\\User\\AppData\\Local\\Temp\\", "18230"},
        {"~WRL0003.tmp",
         "C:\\Users\\User\\AppData\\Roaming\\Microsoft\\Templates\\A folder with a rather long name\\"
         "and another one below it\\",
         "0"},
        {"old.bak", "D:\\Projects\\", "1048576"},
        {"Thumbs.db", "C:\\Pictures\\", "77824"}},
       2);
  Rows(form.lvwFileFiltersBrasmir,
       {{"*.tmp", "Temporary files"}, {"*.bak", "Backup files"}, {"*.old", "Old files"}}, 2);
  Rows(form.lvwDrivesBrasmir, {{"C:\\", "Fixed Drive"}, {"D:\\", "Fixed Drive"}, {"E:\\", "Removable drive"}},
       1);
  Rows(form.lvwExcludedFoldersBrasmir, {{"C:\\Windows\\", "Dangerous to remove"}}, 3);
  Rows(form.lvwBackupsBrasmir, {{"Backup Brasmir 11-22-2026 21-14.zip", "11/22/2026", "First"}}, 4);
}

void MainPages(const std::string& suffix) {
  frmMain form;
  form.skn.Picture = kSkin;
  FillMain(form);
  platform::CurrentDesktop().Show(form);
  WaitFor([&] { return WindowOf(form).IsShown(); });
  struct {
    forms::Module module;
    int entry;  // of the main menu; -1 for none
    std::vector<controls::Frame*> pages;
  } modules[] = {
      {forms::Module::Home, -1, {&form.fraWelcome}},
      {forms::Module::Brasmir,
       forms::menu::Brasmir,
       {&form.fraScanComputerBrasmir, &form.fraOptionsBrasmir, &form.fraFileFiltersBrasmir,
        &form.fraDrivesBrasmir, &form.fraCleaningBrasmir, &form.fraExcludeBrasmir, &form.fraIncludeBrasmir,
        &form.fraScanningResultsBrasmir}},
      {forms::Module::Lumaro,
       forms::menu::Lumaro,
       {&form.fraScanComputerLumaro, &form.fraOptionsLumaro, &form.fraAdvancedLumaro,
        &form.fraUserDefinedFoldersLumaro}},
      {forms::Module::PlugIns, forms::menu::PlugIns, {&form.fraPlugIns}},
      {forms::Module::Schedule, forms::menu::Schedule, {&form.fraSchedule}},
      {forms::Module::BackupRestore, forms::menu::BackupRestore, {&form.fraBackupRestore}},
  };
  for (const auto& each : modules) {
    form.EnterModule(each.module);
    for (int entry : form.lblMainMenu.Indices()) {
      form.lblMainMenu[entry].BackColor =
          entry == each.entry ? controls::Rgb(255, 255, 255) : controls::Rgb(249, 249, 249);
      form.lblMainMenu[entry].Border = entry == each.entry;
    }
    for (controls::Frame* page : each.pages) {
      form.ShowPage(*page);
      Shoot(WindowOf(form), page->Name() + suffix);
    }
  }
  // The middle of a scan.
  form.ShowPage(form.fraScanComputerBrasmir);
  form.cmdScanComputerBrasmir.Caption = "Stop scanning";
  form.pictMainMenu.Enabled = false;
  form.prgScanComputerProgressBrasmir.Visible = true;
  form.prgScanComputerProgressBrasmir.Value = 43;
  form.lblScanComputerProcentBrasmir.Visible = true;
  form.lblScanComputerProcentBrasmir.Caption = "43%";
  form.lblProcessInfoScanComputerBrasmir.Caption =
      "Status: C:\\Users\\User\\AppData\\Local\\Some program\\with a deep tree of folders\\and more of "
      "them\\cache.tmp";
  Shoot(WindowOf(form), "scan-running" + suffix);
  wxSize size = WindowOf(form).GetSize();
  WindowOf(form).SetClientSize(WindowOf(form).GetMinClientSize());
  for (controls::Frame* page :
       {&form.fraScanComputerLumaro, &form.fraAdvancedLumaro, &form.fraScanningResultsBrasmir}) {
    form.ShowPage(*page);
    Shoot(WindowOf(form), page->Name() + "-small" + suffix);
  }
  WindowOf(form).SetSize(size);
  platform::CurrentDesktop().Forget(form);
}

template <class T>
void Secondary(const char* name, const std::function<void(T&)>& fill = nullptr) {
  T form;
  form.skn.Picture = kSkin;
  platform::CurrentDesktop().Show(form);
  if (fill) fill(form);
  WaitFor([&] { return WindowOf(form).IsShown(); });
  Shoot(WindowOf(form), name);
  controls::Form& base = form;
  if (auto* maker = dynamic_cast<frmPlugInMaker*>(&base)) {
    for (controls::Frame* page : {&maker->fraFiles, &maker->fraFolders, &maker->fraRegistryKeys,
                                  &maker->fraRegistryValues, &maker->FraFinished}) {
      maker->ShowPage(*page);
      Shoot(WindowOf(form), std::string(name) + "-" + page->Name());
    }
  }
  platform::CurrentDesktop().Forget(form);
}

void Box(const char* name, platform::BoxIcon icon, platform::BoxButtons buttons, const char* title,
         const char* text) {
  play::driver::When([title] { return play::driver::FindTop(title) != nullptr; },
                     [=] {
                       Shoot(*play::driver::FindTop(title), name);
                       play::driver::Press(WXK_ESCAPE);
                     });
  platform::CurrentDesktop().MessageBox({icon, buttons, title, text});
}

bool Start() {
  MainPages("");
  Secondary<frmDiskSpaceInformation>("disk-space", [](frmDiskSpaceInformation& form) {
    form.cboDrives.AddItem("C:\\");
    form.cboDrives.SetListIndex(0);
    form.schDiskSpaceInformation.SetData(1, "488384.55");
    form.schDiskSpaceInformation.SetData(2, "301220.1");
    form.schDiskSpaceInformation.SetData(3, "187164.45");
    form.lblTotalDiskSpace.Caption = "Total Disk Space: 488384.55 MB";
    form.lblUsedDiskSpace.Caption = "Used Disk Space: 301220.1 MB";
    form.lblFreeDiskSpace.Caption = "Free Disk Space: 187164.45 MB";
    form.lblStatus.Caption = "Disk Space Capacity On Drive: C:\\";
  });
  Secondary<frmUserInformation>("user-information", [](frmUserInformation& form) {
    form.lblInfo.Caption =
        "Broken shortcuts are searched on the entire drive.\r\n\r\n"
        "A shortcut that points to a drive which isn't there at the moment looks broken, although it isn't. "
        "Tick \"Skip shortcuts pointing to removable drives\" to leave these out.";
  });
  Secondary<frmBackupFileInformation>("backup-information");
  Secondary<frmExcludedZeroByteFilesFileFilters>("excluded-zero-byte");
  Secondary<frmManageCookies>("cookies");
  Secondary<frmPlugInMaker>("plug-in-maker");
  Secondary<frmCleanOnStartup>("clean-on-startup", [](frmCleanOnStartup& form) {
    auto screen = platform::CurrentDesktop().ScreenSize();
    form.Position.Left = screen.width * controls::kTwipsPerPixel - form.Position.Width;
    form.Position.Top = screen.height * controls::kTwipsPerPixel - form.Position.Height - 400;
    form.anm.Open("C:\\Program Files\\Tidorra\\Animations\\FINDCOMP.avi");
    form.anm.Play();
    form.lblStatus.Caption = "Status: Scanning directories...";
    platform::CurrentDesktop().Move(form);
  });
  Box("box-question", platform::BoxIcon::Exclamation, platform::BoxButtons::YesNo, "Delete files...",
      "4 files will be deleted.\r\nAre you sure?");
  Box("box-error", platform::BoxIcon::Critical, platform::BoxButtons::Ok, "Tidorra (Brasmir)...Error",
      "There has been raised an error: \r\nModule: m_Registry\r\nProcedure: AssignFileFilters \r\nArguments: "
      "frmMain "
      "\r\nDescription: Type mismatch\r\nError number: 13");
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) {
    std::fprintf(stderr, "usage: %s PICTURES OUT\n", argv[0]);
    return 2;
  }
  std::string pictures = argv[1];
  out = argv[2];
  view::Surroundings around;
  around.pictures = pictures;
  around.toNative = [&](const std::string& path) {
    auto name = path.substr(path.rfind('\\') + 1);
    if (name == "Zinc-blue2.bmp") return pictures + "/" + name;
    if (name == "FINDCOMP.gif") return pictures + "/findcomp.gif";
    return std::string();
  };
  view::WxDesktop desktop(around);
  platform::SetCurrentDesktop(&desktop);
  return view::RunApplication(argc, argv, Start, [] {});
}
