#include "core/ErrorReport.h"

#include <new>
#include <set>

#include "core/Boxes.h"
#include "core/Run.h"
#include "core/Text.h"
#include "platform/RuntimeError.h"

namespace core {

namespace {

int runsOnStack = 0;
std::vector<std::function<void()>> afterwards;
std::set<std::pair<std::string, int>> shownInThisRun;

}  // namespace

Run::Run(controls::Control* stopControl) {
  if (runsOnStack++ == 0) shownInThisRun.clear();
  platform::CurrentDesktop().SetStopControl(stopControl);
}

Run::~Run() {
  if (--runsOnStack > 0) return;
  platform::CurrentDesktop().SetStopControl(nullptr);
  shownInThisRun.clear();
  std::vector<std::function<void()>> due;
  due.swap(afterwards);
  for (auto& then : due) then();
}

bool Run::OnStack() {
  return runsOnStack > 0;
}

void Run::Afterwards(std::function<void()> then) {
  if (OnStack())
    afterwards.push_back(std::move(then));
  else
    then();
}

Failure CurrentFailure() {
  try {
    throw;
  } catch (const platform::RuntimeError& error) {
    return {error.Number(), error.what()};
  } catch (const std::bad_alloc&) {
    return {7, "Out of memory"};
  } catch (const std::exception& error) {
    return {51, std::string("Internal error: ") + error.what()};
  } catch (...) {
    return {51, "Internal error"};
  }
}

void ShowErrorReport(const Procedure& procedure, const std::vector<std::string>& arguments,
                     const Failure& failure) {
  if (Run::OnStack() &&
      !shownInThisRun.emplace(std::string(procedure.module) + "." + procedure.name, failure.number).second)
    return;
  std::vector<std::string> lines = {
      "There has been raised an error: ", std::string("Module: ") + procedure.module,
      std::string("Procedure: ") + procedure.name + " "};
  lines.insert(lines.end(), arguments.begin(), arguments.end());
  lines.push_back("Description: " + failure.description);
  lines.push_back("Error number: " + std::to_string(failure.number));
  Tell(BoxIcon::Critical, procedure.title, lines);
}

}  // namespace core
