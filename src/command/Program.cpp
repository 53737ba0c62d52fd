#include "command/Program.h"

#include <algorithm>
#include <exception>
#include <sstream>
#include <thread>

#include "command/CommandLine.h"
#include "core/m_SharedProcedures.h"
#include "platform/LibPath.h"
#include "platform/Operations.h"
#include "platform/ScopeGuard.h"
#include "settings/Seed.h"
#include "settings/m_Registry.h"

namespace command {

namespace {

// The settings, made where there are none yet, in the cache. A sentence where that can't be.
std::string ReadSettings(const computer::Computer& computer, const std::string& firstTimeSettings) {
  const std::string root = platform::LibPath().GetDriveRoot(computer.installDirectory);
  if (!platform::ops::IsFolder(root)) return "there is no drive " + root.substr(0, 1) + " on this computer";
  const platform::StoreState state = platform::CurrentMachine().Registry().State();
  if (!platform::IsReadable(state.health)) return state.place + ": " + state.fault + " " + state.advice;
  const bool fresh = !settings::HasSettings();
  if (fresh && !settings::Seed(firstTimeSettings, computer.installDirectory))
    return "the settings of a first start can't be written";
  if (!m_Registry::ReadRegistrySettings() || gRegistry->InstallDirectory.empty())
    return "the settings can't be read";
  if (computer.installFiles) computer.installFiles(gRegistry->InstallDirectory, fresh);
  return {};
}

int Carry(const Chosen& chosen, const Wishes& wishes, Console& console, const computer::Options& options) {
  Progress progress(console, wishes.form != Form::Quiet);
  Output output(console, wishes.form, progress);
  CommandDesktop desktop(console, output, progress, wishes.yes);
  computer::Computer computer = computer::MakeComputer(options);
  platform::SetCurrentMachine(computer.machine.get());
  platform::SetCurrentDesktop(&desktop);
  platform::ScopeGuard end([] {
    gRegistry.reset();
    platform::SetCurrentDesktop(nullptr);
    platform::SetCurrentMachine(nullptr);
  });
  OverlaidMachine machine(*computer.machine);
  computer::FollowMovedFolder(computer);
  gRegistry = std::make_unique<c_Registry>();
  std::string firstTimeSettings = computer::FirstTimeSettings(options.shareFolder);
  Context context{console, wishes, output, progress, desktop, machine, firstTimeSettings};
  try {
    std::string problem = ReadSettings(computer, firstTimeSettings);
    return problem.empty() ? chosen.command(context) : NothingDone(context, problem);
  } catch (const std::exception& error) {
    return NothingDone(context, error.what());
  }
}

}  // namespace

bool MayRun(Context& context, RunRight& right) {
  // As long as a program that has closed its output takes to end.
  for (int attempt = 0; attempt < 20; ++attempt) {
    if (attempt > 0) std::this_thread::sleep_for(std::chrono::milliseconds(50));
    right.emplace();
    if (right->Held()) return true;
  }
  NothingDone(context, "another run is on; wait for its end");
  return false;
}

int UsedWrongly(Context& context, const std::string& sentence) {
  context.output.Error("tidorra: " + sentence);
  return kUsedWrongly;
}

int NothingDone(Context& context, const std::string& sentence) {
  context.output.Error("tidorra: " + sentence);
  return kNothingDone;
}

std::string Counted(double count, const std::string& one, const std::string& many) {
  return std::to_string(Whole(count)) + " " + (count == 1 ? one : many);
}

std::string Bytes(double bytes) {
  return Counted(bytes, "byte", "bytes");
}

int Run(const std::vector<std::string>& words, Console& console, const computer::Options& options) {
  Wishes wishes;
  Chosen chosen;
  CLI::App app("", "tidorra");
  Describe(app, wishes, chosen);
  try {
    // It takes them from the end.
    std::vector<std::string> reversed(words.rbegin(), words.rend());
    app.parse(reversed);
  } catch (const CLI::ParseError& error) {
    // Help that is asked for is an answer, everything else a complaint.
    std::ostringstream out, err;
    const bool isHelp = app.exit(error, out, err) == 0;
    console.out << out.str() << std::flush;
    console.err << err.str() << std::flush;
    return isHelp ? kAllDone : kUsedWrongly;
  }
  if (chosen.text) {
    const std::string text = chosen.text();
    if (text.empty()) console.err << "tidorra: there is no such command" << std::endl;
    console.out << text << std::flush;
    return text.empty() ? kUsedWrongly : kAllDone;
  }
  const int code = Carry(chosen, wishes, console, options);
  console.out << std::flush;
  // A reader that has gone, or a full disk.
  if (!console.out) {
    console.err << "tidorra: the output can't be written" << std::endl;
    return code == kAllDone ? kSomethingStayed : code;
  }
  return code;
}

}  // namespace command
