// A start of the program and its main window on a test computer.
#pragma once

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include "app/MainWindow.h"
#include "app/m_SubMain.h"
#include "settings/SettingsTable.h"
#include "support/Session.h"

namespace test {

using namespace core::keys;

class AppTest : public ::testing::Test {
 protected:
  explicit AppTest(test::TestOptions options = {.layout = false}) : computer(std::move(options)) {}
  ~AppTest() override { test::SessionObjects::End(); }

  void Start() {
    exitCode = m_SubMain::Main(
        {settingsText, computer.InstallDirectory(), [this](const std::string& folder, bool first) {
           installed.push_back(folder + (first ? " first" : ""));
         }});
  }
  // Ends the session in whatever state it is, and makes the claim of this process go, as its end would.
  void Forget() {
    core::DropAllForms();
    core::SetMainForm(nullptr);
    computer.Restart();
    computer.desktop.Clear();
    computer.desktop.windows.clear();
  }
  frmMain& Form() { return core::MainForm(); }
  void Store(std::string c_Registry::*property, const char* data) {
    const settings::Setting& setting = settings::SettingOf(property);
    computer.SetValue(setting.key, setting.name, data);
  }
  // A store with the settings of a first start, and these on top.
  void Install(std::vector<std::pair<std::string c_Registry::*, const char*>> changes) {
    Start();
    Forget();
    for (auto [property, data] : changes) Store(property, data);
  }
  std::string Loading() { return computer.GetValue(kBrasmir, "Loading"); }
  std::string Uses() { return computer.GetValue(kCleaningStatus, "Total times used"); }
  test::Strings& Boxes() { return computer.desktop.boxes; }
  bool Shown(const std::string& what) {
    auto& windows = computer.desktop.windows;
    return std::find(windows.begin(), windows.end(), what) != windows.end();
  }

  test::TestComputer computer;
  std::string settingsText = test::PackagedFile("first-time-settings.txt");
  test::Strings installed;
  int exitCode = 0;
  const std::string registryError =
      "critical|Registry error|Error retrieving the registry settings for Brasmir\r\n"
      "Reinstall Tidorra to correct the settings\r\nBrasmir will shutdown!";
};

}  // namespace test
