#include <chrono>
#include <csignal>
#include <gtest/gtest.h>
#include <thread>

#include "ViewTest.h"
#include "view/ListPane.h"

using play::driver::Click;
using play::driver::Find;
using play::driver::Press;
using play::driver::WaitFor;

namespace {

// A run on the form's button "run" that pumps with `pump` until `done`; gives back once it has ended.
void RunWith(DemoForm& form, const std::function<void()>& pump, const std::function<bool()>& done,
             const std::function<void()>& inside) {
  bool started = false, ended = false;
  form.run.Click = [&] {
    if (started) return;
    started = true;
    inside();
    while (!done()) pump();
    ended = true;
  };
  form.run.Click();
  EXPECT_TRUE(ended);
  form.run.Click = nullptr;
}

class Pump : public OpenFormTest {};

}  // namespace

TEST_F(Pump, ARunThatRepaintsAtEachStepHearsAClick) {
  bool heard = false;
  form.other.Click = [&] { heard = true; };
  // Each step takes longer than a frame before it repaints.
  RunWith(
      form,
      [&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        TheDesktop().Refresh(form.status);
        TheDesktop().DoEvents();
      },
      [&] { return heard; }, [] { Click("other"); });
}

TEST_F(Pump, TheStartButtonStopsItsOwnRun) {
  bool running = false, stopped = false, ended = false;
  form.run.Click = [&] {
    if (running) {
      stopped = true;
      return;
    }
    running = true;
    TheDesktop().SetStopControl(&form.run);
    form.run.Caption = "Stop";
    Click("run");
    while (!stopped) TheDesktop().Breathe();
    // It shows that it was taken until the run is over.
    TheDesktop().Refresh(form);
    EXPECT_FALSE(Find("run")->IsThisEnabled());
    TheDesktop().SetStopControl(nullptr);
    form.run.Caption = "Run";
    running = false;
    ended = true;
  };
  Click("run");
  WaitFor([&] { return ended; });
  WaitFor([] { return Find("run")->IsThisEnabled(); });
}

TEST_F(Pump, AClickThatWaitsAtTheEndOfARunIsStillItsOwn) {
  bool running = false, ended = false;
  int stops = 0, starts = 0;
  form.run.Click = [&] {
    if (running) {
      ++stops;
      return;
    }
    ++starts;
    running = true;
    TheDesktop().SetStopControl(&form.run);
    Click("run");
    // Long enough for the click to arrive, and nothing lets it in.
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    TheDesktop().SetStopControl(nullptr);
    running = false;
    ended = true;
  };
  Click("run");
  WaitFor([&] { return ended && Find("run")->IsThisEnabled(); });
  for (int i = 0; i < 20; ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
    TheDesktop().DoEvents();
  }
  EXPECT_EQ(stops, 1);
  EXPECT_EQ(starts, 1);
}

TEST_F(Pump, BreatheLetsInTheStopControlAndNothingElse) {
  int others = 0, stops = 0, checks = 0, ticks = 0;
  form.other.Click = [&] { ++others; };
  form.check.Click = [&] { ++checks; };
  form.timer.Tick = [&] { ++ticks; };
  form.remove.Click = [&] { ++stops; };
  TheDesktop().SetStopControl(&form.remove);
  form.timer.Interval = 1;
  form.timer.Enabled = true;
  RunWith(
      form, [] { TheDesktop().Breathe(); }, [&] { return stops == 1; },
      [] {
        Click("other");
        Click("check");
        play::driver::Type("x");
        Click("remove");
      });
  EXPECT_EQ(others + checks + ticks, 0);
  form.timer.Enabled = false;
  TheDesktop().SetStopControl(nullptr);
  // What was done while only the stop was let in doesn't come later either.
  LetAllArrive(form.preset);
  EXPECT_EQ(others + checks, 0);
  EXPECT_EQ(form.text.Text.Get(), "");
  EXPECT_EQ(form.check.Value, 0);
}

TEST_F(Pump, BreatheTakesTheKeyboardOnTheStopControl) {
  int stops = 0;
  form.link.Click = [&] { ++stops; };
  TheDesktop().SetStopControl(&form.link);
  Focus("link");
  RunWith(
      form, [] { TheDesktop().Breathe(); }, [&] { return stops == 1; }, [] { Press(WXK_SPACE); });
  TheDesktop().SetStopControl(nullptr);
}

TEST_F(Pump, RefreshLetsNothingInAndLosesNothing) {
  int others = 0;
  form.other.Click = [&] { ++others; };
  int rounds = 0;
  RunWith(
      form,
      [&] {
        form.status.Caption = std::to_string(rounds);
        TheDesktop().Refresh(form);
      },
      [&] { return ++rounds == 30; }, [] { Click("other"); });
  EXPECT_EQ(others, 0);
  WaitFor([&] { return others == 1; });
}

TEST_F(Pump, TimersTickInThePumpAndNotInSleep) {
  int ticks = 0;
  form.timer.Tick = [&] { ++ticks; };
  form.timer.Interval = 1;
  form.timer.Enabled = true;
  TheDesktop().Sleep(60);
  EXPECT_EQ(ticks, 0);
  RunWith(
      form, [] { TheDesktop().DoEvents(); }, [&] { return ticks > 2; }, [] {});
  form.timer.Enabled = false;
  TheDesktop().Refresh(form);
  int before = ticks;
  LetAllArrive(form.other);
  EXPECT_EQ(ticks, before);
}

TEST_F(Pump, ASignalEndsTheSessionAlsoInARun) {
  for (bool yields : {true, false}) {
    bool ended = false;
    OnEndSession([&] { ended = true; });
    RunWith(
        form, [&] { yields ? TheDesktop().DoEvents() : TheDesktop().Breathe(); }, [&] { return ended; },
        [] { std::raise(SIGTERM); });
  }
  OnEndSession(nullptr);
  view::Screen::Current()->ContinueSession();
}

TEST_F(Pump, AManyTimesMarkedControlIsBroughtToTheScreenOnceAFrame) {
  form.list.Reserve(200000);
  auto* pane = static_cast<view::ListPane*>(form.Window().ViewOf(form.list));
  unsigned long before = pane->CellsAsked();
  for (int i = 0; i < 200000; ++i) {
    form.list.AddRow("row", 0);
    form.status.Caption = std::to_string(i);
    TheDesktop().Breathe();
  }
  TheDesktop().Refresh(form);
  // A screenful of cells for each frame; a repaint that touched every row would ask for millions.
  EXPECT_LT(pane->CellsAsked() - before, 60000u);
}
