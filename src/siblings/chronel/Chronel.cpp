#include "siblings/chronel/Chronel.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/Keys.h"
#include "core/Numbers.h"
#include "core/Run.h"
#include "core/m_SharedProcedures.h"
#include "platform/Claim.h"
#include "platform/LibRegistry.h"
#include "platform/RuntimeError.h"
#include "platform/TextFile.h"
#include "schedule/Calendar.h"
#include "schedule/TimeOfDay.h"
#include "settings/m_Registry.h"
#include "siblings/chronel/DueTime.h"
#include "siblings/chronel/RunReport.h"
#include "siblings/chronel/ScheduledRun.h"
#include "siblings/common/Setting.h"

namespace chronel {

namespace {

using platform::DateTime;
using platform::LibRegistry;
using siblings::IsOn;
using std::chrono::milliseconds;
using Steady = std::chrono::steady_clock;

constexpr char kInstance[] = "Chronel";
constexpr char kStartDate[] = "Start date";
constexpr char kLastRun[] = "Last run: ";
// How often the orders are looked at while waiting, and during a run.
constexpr milliseconds kLook{2000};
// Another program may hold the registry for a moment.
constexpr int kReadTries = 5;
// Bytes; anything larger isn't what an earlier instance has written.
constexpr std::uint64_t kLargestStatus = 64 * 1024;

class Scheduler {
 public:
  Scheduler(siblings::UnattendedDesktop& desktop, const Surroundings& surroundings)
      : desktop_(desktop), surroundings_(surroundings) {
    gRegistry = std::make_unique<c_Registry>();
  }
  ~Scheduler() { gRegistry.reset(); }
  Scheduler(const Scheduler&) = delete;
  Scheduler& operator=(const Scheduler&) = delete;

  void Run() {
    instance_.emplace(kInstance, surroundings_.patience);
    if (!instance_->Held() || !ReadOrders()) return;
    ReadLastRun();
    const char* end;
    while (!(end = WhyEnd())) {
      std::int64_t left = SecondsBetween(Now(), *due_);
      if (left > 0) {
        WriteStatus("Waiting for the next run");
        surroundings_.wait(std::min(kLook, milliseconds(left * 1000)));
      } else if (core::RunClaim claim; claim.Held()) {
        RunNow();
      } else {
        WriteStatus("Waiting for the end of a run that the user has started");
        surroundings_.wait(kLook);
      }
    }
    // After a stop and a new start the file may be the next instance's already.
    if (!instance_) instance_.emplace(kInstance, milliseconds(0));
    if (!instance_->Held()) return;
    due_.reset();
    WriteStatus(end);
  }

 private:
  static DateTime Now() { return platform::CurrentMachine().GetClock().Now(); }

  // What ends the wait, in the words of the status; null for nothing.
  const char* WhyEnd() {
    if (surroundings_.toldToEnd()) return "Ended, the program was told to";
    if (!ReadOrders()) return "Ended, the settings can't be read";
    if (stopRun_ || !IsOn(gRegistry->EnableScheduleSch)) return "Ended, no schedule is on";
    if (!due_) return "Ended, there is no date to run at";
    return nullptr;
  }

  bool ReadOrders() {
    for (int tries = 1;; ++tries) {
      if (m_Registry::ReadRegistrySettings() && ReadStartDate()) break;
      if (tries == kReadTries || surroundings_.toldToEnd()) return false;
      surroundings_.wait(kLook);
    }
    due_ = DueAt(startDate_, gRegistry->TimeSch);
    if (moved_ && moved_->first == startDate_) due_ = moved_->second;
    return !gRegistry->InstallDirectory.empty();
  }

  bool ReadStartDate() {
    try {
      startDate_ = LibRegistry().ReadValue(gRegistry->HKEY_CURRENT_USER, core::keys::kSchedule, kStartDate);
      return true;
    } catch (const platform::RuntimeError&) {
      return false;
    }
  }

  void RunNow() {
    WriteStatus("Running since " + MomentText());
    const std::string date = startDate_, started = MomentText();
    const DateTime due = *due_;
    RunResult result = RunModules(desktop_, [this] { return StopRun(); });
    lastRun_ = kLastRun + started + " to " + MomentText() + ", " + core::NumberText(result.files) +
               " files removed, " + core::NumberText(result.kilobytes) + " KB freed" +
               (result.stopped ? ", stopped before its end" : "");
    if (!result.stopped) MoveOn(date, due);
  }

  // Asked for each file of a run, so that the registry isn't looked at each time.
  bool StopRun() {
    if (stopRun_) return true;
    stopRun_ = surroundings_.toldToEnd();
    if (!stopRun_ && Steady::now() >= nextLook_) {
      nextLook_ = Steady::now() + kLook;
      try {
        stopRun_ =
            !IsOn(LibRegistry().ReadValue(gRegistry->HKEY_CURRENT_USER, core::keys::kSchedule, "Schedule"));
      } catch (const platform::RuntimeError&) {
      }
    }
    // The run may take its time to unwind, and the user may start a new schedule meanwhile.
    if (stopRun_) instance_.reset();
    return stopRun_;
  }

  void MoveOn(const std::string& date, const DateTime& due) {
    const DateTime next = NextDue(due, schedule::WeeksOf(gRegistry->WeekSch), Now());
    // Should the store not take it, the same date isn't run again by this process.
    moved_ = {date, next};
    // The user may have made a new schedule meanwhile.
    if (!ReadStartDate() || startDate_ != date) return;
    LibRegistry().WriteValue(gRegistry->HKEY_CURRENT_USER, core::keys::kSchedule, kStartDate,
                             platform::CurrentMachine().GetLocale().ShortDate(next));
  }

  std::string StatusFile() const { return gRegistry->InstallDirectory + "Reports\\Status Schedule.txt"; }

  // The line of an earlier instance.
  void ReadLastRun() {
    lastRun_ = std::string(kLastRun) + "none yet";
    try {
      platform::TextReader reader(StatusFile(), kLargestStatus);
      while (!reader.AtEnd())
        if (std::string line = reader.ReadLine(); line.starts_with(kLastRun)) lastRun_ = line;
    } catch (const platform::RuntimeError&) {
    }
  }

  void WriteStatus(const std::string& state) {
    std::vector<std::string> lines = {"Schedule status", "State: " + state};
    platform::Locale& locale = platform::CurrentMachine().GetLocale();
    lines.push_back("Next run: " + (due_ ? locale.ShortDate(*due_) + " " + locale.LongTime(*due_) : "none"));
    if (due_ && !schedule::ParseTime(gRegistry->TimeSch))
      lines.push_back("Time: \"" + gRegistry->TimeSch +
                      "\" is no time, the beginning of the day stands for it");
    lines.push_back("Repeated: " + std::string(schedule::kWeeks[schedule::WeeksOf(gRegistry->WeekSch) - 1]));
    std::string modules = IsOn(gRegistry->IncludeBrasmirSch) ? "Brasmir" : "";
    if (IsOn(gRegistry->IncludeLumaroSch)) modules += modules.empty() ? "Lumaro" : ", Lumaro";
    lines.push_back("Runs: " + (modules.empty() ? "nothing" : modules));
    lines.push_back(lastRun_);
    if (lines == written_) return;
    siblings::NewTextFile file(StatusFile());
    for (const std::string& line : lines) file.Line(line);
    file.Line("As of: " + MomentText());
    if (file.Finish()) written_ = std::move(lines);
  }

  siblings::UnattendedDesktop& desktop_;
  const Surroundings& surroundings_;
  std::optional<platform::Claim> instance_;
  std::string startDate_;
  std::optional<DateTime> due_;
  // The stored date that has been run, and the next one after it.
  std::optional<std::pair<std::string, DateTime>> moved_;
  bool stopRun_ = false;
  Steady::time_point nextLook_{};
  std::string lastRun_;
  std::vector<std::string> written_;
};

}  // namespace

void Main(siblings::UnattendedDesktop& desktop, const Surroundings& surroundings) {
  Scheduler(desktop, surroundings).Run();
}

}  // namespace chronel
