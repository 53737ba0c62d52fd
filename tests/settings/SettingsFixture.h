// A computer with the settings of a first start, and the main window's controls.
#pragma once

#include "settings/FormSettings.h"
#include "settings/OptionHandlers.h"
#include "settings/Seed.h"
#include "settings/SettingsTable.h"
#include "settings/m_Registry.h"
#include "settings/m_RegistryLists.h"
#include "support/FaultyMachine.h"
#include "support/Session.h"

class SettingsFixture : public ::testing::Test {
 protected:
  SettingsFixture() {
    EXPECT_TRUE(settings::Seed(test::PackagedFile("first-time-settings.txt"), computer.InstallDirectory()));
    settings::WireSettings(form);
    computer.clock.Set({2026, 3, 31, 14, 5, 32});
  }

  void Store(std::string c_Registry::*property, const std::string& data) {
    const settings::Setting& setting = settings::SettingOf(property);
    computer.SetValue(setting.key, setting.name, data);
  }
  std::string Stored(std::string c_Registry::*property) {
    const settings::Setting& setting = settings::SettingOf(property);
    return computer.GetValue(setting.key, setting.name);
  }
  // The cache from the store, and the options from the cache.
  void Fill() {
    ASSERT_TRUE(m_Registry::ReadRegistrySettings());
    m_Registry::AssignOptionSettings(form);
  }

  test::TestComputer computer;
  test::SessionObjects session;
  frmMain form;
};
