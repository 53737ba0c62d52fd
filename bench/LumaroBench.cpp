// Lumaro beside the system's own tools: clearing Temp and `rm -r`, measuring a folder and `du -s`, searching
// the drives for a folder's name and `find`. With an argument only the cases whose name holds it.
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "Pump.h"
#include "core/Keys.h"
#include "core/OpenForms.h"
#include "core/m_SharedProcedures.h"
#include "forms/frmMain.h"
#include "lumaro/CleanFilesLmro.h"
#include "lumaro/Wire.h"
#include "platform/Guard.h"

namespace {

namespace fs = std::filesystem;

bench::PumpingDesktop desktop;

void Expect(bool right, const char* what) {
  if (right) return;
  std::fprintf(stderr, "%s\n", what);
  std::exit(1);
}

// For so long the window stood still since the last restart of the desktop's clock.
void PrintGap(const char* name) {
  double gap = desktop.LongestGap();
  std::printf("%s %.2f 100.00 %s  (milliseconds between two pumps at most)\n", name, gap,
              gap <= 100 ? "ok" : "SLOW");
}

// The settings as they come with the program, but for the method.
void MakeSession() {
  gAppRunning = std::make_unique<c_AppRunning>();
  gRegistry = std::make_unique<c_Registry>();
  gCleaningStatus = std::make_unique<c_CleaningStatus>();
  gRegistry->InstallDirectory = "C:\\Program Files\\Tidorra\\";
  platform::SetInstallFolder(gRegistry->InstallDirectory);
  gRegistry->MoveFilesToRecyclebinLmro = gRegistry->EraseFilesLmro = gRegistry->DeleteOnWindowsStartupLmro =
      "0";
  gRegistry->skipReadOnlyfilesLmro = "1";
}

// In `folders` folders at two depths, as many in each.
void MakeFiles(const std::string& native, int files, int folders) {
  for (int folder = 0; folder < folders; ++folder) {
    std::string path = native + "/group" + std::to_string(folder / 50) + "/folder" + std::to_string(folder);
    fs::create_directories(path);
    for (int file = 0; file < files / folders; ++file) {
      FILE* made = std::fopen((path + "/some file " + std::to_string(file) + ".tmp").c_str(), "w");
      Expect(made && std::fputs("content", made) >= 0 && std::fclose(made) == 0, "a file can't be made");
    }
  }
}

void ClearTemp(bench::Computer& computer, frmMain& form) {
  std::string temp = computer.Native("C:\\Users\\User\\AppData\\Local\\Temp");
  auto compare = [&](const char* name, bool written) {
    bench::Compare(
        name, 1.6, [&] { bench::Run("rm -r " + bench::Quoted(temp)); },
        [&] {
          desktop.Restart();
          removal::Remover remover(settings::Module::Lumaro);
          m_CleanFiles::CleanTempFolderLmro(form, remover);
        },
        3,
        [&] {
          fs::remove_all(temp);
          MakeFiles(temp, 100'000, 2'000);
          if (written) bench::Run("sync -f " + bench::Quoted(temp));
        });
    Expect(fs::is_empty(temp), "Temp isn't empty");
    PrintGap("ClearTempGap");
  };
  // Just made, most are still in memory alone and go without the disk; those of a while ago lie on it.
  compare("ClearTemp", false);
  compare("ClearTempOnDisk", true);
}

void MeasureFolder(bench::Computer& computer, frmMain& form) {
  constexpr int kFiles = 200'000;
  std::string native = computer.Native("C:\\Measured");
  if (!fs::exists(native)) MakeFiles(native, kFiles, 4'000);
  controls::ListView& list = form.lvwUserDefinedFoldersLumaro;
  list.SetChecked(list.AddRow("C:\\Measured", 8), true);
  list.Select(1);
  bench::Compare(
      "MeasureFolder", 2.0, [&] { bench::Run("du -s " + bench::Quoted(native) + " > /dev/null"); },
      [&] {
        desktop.Restart();
        list.Click();
      });
  Expect(form.lblTotalFilesUserDefinedFoldersLumaro[0].Caption == "Total files: " + std::to_string(kFiles),
         "measured wrongly");
  list.Clear();
  PrintGap("MeasureFolderGap");
}

void SearchDrives(bench::Computer& computer, frmMain& form) {
  computer.Tree();
  computer.Machine().Registry().Write(platform::kCurrentUser, core::keys::kDrives, "C:\\",
                                      {platform::ValueType::String, "Fixed Drive", 0});
  form.txtListFoldersUserDefinedFoldersLumaro.Text = "FOLDER01234";
  controls::ListView& list = form.lvwUserDefinedFoldersLumaro;
  bench::Compare(
      "SearchDrives", 1.5,
      [&] {
        bench::Run("find " + bench::Quoted(computer.Native("C:\\")) +
                   " -type d -iname FOLDER01234 > /dev/null");
      },
      [&] {
        list.Clear();
        desktop.Restart();
        form.cmdListFoldersUserDefinedFoldersLumaro.Click();
      });
  Expect(list.Count() == 1, "found wrongly");
  PrintGap("SearchDrivesGap");
}

}  // namespace

int main(int argc, char** argv) {
  std::string part = argc > 1 ? argv[1] : "";
  bench::Computer computer;
  platform::SetCurrentDesktop(&desktop);
  MakeSession();
  frmMain form;
  lumaro::WireLumaro(form);
  core::SetMainForm(&form);
  struct {
    const char* name;
    void (*run)(bench::Computer&, frmMain&);
  } cases[] = {{"ClearTemp", ClearTemp}, {"MeasureFolder", MeasureFolder}, {"SearchDrives", SearchDrives}};
  for (auto& one : cases)
    if (std::string(one.name).find(part) != std::string::npos) one.run(computer, form);
}
