// What Lumaro does against what the system's own tools take for the same: clearing Temp against `rm -r`,
// measuring a folder against `du -s`, searching the drives for a folder's name against `find`.
//
//   LumaroBench [part of a case's name]
//
// Works in a fresh folder under $TMPDIR. Ours and theirs take turns, three times each, and the best of each
// counts. Exits with 1 if a case is slower than its limit, or if the window went without a pump for 100 ms.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <unistd.h>

#include "core/Keys.h"
#include "core/OpenForms.h"
#include "core/m_SharedProcedures.h"
#include "forms/frmMain.h"
#include "lumaro/CleanFilesLmro.h"
#include "lumaro/Wire.h"
#include "platform/Desktop.h"
#include "platform/Guard.h"
#include "platform/LibFolders.h"
#include "platform/host/HostMachine.h"

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

double MillisecondsSince(Clock::time_point start) {
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

// Nobody sits at it. Notes the longest time between two pumps.
class BenchDesktop : public platform::Desktop {
 public:
  void Restart() {
    last_ = Clock::now();
    longest_ = 0;
  }
  double LongestGap() {
    Pump();
    return longest_;
  }

  platform::BoxAnswer MessageBox(const platform::Box& box) override {
    std::printf("a box came up: %s: %s\n", box.title.c_str(), box.text.c_str());
    std::exit(1);
  }
  std::string InputBox(const std::string&, const std::string&, const std::string&) override { return {}; }
  std::string BrowseForFolder() override { return {}; }
  std::string BrowseForFile() override { return {}; }
  long OpenDocument(const std::string&) override { return 33; }
  long ViewContent(const std::string&) override { return 0; }
  long OpenFolder(const std::string&) override { return 0; }
  long ShowProperties(const std::string&) override { return 1; }
  void DoEvents() override { Pump(); }
  void Breathe() override { Pump(); }
  void Refresh(controls::Control&) override { Pump(); }
  void Refresh(controls::Form&) override { Pump(); }
  void SetStopControl(controls::Control*) override {}
  void Sleep(int) override {}
  void SetPointer(platform::Pointer) override {}
  void ShowPopup(controls::Form&, const controls::PopupMenu&) override {}
  platform::Size ScreenSize() override { return {1920, 1080}; }
  long SetScreenResolution(int, int) override { return 0; }
  void Show(controls::Form&) override {}
  void Hide(controls::Form&) override {}
  void Activate(controls::Form&) override {}
  void Move(controls::Form&) override {}
  void Forget(controls::Form&) override {}
  bool AddTrayIcon(controls::Form&, const std::string&, const std::string&) override { return true; }
  void Quit() override {}

 private:
  void Pump() {
    Clock::time_point now = Clock::now();
    longest_ = std::max(longest_, std::chrono::duration<double, std::milli>(now - last_).count());
    last_ = now;
  }
  Clock::time_point last_ = Clock::now();
  double longest_ = 0;
};

std::string root;
BenchDesktop desktop;
bool failed = false;

// `folders` folders at two depths with `files` files among them, each of a few bytes.
void MakeTree(const std::string& native, int files, int folders) {
  for (int i = 0, made = 0; i < folders; ++i) {
    std::string folder = native + "/group " + std::to_string(i / 50) + "/folder " + std::to_string(i);
    fs::create_directories(folder);
    for (int upTo = static_cast<int>(static_cast<long>(files) * (i + 1) / folders); made < upTo; ++made)
      std::ofstream(folder + "/some file " + std::to_string(made) + ".tmp") << "content";
  }
}

void RunTool(const std::string& command) {
  if (std::system((command + " > /dev/null").c_str()) != 0) {
    std::printf("failed: %s\n", command.c_str());
    std::exit(1);
  }
}

double Timed(const std::function<void()>& what) {
  desktop.Restart();
  Clock::time_point start = Clock::now();
  what();
  return MillisecondsSince(start);
}

// `prepare` runs before each of the two, untimed.
void Compare(const std::string& name, double limit, const std::function<void()>& prepare,
             const std::function<void()>& ours, const std::function<void()>& theirs) {
  double best = 1e9, reference = 1e9, gap = 0;
  for (int round = 0; round < 3; ++round) {
    prepare();
    reference = std::min(reference, Timed(theirs));
    prepare();
    best = std::min(best, Timed(ours));
    gap = std::max(gap, desktop.LongestGap());
  }
  bool good = best <= limit * reference && gap <= 100;
  failed |= !good;
  std::printf(
      "%-16s %8.0f ms, tool %8.0f ms, %.2fx (at most %.1fx), longest time without a pump %.0f ms  %s\n",
      name.c_str(), best, reference, best / reference, limit, gap, good ? "ok" : "TOO SLOW");
  std::fflush(stdout);
}

void MakeSession() {
  gAppRunning = std::make_unique<c_AppRunning>();
  gRegistry = std::make_unique<c_Registry>();
  gCleaningStatus = std::make_unique<c_CleaningStatus>();
  gRegistry->InstallDirectory = "C:\\Program Files\\Tidorra\\";
  platform::SetInstallFolder(gRegistry->InstallDirectory);
  gRegistry->MoveFilesToRecyclebinLmro = gRegistry->EraseFilesLmro = gRegistry->DeleteOnWindowsStartupLmro =
      "0";
  // As the options come with the program.
  gRegistry->skipReadOnlyfilesLmro = "1";
}

void ClearTemp(platform::HostMachine& machine, frmMain& form) {
  std::string temp = machine.ToNative(platform::LibFolders().Temp());
  auto prepare = [&] {
    fs::remove_all(temp);
    fs::create_directory(temp);
    MakeTree(temp, 100'000, 2'000);
    RunTool("sync");
  };
  Compare(
      "clear Temp", 1.6, prepare,
      [&] {
        m_CleanFiles::CleanTempFolderLmro(form);
        if (!fs::is_empty(temp)) std::exit((std::printf("Temp isn't empty\n"), 1));
      },
      [&] { RunTool("rm -r '" + temp + "'"); });
}

void MeasureFolder(platform::HostMachine& machine, frmMain& form) {
  std::string native = machine.ToNative("C:\\Measured");
  MakeTree(native, 200'000, 4'000);
  controls::ListView& list = form.lvwUserDefinedFoldersLumaro;
  list.SetChecked(list.AddRow("C:\\Measured", 8), true);
  list.Select(1);
  RunTool("du -s '" + native + "'");
  Compare(
      "measure folder", 2.0, [] {}, [&] { list.Click(); }, [&] { RunTool("du -s '" + native + "'"); });
  if (form.lblTotalFilesUserDefinedFoldersLumaro[0].Caption != "Total files: 200000")
    std::exit((std::printf("measured wrongly\n"), 1));
  list.Clear();
  fs::remove_all(native);
}

void SearchDrives(platform::HostMachine& machine, frmMain& form) {
  std::string native = machine.ToNative("C:\\Searched");
  MakeTree(native, 1'000'000, 20'000);
  fs::create_directories(native + "/group 7/here/JUNK");
  machine.Registry().Write(platform::kCurrentUser, core::keys::kDrives, "C:\\",
                           {platform::ValueType::String, "Fixed Drive", 0});
  form.txtListFoldersUserDefinedFoldersLumaro.Text = "junk";
  std::string find = "find '" + machine.ToNative("C:\\") + "' -type d -iname junk";
  RunTool(find);
  Compare(
      "search drives", 1.5, [&] { form.lvwUserDefinedFoldersLumaro.Clear(); },
      [&] { form.cmdListFoldersUserDefinedFoldersLumaro.Click(); }, [&] { RunTool(find); });
  if (form.lvwUserDefinedFoldersLumaro.Count() != 1) std::exit((std::printf("found wrongly\n"), 1));
  fs::remove_all(native);
}

}  // namespace

int main(int argc, char** argv) {
  std::string part = argc > 1 ? argv[1] : "";
  const char* parent = std::getenv("TMPDIR");
  root = std::string(parent && *parent ? parent : "/tmp") + "/brasmir-bench-XXXXXX";
  if (!mkdtemp(root.data())) return 2;
  std::atexit([] {
    std::error_code ignored;
    fs::remove_all(root, ignored);
  });

  platform::HostMachine machine({.dataFolder = root, .userName = "User"});
  platform::SetCurrentMachine(&machine);
  platform::SetCurrentDesktop(&desktop);
  MakeSession();
  {
    frmMain form;
    lumaro::WireLumaro(form);
    core::SetMainForm(&form);
    struct {
      const char* name;
      void (*run)(platform::HostMachine&, frmMain&);
    } cases[] = {
        {"clear Temp", ClearTemp}, {"measure folder", MeasureFolder}, {"search drives", SearchDrives}};
    for (auto& one : cases)
      if (std::string(one.name).find(part) != std::string::npos) one.run(machine, form);
    core::SetMainForm(nullptr);
  }
  platform::SetCurrentDesktop(nullptr);
  platform::SetCurrentMachine(nullptr);
  return failed ? 1 : 0;
}
