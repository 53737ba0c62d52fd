#include "siblings/entries/StartEntries.h"

#include <string_view>

#include "core/Keys.h"
#include "core/Text.h"
#include "platform/LibFile.h"
#include "platform/LibPath.h"
#include "platform/LibRegistry.h"
#include "platform/Machine.h"

namespace entries {

namespace {

std::string Program(const std::string& data) {
  std::string_view path = core::Trim(data);
  if (path.size() >= 2 && path.front() == '"' && path.back() == '"') path = path.substr(1, path.size() - 2);
  return std::string(path);
}

void Start(std::uint32_t root, const char* key, bool once, std::vector<Started>& started) {
  platform::LibRegistry registry;
  platform::CountedList names;
  registry.EnumValues(root, key, names);
  for (int i = 0; i < names.UpperBound(); ++i) {
    Started entry{names[i], Program(registry.ReadValue(root, key, names[i]))};
    bool may = !once || registry.DeleteValue(root, key, names[i]) == 0;
    // Nothing but programs: a document would need a desktop.
    bool isProgram = core::Equals(platform::LibPath().GetExtension(entry.program), "exe");
    entry.good = may && isProgram && platform::LibFile().ShellOpen(entry.program) > 32;
    started.push_back(entry);
  }
}

}  // namespace

std::vector<Started> StartAll() {
  std::vector<Started> started;
  Start(platform::kLocalMachine, core::keys::kRunOnce, true, started);
  Start(platform::kCurrentUser, core::keys::kRun, false, started);
  return started;
}

}  // namespace entries
