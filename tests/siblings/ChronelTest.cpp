// The scheduler, with a clock that the waiting sets.
#include <algorithm>
#include <chrono>

#include "core/Numbers.h"
#include "core/m_SharedProcedures.h"
#include "platform/LibSmall.h"
#include "siblings/SiblingFixture.h"
#include "siblings/chronel/Chronel.h"
#include "siblings/chronel/DueTime.h"
#include "support/FaultyMachine.h"
#include "support/Shortcuts.h"

using platform::DateTime;

class ChronelTest : public test::SiblingTest {
 protected:
  ChronelTest() {
    platform::SetCurrentDesktop(&desktop);
    SetNow({2026, 11, 18, 14, 0, 0});  // a Wednesday
    Schedule("Schedule", "1");
    Schedule("Day", "Wednesday");
    Schedule("Time", "15:00:00");
    Schedule("Start date", "11/18/2026");
    computer.SetValue(core::keys::kCleaning, "Move files To Recycle bin", "0");
    computer.SetValue(core::keys::kLumaroAdvanced, "Move files to recycle bin ", "0");
    computer.SetValue(core::keys::kInclude, "Zero byte files", "1");
    computer.WriteFile("C:\\Data\\one.tmp", "four");
    computer.WriteFile("C:\\Data\\two.tmp", std::string(2044, 'x'));
    computer.WriteFile("C:\\Data\\empty.dat", "");
    computer.WriteFile("C:\\Data\\kept.txt");
    computer.WriteFile(Broken(), test::MakeShortcut("C:\\gone.exe"));
    computer.WriteFile(TempFile(), "temporary");
    surroundings.patience = std::chrono::milliseconds(0);
    surroundings.toldToEnd = [] { return false; };
    // Until the next date has been stored; then the schedule is switched off.
    surroundings.wait = [this](std::chrono::milliseconds time) {
      EXPECT_LE(time, std::chrono::seconds(10)) << "an order that changes is seen soon";
      Pass(time);
      ++waits;
      if (Scheduled("Start date") != "11/18/2026" || waits > 10'000) Schedule("Schedule", "0");
    };
  }
  ~ChronelTest() override { platform::SetCurrentDesktop(&computer.desktop); }

  void SetNow(const DateTime& moment) {
    now = moment;
    computer.clock.Set(now);
  }
  void Pass(std::chrono::milliseconds time) {
    using namespace std::chrono;
    sys_seconds moment = sys_days(year(now.year) / now.month / now.day) + hours(now.hour) +
                         minutes(now.minute) + seconds(now.second) + duration_cast<seconds>(time);
    year_month_day today(floor<days>(moment));
    hh_mm_ss clock(moment - floor<days>(moment));
    auto number = [](auto part) { return static_cast<int>(part.count()); };
    SetNow({int(today.year()), int(unsigned(today.month())), int(unsigned(today.day())),
            number(clock.hours()), number(clock.minutes()), number(clock.seconds())});
  }
  void Run() { chronel::Main(desktop, surroundings); }

  std::string Broken() const { return computer.Profile() + "\\Desktop\\broken.lnk"; }
  std::string TempFile() const { return computer.Profile() + "\\AppData\\Local\\Temp\\left.txt"; }
  test::Strings Report() const { return test::LinesOf(computer.ReadFile(Install("Reports\\Schedule.txt"))); }
  test::Strings Status() const {
    return test::LinesOf(computer.ReadFile(Install("Reports\\Status Schedule.txt")));
  }
  std::string Statistic(const char* name) { return computer.GetValue(core::keys::kCleaningStatus, name); }
  bool Reported(const std::string& line) const {
    const test::Strings lines = Report();
    return std::find(lines.begin(), lines.end(), line) != lines.end();
  }
  test::Strings Garbage() const {
    return {"C:\\Data\\one.tmp", "C:\\Data\\two.tmp", "C:\\Data\\empty.dat", Broken(), TempFile()};
  }
  bool AllIsCleaned() const {
    return computer.Left(Garbage()).empty() && computer.ReadFile("C:\\Data\\kept.txt") == "content";
  }
  bool NothingIsCleaned() const { return computer.Left(Garbage()) == Garbage(); }

  siblings::UnattendedDesktop desktop;
  chronel::Surroundings surroundings;
  DateTime now;
  int waits = 0;
};

TEST_F(ChronelTest, CleansAllCategoriesAndLumaroAtTheHour) {
  test::Strings waiting;
  auto wait = surroundings.wait;
  auto brasmir = computer.AnotherMachine();
  int seen = 0;
  surroundings.toldToEnd = [&] {
    seen += gAppRunning && gAppRunning->AppRunning && brasmir->GetProcesses().InstanceRuns("Brasmir run");
    return false;
  };
  surroundings.wait = [&](std::chrono::milliseconds time) {
    if (waiting.empty()) waiting = Status();
    if (Scheduled("Start date") == "11/18/2026") {
      EXPECT_TRUE(NothingIsCleaned());
      EXPECT_LT(chronel::SecondsBetween(now, {2026, 11, 18, 15, 0, 0}), 3601);
    }
    wait(time);
  };
  Schedule("Week", "Every second Week");
  Run();
  EXPECT_TRUE(AllIsCleaned());
  EXPECT_GT(seen, 0) << "others see its run";
  EXPECT_EQ(Scheduled("Start date"), "12/02/2026");
  EXPECT_EQ(waiting,
            (test::Strings{"Schedule status", "State: Waiting for the next run",
                           "Next run: 11/18/2026 15:00:00", "Repeated: Every second Week",
                           "Runs: Brasmir, Lumaro", "Last run: none yet", "As of: 11/18/2026 14:00:00"}));
  EXPECT_EQ(Status()[1], "State: Ended, no schedule is on");
  EXPECT_EQ(Status()[2], "Next run: none");
  const double bytes = 4 + 2044 + 9 + static_cast<double>(test::MakeShortcut("C:\\gone.exe").size());
  EXPECT_EQ(Status()[5], "Last run: 11/18/2026 15:00:00 to 11/18/2026 15:00:00, 5 files removed, " +
                             core::NumberText(platform::LibSize().BytesToKilobytes(bytes)) + " KB freed");

  EXPECT_EQ(Report()[0] + "|" + Report()[1], "Schedule report|Started: 11/18/2026 15:00:00");
  for (std::string line :
       {"Garbage files: 2", "    Removed: C:\\Data\\one.tmp", "Zero byte files: 1",
        "    Removed: C:\\Data\\two.tmp", "    Removed: C:\\Data\\empty.dat", "Invalid shortcuts: 1",
        "    Confirm delete all selected files", "    Answered: Yes",
        "    Confirm deleting files with Lumaro", "    Temp folder: 1", "    Temp folder: 0",
        "Files removed in all: 5", "Finished: 11/18/2026 15:00:00"})
    EXPECT_TRUE(Reported(line)) << line;
  EXPECT_TRUE(Reported("    Removed: " + Broken()));
  EXPECT_FALSE(Reported("    Removed: C:\\Data\\kept.txt"));

  EXPECT_EQ(Statistic("Total times used") + Statistic("Files deleted") + Statistic("Total files deleted"),
            "155");
  EXPECT_EQ(computer.GetValue(core::keys::kTidorra, "Last used"), "") << "the screens aren't saved";
  EXPECT_EQ(gRegistry, nullptr);
  EXPECT_FALSE(computer.Machine().GetProcesses().InstanceRuns("Chronel"));
}

TEST_F(ChronelTest, AMissedStartRunsOnceAtOnce) {
  Schedule("Start date", "10/14/2026");
  int runsBefore = -1;
  surroundings.wait = [&](std::chrono::milliseconds) {
    if (runsBefore < 0) runsBefore = waits;
    Schedule("Schedule", "0");
  };
  Run();
  EXPECT_EQ(runsBefore, 0) << "before any waiting";
  EXPECT_TRUE(AllIsCleaned());
  EXPECT_EQ(Statistic("Total times used"), "1");
  EXPECT_EQ(Scheduled("Start date"), "11/18/2026") << "today at three is still to come";
}

TEST_F(ChronelTest, RunsWhatIsIncludedAndReportsOnlyIfAsked) {
  Schedule("Brasmir", "0");
  Schedule("Create report", "0");
  computer.WriteFile(Install("Reports\\Schedule.txt"), "old");
  Run();
  EXPECT_EQ(computer.Left(Garbage()).size(), 4u);
  EXPECT_FALSE(computer.Exists(TempFile()));
  EXPECT_EQ(computer.ReadFile(Install("Reports\\Schedule.txt")), "old");
  EXPECT_EQ(Status()[4], "Runs: Lumaro");
  EXPECT_NE(Status()[5].find(", 1 files removed, "), std::string::npos) << "the status comes in any case";

  computer.WriteFile(TempFile());
  Schedule("Brasmir", "1");
  Schedule("Lumaro", "0");
  Schedule("Schedule", "1");
  Schedule("Start date", "11/18/2026");
  Run();
  EXPECT_EQ(computer.Left(Garbage()), test::Strings{TempFile()});
}

TEST_F(ChronelTest, HandsOverWhatIsHeldAndBacksUpIfSet) {
  computer.SetValue(core::keys::kCleaning, "Delete on windows startup", "1");
  computer.SetValue(core::keys::kBackup, "Use Backup Brasmir", "1");
  // A name that the report's code page can't hold.
  computer.WriteFile("C:\\Data\\\u65E5.tmp");
  {
    test::Hold held(computer.Native("C:\\Data\\one.tmp"));
    Run();
  }
  EXPECT_EQ(computer.Left(Garbage()), test::Strings{"C:\\Data\\one.tmp"});
  EXPECT_EQ(LockedCopy(), "C:\\Data\\one.tmp\r\n");
  EXPECT_TRUE(computer.WillStartKelvish());
  for (const char* line : {"    Not removed: C:\\Data\\one.tmp", "    Removed: C:\\Data\\?.tmp",
                           "    Locked files will be deleted on next Windows boot."})
    EXPECT_TRUE(Reported(line)) << line;
  const std::string archive = "Backup Brasmir 11.18.2026 15.00.00.zip";
  EXPECT_EQ(computer.List(Install("Backup")), test::Strings{archive});
  EXPECT_EQ(computer.GetValue(core::keys::kBackupFiles, archive), "Backup taken by Brasmir");
}

TEST_F(ChronelTest, WaitsForARunOfTheUser) {
  auto brasmir = computer.AnotherMachine();
  ASSERT_TRUE(brasmir->GetProcesses().ClaimInstance("Brasmir run"));
  SetNow({2026, 11, 18, 16, 0, 0});
  auto wait = surroundings.wait;
  surroundings.wait = [&](std::chrono::milliseconds time) {
    if (brasmir) {
      EXPECT_TRUE(NothingIsCleaned());
      EXPECT_EQ(Status()[1], "State: Waiting for the end of a run that the user has started");
      if (waits == 3) brasmir.reset();
    }
    wait(time);
  };
  Run();
  EXPECT_FALSE(brasmir);
  EXPECT_TRUE(AllIsCleaned());
  EXPECT_FALSE(computer.Machine().GetProcesses().InstanceRuns("Brasmir run"));
}

TEST_F(ChronelTest, OneInstanceOnly) {
  auto other = computer.AnotherMachine();
  ASSERT_TRUE(other->GetProcesses().ClaimInstance("Chronel"));
  SetNow({2026, 11, 18, 16, 0, 0});
  Run();
  EXPECT_TRUE(NothingIsCleaned());
  EXPECT_TRUE(Status().empty());
  EXPECT_EQ(Scheduled("Start date"), "11/18/2026");
}

TEST_F(ChronelTest, ARunThatIsStoppedEndsSoonAndIsMadeUpFor) {
  computer.WriteFile("C:\\Data\\three.tmp");
  SetNow({2026, 11, 18, 15, 30, 0});
  auto garbage = [&] {
    int count = 0;
    for (const std::string& name : computer.List("C:\\Data")) count += name.ends_with(".tmp");
    return count;
  };
  // The first instance gives its place up at once, so that a new one may come while it winds down.
  bool freed = false;
  auto other = computer.AnotherMachine();
  surroundings.toldToEnd = [&] {
    bool told = garbage() < 3;
    freed = freed || !other->GetProcesses().InstanceRuns("Chronel");
    return told;
  };
  Run();
  EXPECT_TRUE(freed);
  EXPECT_EQ(garbage(), 1) << "the file at hand was removed, as after a click on Stop";
  EXPECT_TRUE(computer.Exists("C:\\Data\\empty.dat"));
  EXPECT_TRUE(computer.Exists(TempFile()));
  EXPECT_EQ(Scheduled("Start date"), "11/18/2026");
  EXPECT_EQ(Status()[1], "State: Ended, the program was told to");
  EXPECT_NE(Status()[5].find(", 2 files removed, "), std::string::npos);
  EXPECT_NE(Status()[5].find(", stopped before its end"), std::string::npos);
  EXPECT_EQ(Report().back(), "Stopped before the end: 11/18/2026 15:30:00");
  EXPECT_EQ(Statistic("Files deleted"), "2");

  surroundings.toldToEnd = [] { return false; };
  Run();
  EXPECT_TRUE(AllIsCleaned());
  EXPECT_EQ(garbage(), 0);
  EXPECT_EQ(Scheduled("Start date"), "11/25/2026");
  EXPECT_EQ(Statistic("Total files deleted"), "6");
}

TEST_F(ChronelTest, EndsWhereThereIsNothingToWaitFor) {
  surroundings.wait = [](std::chrono::milliseconds) { FAIL() << "waits"; };
  SetNow({2026, 11, 18, 16, 0, 0});
  struct {
    const char *flag, *date;
    bool told;
    const char* state;
  } cases[] = {{"0", "11/18/2026", false, "no schedule is on"},
               {"", "11/18/2026", false, "no schedule is on"},
               {"on", "11/18/2026", false, "no schedule is on"},
               {"1", "", false, "there is no date to run at"},
               {"1", "11/18/2026", true, "the program was told to"}};
  for (const auto& each : cases) {
    Schedule("Schedule", each.flag);
    Schedule("Start date", each.date);
    surroundings.toldToEnd = [&] { return each.told; };
    Run();
    EXPECT_EQ(Status()[1], std::string("State: Ended, ") + each.state);
    EXPECT_TRUE(NothingIsCleaned());
  }
}

TEST_F(ChronelTest, ADateThatCannotBeStoredIsNotRunAgain) {
  test::FaultyMachine faulty(computer.Machine());
  faulty.registry.refuseWrite = [](std::string_view, std::string_view name) {
    return name == "Start date" ? 5L : 0L;
  };
  SetNow({2026, 11, 18, 15, 0, 0});
  surroundings.wait = [&](std::chrono::milliseconds) {
    if (++waits == 1) {
      EXPECT_EQ(Status()[2], "Next run: 11/25/2026 15:00:00");
      EXPECT_EQ(Statistic("Total times used"), "1");
      SetNow({2026, 11, 25, 15, 0, 1});
      computer.WriteFile(TempFile());
    } else {
      Schedule("Schedule", "0");
    }
  };
  Run();
  EXPECT_EQ(Statistic("Total times used"), "2") << "but the next date is";
  EXPECT_TRUE(AllIsCleaned());
}

TEST_F(ChronelTest, UnreadableSettingsEndItAfterAFewTries) {
  test::FaultyMachine faulty(computer.Machine());
  faulty.registry.raiseOnRead = [](std::string_view, std::string_view name) { return name == "Start date"; };
  surroundings.wait = [&](std::chrono::milliseconds) { ++waits; };
  Run();
  EXPECT_GT(waits, 0);
  EXPECT_LT(waits, 10);
  EXPECT_TRUE(NothingIsCleaned());
}

TEST_F(ChronelTest, FollowsOrdersThatChangeWhileItWaits) {
  surroundings.wait = [&](std::chrono::milliseconds time) {
    Pass(time);
    if (++waits == 1) {
      Schedule("Start date", "11/19/2026");
      Schedule("Time", "half past three");
    } else if (waits == 2) {
      EXPECT_EQ(Status()[2], "Next run: 11/19/2026 00:00:00");
      EXPECT_EQ(Status()[3], "Time: \"half past three\" is no time, the beginning of the day stands for it");
      SetNow({2026, 11, 19, 0, 0, 0});
    } else {
      Schedule("Schedule", "0");
    }
  };
  Run();
  EXPECT_TRUE(AllIsCleaned());
  EXPECT_EQ(Scheduled("Start date"), "11/26/2026");
}
