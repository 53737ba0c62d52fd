#include "core/Run.h"

#include <set>
#include <utility>
#include <vector>

#include "platform/Machine.h"

namespace core {

namespace {

constexpr char kClaim[] = "Brasmir run";

int claimsHeld = 0;
int runsOnStack = 0;
Running now = Running::Nothing;
bool begun = false;
std::vector<std::function<void()>> afterwards;
std::set<std::pair<std::string, int>> failuresInThisRun;

}  // namespace

RunClaim::RunClaim()
    : held_(claimsHeld > 0 || platform::CurrentMachine().GetProcesses().ClaimInstance(kClaim)) {
  if (held_) ++claimsHeld;
}

RunClaim::~RunClaim() {
  if (held_ && --claimsHeld == 0) platform::CurrentMachine().GetProcesses().ReleaseInstance(kClaim);
}

Run::Run(Running what, controls::Control* stopControl) {
  if (runsOnStack++ == 0) {
    failuresInThisRun.clear();
    now = what;
  }
  platform::CurrentDesktop().SetStopControl(stopControl);
}

Run::~Run() {
  // Lets in the click that is still waiting, which means this run.
  if (runsOnStack == 1) platform::CurrentDesktop().SetStopControl(nullptr);
  if (--runsOnStack > 0) return;
  now = Running::Nothing;
  begun = false;
  failuresInThisRun.clear();
  std::vector<std::function<void()>> due;
  due.swap(afterwards);
  for (auto& then : due) then();
}

void Run::Begin() {
  begun = true;
}

Running Run::Now() {
  return now;
}

bool Run::HasBegun(Running what) {
  return begun && now == what;
}

void Run::Afterwards(std::function<void()> then) {
  if (OnStack())
    afterwards.push_back(std::move(then));
  else
    then();
}

bool Run::FirstFailure(const std::string& procedure, int number) {
  return !OnStack() || failuresInThisRun.emplace(procedure, number).second;
}

}  // namespace core
