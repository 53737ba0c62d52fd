// The ways between the pages, and what happens in passing.
#include "UiFixture.h"

namespace {

class NavigationTest : public UiFixture {
 protected:
  // Brings a page of this module to the front.
  void StandOn(controls::Frame& page, const std::string& map) {
    form.ShowPage(page);
    form.lblUserMap.Caption = map;
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
    const char *map, *page, *mapAfter;
    bool saves;
  } cases[] = {{"Brasmir...", "fraScanComputerBrasmir", "Brasmir...", true},
               {"Lumaro...", "fraScanComputerLumaro", "Lumaro...", true},
               {"Schedule...", "fraSchedule", "Schedule...", true},
               {"Backup/Restore...", "fraWelcome", "Home...", true},
               {"Plug-Ins...", "fraDrivesBrasmir", "Plug-Ins...", false},
               {"brasmir...", "fraDrivesBrasmir", "brasmir...", false}};
  for (const auto& each : cases)
    for (int index : form.lblHome.Indices()) {
      StandOn(form.fraDrivesBrasmir, each.map);
      EXPECT_EQ(SavesAndRereads([&] { form.lblHome[index].Click(); }), each.saves) << each.map;
      EXPECT_EQ(Page(), each.page) << each.map;
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
                  const char* map) {
    EXPECT_EQ(buttons.Indices().size(), ways.size());
    for (const Way& way : ways) {
      StandOn(dynamic_cast<controls::Frame&>(*form.Find(way.from)), map);
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
       "Brasmir...");
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
  walk(form.cmdBack, back, "Brasmir...");
  struct {
    controls::Label& label;
    const char* page;
  } entries[] = {{form.lblFileFiltersOptionsBrasmir, "fraFileFiltersBrasmir"},
                 {form.lblDrivesOptionsBrasmir, "fraDrivesBrasmir"},
                 {form.lblCleaningOptionsBrasmir, "fraCleaningBrasmir"},
                 {form.lblExcludeOptionsBrasmir, "fraExcludeBrasmir"},
                 {form.lblIncludeOptionsBrasmir, "fraIncludeBrasmir"}};
  for (auto& entry : entries) {
    StandOn(form.fraOptionsBrasmir, "Schedule...");
    EXPECT_FALSE(SavesAndRereads([&] { EXPECT_TRUE(form.UserClick(entry.label)); }));
    EXPECT_EQ(Page() + Map(), entry.page + std::string("Schedule..."));
  }
  // Reached through the schedule, the two options pages lead back to it, and nothing is saved.
  back[7] = {8, "fraOptionsBrasmir", "fraSchedule", false};
  back[8] = {9, "fraOptionsLumaro", "fraSchedule", false};
  walk(form.cmdBack, back, "Schedule...");
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
