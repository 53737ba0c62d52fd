// Lists for the boot-time cleaner that anybody may have written: a file goes only if a line of the settings
// names it as it is, whatever the text on the disk says.
#include <algorithm>
#include <map>
#include <memory>

#include "core/HandOver.h"
#include "fuzz/MemoryMachine.h"
#include "fuzz/SmallRegistry.h"
#include "siblings/common/UnattendedDesktop.h"
#include "siblings/kelvish/Kelvish.h"

namespace fuzz {

namespace {

using namespace core::handover;
using platform::ValueType;

class Alone : public platform::Processes {
 public:
  bool Start(std::string_view) override { Fail("a program was started"); }
  int CloseByName(std::string_view, std::string_view) override { Fail("a program was closed"); }
  bool ClaimInstance(std::string_view) override { return true; }
  void ReleaseInstance(std::string_view) override {}
  bool InstanceRuns(std::string_view) override { return false; }
};

class KelvishMachine : public MemoryMachine {
 public:
  SmallRegistry registry;
  Alone alone;
  platform::RegistryStore& Registry() override { return registry; }
  platform::Processes& GetProcesses() override { return alone; }
};

constexpr char kInstall[] = "C:\\Program Files\\Tidorra\\";
constexpr const char* kFiles[] = {"C:\\a.tmp", "C:\\Data\\b.tmp", "C:\\Users\\User\\Documents\\letter.txt"};

}  // namespace

void Try(std::span<const std::uint8_t> bytes) {
  KelvishMachine machine;
  siblings::UnattendedDesktop desktop;
  platform::SetCurrentDesktop(&desktop);
  for (const char* path : kFiles) machine.Put(path, "x");
  const std::string text(bytes.begin(), bytes.end());
  machine.Put(std::string(kInstall) + kLockedFiles.file, text);
  machine.registry.keys["Software\\Orvane\\Tidorra"]["Install Directory"] = {ValueType::String, kInstall, 0};
  auto& list = machine.registry.keys[kLockedFiles.key];
  std::size_t begin = 0, end;
  do {
    end = text.find('\n', begin);
    list[std::to_string(list.size())] = {ValueType::String, text.substr(begin, end - begin), 0};
    begin = end + 1;
  } while (end != text.npos && list.size() < 100);

  std::vector<std::string> named;
  for (const Line& line : Lines(kLockedFiles)) {
    if (line.path.empty()) continue;
    auto again = Read(Text(line.path, line.mark));
    if (!again || again->path != line.path || again->mark != line.mark) Fail("a line that reads otherwise");
    if (line.mark && line.mark == MarkOf(machine.Look(line.path))) named.push_back(Folded(line.path));
  }
  kelvish::WorkOff();
  for (const char* path : kFiles)
    if (!machine.Nodes().contains(Folded(path)) &&
        std::find(named.begin(), named.end(), Folded(path)) == named.end())
      Fail(std::string(path) + " is gone");
  platform::SetCurrentDesktop(nullptr);
}

std::vector<std::string> Seeds() {
  return {"0 0 0 0 1 C:\\a.tmp\n0 0 0 0 2 C:\\Data\\b.tmp\n- C:\\Users\\User\\Documents\\letter.txt",
          "C:\\a.tmp\r\nC:\\Data\\b.tmp\r\n", "0 0 0 0 1 C:\\\n0 0 -1 18446744073709551616 1 C:\\a.tmp\n"};
}

}  // namespace fuzz
