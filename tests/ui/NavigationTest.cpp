// The ways between the pages, and what happens in passing.
#include "UiFixture.h"

namespace {

using forms::Module;

class NavigationTest : public UiFixture {
 protected:
  // Brings a page of this module to the front.
  void StandOn(controls::Frame& page, Module module) {
    form.ShowPage(page);
    form.EnterModule(module);
  }
};

TEST_F(NavigationTest, TheMenuGoesToItsPagesAndSavesForAllButThePlugIns) {
  struct {
    const char *page, *map;
    bool saves;
  } entries[] = {{"fraScanComputerBrasmir", "Brasmir...", true},
                 {"fraScanComputerLumaro", "Lumaro...", true},
                 {"fraPlugIns", "Plug-Ins...", false},
                 {"fraSchedule", "Schedule...", true},
                 {"fraBackupRestore", "Backup/Restore...", true}};
  int refreshed = 0;
  form.cmdRefreshBackupBrasmir.Click = [&] {
    EXPECT_EQ(Page(), "fraBackupRestore");
    ++refreshed;
  };
  for (int from = -1; from < 5; ++from)
    for (int to = 0; to < 5; ++to) {
      if (from < 0)
        form.lblWelcomeScreen.Click();
      else
        form.lblMainMenu[from].Click();
      EXPECT_EQ(SavesAndRereads([&] { EXPECT_TRUE(form.UserClick(form.lblMainMenu[to])); }),
                entries[to].saves);
      EXPECT_EQ(Page(), entries[to].page);
      EXPECT_EQ(Map(), entries[to].map);
      for (int other = 0; other < 5; ++other) {
        EXPECT_EQ(form.lblMainMenu[other].Border, other == to);
        EXPECT_EQ(form.lblMainMenu[other].BackColor,
                  other == to ? controls::Rgb(255, 255, 255) : controls::Rgb(249, 249, 249));
      }
    }
  EXPECT_EQ(refreshed, 6 + 5) << "on the way to the backups, from wherever";
  EXPECT_FALSE(SavesAndRereads([&] { form.UserClick(form.lblWelcomeScreen); }));
  EXPECT_EQ(Page(), "fraWelcome");
  EXPECT_EQ(Map(), "Home...");
  EXPECT_TRUE(computer.desktop.boxes.empty());
}

TEST_F(NavigationTest, HomeGoesWhereTheMapTells) {
  struct {
    Module module;
    const char *page, *mapAfter;
    bool saves;
  } cases[] = {{Module::Brasmir, "fraScanComputerBrasmir", "Brasmir...", true},
               {Module::Lumaro, "fraScanComputerLumaro", "Lumaro...", true},
               {Module::Schedule, "fraSchedule", "Schedule...", true},
               {Module::BackupRestore, "fraWelcome", "Home...", true},
               {Module::PlugIns, "fraDrivesBrasmir", "Plug-Ins...", false},
               {Module::Home, "fraDrivesBrasmir", "Home...", false}};
  for (const auto& each : cases)
    for (int index : form.lblHome.Indices()) {
      StandOn(form.fraDrivesBrasmir, each.module);
      EXPECT_EQ(SavesAndRereads([&] { form.lblHome[index].Click(); }), each.saves) << each.page;
      EXPECT_EQ(Page(), each.page);
      EXPECT_EQ(Map(), each.mapAfter);
    }
}

TEST_F(NavigationTest, NextAndBackWalkTheOptionPages) {
  struct Way {
    int index;
    const char *from, *to;
    bool saves;
  };
  auto walk = [&](controls::ControlArray<controls::Button>& buttons, const std::vector<Way>& ways,
                  Module module) {
    EXPECT_EQ(buttons.Indices().size(), ways.size());
    for (const Way& way : ways) {
      StandOn(dynamic_cast<controls::Frame&>(*form.Find(way.from)), module);
      const std::string map = Map();
      EXPECT_EQ(SavesAndRereads([&] { EXPECT_TRUE(form.UserClick(buttons[way.index])) << way.from; }),
                way.saves)
          << way.index;
      EXPECT_EQ(Page(), way.to) << way.index;
      EXPECT_EQ(Map(), map);
    }
  };
  walk(form.cmdNext,
       {{0, "fraCleaningBrasmir", "fraExcludeBrasmir", false},
        {1, "fraDrivesBrasmir", "fraCleaningBrasmir", false},
        {2, "fraFileFiltersBrasmir", "fraDrivesBrasmir", false},
        {3, "fraExcludeBrasmir", "fraIncludeBrasmir", false}},
       Module::Brasmir);
  std::vector<Way> back = {{0, "fraCleaningBrasmir", "fraDrivesBrasmir", false},
                           {1, "fraDrivesBrasmir", "fraFileFiltersBrasmir", false},
                           {3, "fraScanningResultsBrasmir", "fraScanComputerBrasmir", true},
                           {4, "fraIncludeBrasmir", "fraExcludeBrasmir", false},
                           {5, "fraFileFiltersBrasmir", "fraOptionsBrasmir", false},
                           {6, "fraExcludeBrasmir", "fraCleaningBrasmir", false},
                           {7, "fraAdvancedLumaro", "fraOptionsLumaro", false},
                           {8, "fraOptionsBrasmir", "fraScanComputerBrasmir", true},
                           {9, "fraOptionsLumaro", "fraScanComputerLumaro", true},
                           {10, "fraUserDefinedFoldersLumaro", "fraScanComputerLumaro", false}};
  walk(form.cmdBack, back, Module::Brasmir);
  struct {
    controls::Label& label;
    const char* page;
  } entries[] = {{form.lblFileFiltersOptionsBrasmir, "fraFileFiltersBrasmir"},
                 {form.lblDrivesOptionsBrasmir, "fraDrivesBrasmir"},
                 {form.lblCleaningOptionsBrasmir, "fraCleaningBrasmir"},
                 {form.lblExcludeOptionsBrasmir, "fraExcludeBrasmir"},
                 {form.lblIncludeOptionsBrasmir, "fraIncludeBrasmir"}};
  for (auto& entry : entries) {
    StandOn(form.fraOptionsBrasmir, Module::Schedule);
    EXPECT_FALSE(SavesAndRereads([&] { EXPECT_TRUE(form.UserClick(entry.label)); }));
    EXPECT_EQ(Page() + Map(), entry.page + std::string("Schedule..."));
  }
  // Reached through the schedule, the two options pages lead back to it, and nothing is saved.
  back[7] = {8, "fraOptionsBrasmir", "fraSchedule", false};
  back[8] = {9, "fraOptionsLumaro", "fraSchedule", false};
  walk(form.cmdBack, back, Module::Schedule);
}

TEST_F(NavigationTest, TheHelpFileOpensOrTheBoxTells) {
  computer.WriteFile(computer.InstallDirectory() + "Help\\Tidorra.chm");
  form.lblOpenHelp.Click();
  EXPECT_EQ(computer.desktop.opened, test::Strings{"document C:\\Program Files\\Tidorra\\Help\\Tidorra.chm"});
  EXPECT_TRUE(computer.desktop.boxes.empty());
  for (long failure : {0, 2, 32}) {
    computer.desktop.Clear();
    computer.desktop.openDocumentResult = failure;
    form.lblOpenHelp.Click();
    EXPECT_EQ(computer.desktop.boxes, test::Strings{"critical|Help file...|Open help file failed\r\n"
                                                    "Help file is missing or corrupt"});
  }
}

}  // namespace
