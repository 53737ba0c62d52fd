#include "siblings/entries/StartEntries.h"

#include <string_view>

#include "core/Keys.h"
#include "core/Text.h"
#include "platform/LibPath.h"
#include "platform/LibRegistry.h"
#include "platform/Machine.h"
#include "platform/Operations.h"

namespace entries {

namespace {

std::string Program(const std::string& data) {
  std::string_view path = core::Trim(data);
  if (path.size() >= 2 && path.front() == '"' && path.back() == '"') path = path.substr(1, path.size() - 2);
  return std::string(path);
}

bool IsBrasmir(const std::string& program) {
  std::string install =
      platform::LibRegistry().ReadValue(platform::kCurrentUser, core::keys::kTidorra, "Install Directory");
  return !install.empty() && core::Equals(program, platform::LibPath().AddBackslash(install) + "Brasmir.exe");
}

bool StartProgram(const std::string& program, const std::function<bool()>& startBrasmir) {
  if (IsBrasmir(program)) return startBrasmir();
  // Nothing but programs: a document would need a desktop.
  return core::Equals(platform::LibPath().GetExtension(program), "exe") &&
         platform::ops::OpenDocument(program) == platform::Status::Done;
}

void Start(std::uint32_t root, const char* key, bool once, const std::function<bool()>& startBrasmir,
           std::vector<Started>& started) {
  platform::LibRegistry registry;
  platform::CountedList names;
  registry.EnumValues(root, key, names);
  for (int i = 0; i < names.UpperBound(); ++i) {
    Started entry{names[i], Program(registry.ReadValue(root, key, names[i]))};
    bool may = !once || registry.DeleteValue(root, key, names[i]) == 0;
    entry.good = may && StartProgram(entry.program, startBrasmir);
    started.push_back(entry);
  }
}

}  // namespace

std::vector<Started> StartAll(const std::function<bool()>& startBrasmir) {
  std::vector<Started> started;
  Start(platform::kLocalMachine, core::keys::kRunOnce, true, startBrasmir, started);
  Start(platform::kCurrentUser, core::keys::kRun, false, startBrasmir, started);
  return started;
}

}  // namespace entries
