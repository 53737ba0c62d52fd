// A computer with the settings of a first start, and the main window's menu, pages and drives with their
// handlers.
#pragma once

#include <gtest/gtest.h>

#include "settings/FormSettings.h"
#include "settings/OptionHandlers.h"
#include "settings/Seed.h"
#include "settings/m_Registry.h"
#include "support/FaultyMachine.h"
#include "support/Session.h"
#include "ui/Wire.h"

class UiFixture : public ::testing::Test {
 protected:
  explicit UiFixture(test::TestOptions options = {}) : computer(std::move(options)) {
    EXPECT_TRUE(settings::Seed(test::PackagedFile("first-time-settings.txt"), computer.InstallDirectory()));
    EXPECT_TRUE(m_Registry::ReadRegistrySettings());
    settings::WireSettings(form);
    ui::WireUi(form);
    settings::AssignRegistrySettings(form);
    form.lblWelcomeScreen.Click();
  }

  // Whether `action` saves all settings and reads them anew. All of them or none: anything between is a
  // fault.
  template <class Action>
  bool SavesAndRereads(Action action) {
    gRegistry->WeekSch = "stale";
    test::FaultyMachine watched(computer.Machine());
    action();
    bool saved = !watched.registry.writes.empty();
    EXPECT_EQ(saved, gRegistry->WeekSch != "stale");
    return saved;
  }
  const std::string& Page() { return form.CurrentPage()->Name(); }
  std::string Map() { return form.lblUserMap.Caption; }

  test::TestComputer computer;
  test::SessionObjects session;
  frmMain form;
};
