#include "play/Player.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <unistd.h>

#include "core/OpenForms.h"
#include "core/Run.h"
#include "core/m_SharedProcedures.h"
#include "play/Driver.h"

namespace play {

namespace {

constexpr auto kPatience = std::chrono::minutes(1);
constexpr auto kDrawn = std::chrono::milliseconds(300);

[[noreturn]] void GiveUp(const std::string& what) {
  std::printf("gave up waiting: %s\n", what.c_str());
  std::fflush(stdout);
  driver::ScreenshotScreen("gave-up.png");
  _exit(3);
}

}  // namespace

Player::Player() : form_(core::MainForm()) {
  // Found in a box's own loop too, where nothing else looks at the time.
  auto end = std::chrono::steady_clock::now() + 4 * kPatience;
  driver::When([end] { return std::chrono::steady_clock::now() > end; },
               [] { GiveUp("the end of the play"); });
  driver::Stillness still;
  Await("the main window", [&] { return form_.Visible && still.Reached(driver::FindTop(form_.Caption)); });
}

void Player::Await(const char* what, const std::function<bool()>& state) {
  auto end = std::chrono::steady_clock::now() + kPatience;
  driver::WaitFor([&] {
    if (std::chrono::steady_clock::now() > end) GiveUp(what);
    return state();
  });
}

void Player::Click(const std::string& control) {
  driver::Stillness still;
  Await(control.c_str(), [&] {
    controls::Control* found = form_.Find(control);
    wxWindow* window = found && !form_.Reachable(*found) ? nullptr : driver::Find(control);
    return still.Reached(window);
  });
  if (!driver::Click(control)) GiveUp(control);
}

void Player::Tick(const std::string& list, int row) {
  if (!driver::ClickRow(list, row, true)) GiveUp(list);
}

void Player::AwaitPage(controls::Frame& page) {
  Await(page.Name().c_str(), [&] { return form_.CurrentPage() == &page; });
}

void Player::When(std::function<bool()> state, std::function<void()> action) {
  driver::When(std::move(state), std::move(action));
}

void Player::Answer(const std::string& button) {
  When([still = driver::Stillness(), button]() mutable { return still.Reached(driver::Find(button)); },
       [button] { driver::Click(button); });
}

void Player::AwaitRest() {
  Await("the end of the run", [] { return !core::Run::OnStack(); });
}

void Player::Shoot(const std::string& name) {
  if (pictures_.empty()) return;
  // What has just changed is drawn a frame or two later.
  auto drawn = std::chrono::steady_clock::now() + kDrawn;
  driver::WaitFor([&] { return std::chrono::steady_clock::now() > drawn; });
  char number[16];
  std::snprintf(number, sizeof number, "%02d-", ++shots_);
  if (auto* window = driver::FindTop(form_.Caption))
    driver::Screenshot(*window, pictures_ + "/" + number + name + ".png");
}

void Player::OpenScanPage() {
  Click("lblMainMenu(0)");
  AwaitPage(form_.fraScanComputerBrasmir);
}

void Player::SetOption(controls::Label& hubEntry, controls::Frame& page, controls::CheckBox& box,
                       int homeIndex) {
  OpenScanPage();
  Click("cmdOptionsBrasmir");
  AwaitPage(form_.fraOptionsBrasmir);
  Click(hubEntry.Name());
  AwaitPage(page);
  int before = box.Value;
  Click(box.Name());
  Await("the tick", [&] { return box.Value != before; });
  Click("lblHome(" + std::to_string(homeIndex) + ")");
  AwaitPage(form_.fraScanComputerBrasmir);
}

void Player::Scan() {
  form_.ScanHasRun = false;
  Click("cmdScanComputerBrasmir");
  Await("the end of the scan", [this] { return form_.ScanHasRun; });
  AwaitRest();
}

void Player::OpenResults() {
  Click("cmdViewResultsScanComputerBrasmir");
  AwaitPage(form_.fraScanningResultsBrasmir);
  Await("the rows", [this] {
    return form_.lblUserInfoResultsBrasmir[forms::ResultsProgress].Caption.Get().ends_with("files");
  });
}

void Player::CleanAll() {
  Click("cmdSelectAllResultsBrasmir");
  Await("the ticks", [this] { return form_.lvwFilesResultsBrasmir.CheckedCount() > 0; });
  Shoot("ticked");
  Answer("Yes");
  form_.lblUserInfoResultsBrasmir[forms::ResultsProgress].Caption = "";
  Click("cmdDeleteResultsBrasmir");
  Await("the end of the cleaning", [&] {
    return form_.lblUserInfoResultsBrasmir[forms::ResultsProgress].Caption == "Finished" &&
           !core::Run::OnStack();
  });
}

void Player::Close() {
  Click("cmdCloseApplication");
}

}  // namespace play
