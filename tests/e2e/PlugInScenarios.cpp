// A plug-in's whole life: built with the wizard, run, changed by another, removed with its category.
#include <wx/defs.h>

#include "Hands.h"
#include "Sample.h"
#include "Scenarios.h"
#include "core/OpenForms.h"
#include "core/Run.h"
#include "core/m_SharedProcedures.h"
#include "platform/Machine.h"
#include "plugins/PlugInMaker.h"

namespace fs = std::filesystem;
using program::Player;

namespace e2e {

namespace {

constexpr char kPicker[] = "Select a folder";

// Every page with every kind of rule, by clicks and keys.
void Build(Player& player, frmPlugInMaker& maker, const fs::path& drive) {
  auto click = [&](controls::Control& control) { ClickIn(player, maker, control); };
  auto text = [](controls::TextBox& box) { return [&box] { return box.Text.Get(); }; };
  auto onPage = [&](controls::Frame& page) {
    player.Await(page.Name().c_str(), [&] { return maker.CurrentPage() == &page; });
  };
  auto rows = [&](controls::ListView& list, int count) {
    player.Await(list.Name().c_str(), [&list, count] { return list.Count() == count; });
    AwaitWindow(player, "Plug-In Maker.");
  };
  auto root = [&](controls::ComboBox& box, const std::string& name) {
    view::driver::Find(box.Name())->SetFocus();
    while (box.Text() != name) {
      std::string before = box.Text();
      view::driver::Press(WXK_DOWN);
      player.Await("the next root", [&] { return box.Text() != before; });
    }
  };
  TypeInto(player, "txtNamePlugIn", "Old Painter", text(maker.txtNamePlugIn));
  // The first page isn't left without the other two.
  player.Answer("OK");
  click(maker.cmdNext[0]);
  AwaitWindow(player, "Plug-In Maker.");
  Check(maker.CurrentPage() == &maker.fraWelcome,
        "a plug-in without description doesn't leave the first page");
  TypeInto(player, "txtDescriptionPlugIn", "Removes what it leaves", text(maker.txtDescriptionPlugIn));
  TypeInto(player, "cboCategoryPlugIn", "Painters", [&] { return maker.cboCategoryPlugIn.Text(); });
  click(maker.cmdNext[0]);
  onPage(maker.fraFiles);

  Pick(player, "Select a file", drive / "Painter/single.tmp");
  click(maker.lblAddNewFile);
  rows(maker.lvwFiles, 1);
  click(maker.chkAllFilesInFolder);
  Pick(player, kPicker, drive / "Painter/Thumbs");
  click(maker.lblAddNewFile);
  rows(maker.lvwFiles, 2);
  click(maker.chkAllFilesInFolderSubFolders);
  Pick(player, kPicker, drive / "Painter/Cache");
  click(maker.lblAddNewFile);
  rows(maker.lvwFiles, 3);
  click(maker.cmdNext[1]);
  onPage(maker.fraFolders);
  Pick(player, kPicker, drive / "Painter/Logs");
  click(maker.lblAddNewFolder);
  rows(maker.lvwFolders, 1);
  // A second one is taken back.
  Pick(player, kPicker, drive / "Painter/Kept");
  click(maker.lblAddNewFolder);
  rows(maker.lvwFolders, 2);
  Select(player, maker.lvwFolders, 2);
  player.Answer("Yes");
  click(maker.lblRemoveFolder);
  rows(maker.lvwFolders, 1);
  click(maker.cmdNext[2]);
  onPage(maker.fraRegistryKeys);
  root(maker.cboRootKeys, "HKEY_CURRENT_USER");
  TypeInto(player, "txtSubKeyKeys", "Software\\Painter\\Recent", text(maker.txtSubKeyKeys));
  click(maker.lblAddNewKey);
  rows(maker.lvwRegistryKeys, 1);
  click(maker.cmdNext[3]);
  onPage(maker.fraRegistryValues);
  root(maker.cboRootKeysValues, "HKEY_CURRENT_USER");
  TypeInto(player, "txtSubKeyValues", "Software\\Painter", text(maker.txtSubKeyValues));
  TypeInto(player, "txtNameValue", "LastFile", text(maker.txtNameValue));
  click(maker.lblAddNewRegistryValue);
  rows(maker.lvwRegistryValues, 1);
  click(maker.chkDeleteAllValues);
  player.Await("the emptied name", [&] { return maker.txtNameValue.Text.Get().empty(); });
  click(maker.txtSubKeyValues);
  view::driver::Press(WXK_END);
  view::driver::Type("\\Sizes");
  player.Await("the second key", [&] { return maker.txtSubKeyValues.Text == "Software\\Painter\\Sizes"; });
  click(maker.lblAddNewRegistryValue);
  rows(maker.lvwRegistryValues, 2);
  // Back and forth once.
  click(maker.cmdBack[3]);
  onPage(maker.fraRegistryKeys);
  click(maker.cmdNext[3]);
  onPage(maker.fraRegistryValues);
  auto picked = [](const controls::ListView& list, int column, const std::vector<std::string>& wanted) {
    for (int row = 1; row <= list.Count(); ++row) {
      std::string shown(column == 0 ? list.Text(row) : list.SubItem(row, column));
      Check(shown == "C:\\Painter\\" + wanted.at(static_cast<std::size_t>(row) - 1),
            "the picked place: " + shown);
    }
  };
  picked(maker.lvwFiles, 1, {"single.tmp", "Thumbs", "Cache"});
  picked(maker.lvwFolders, 0, {"Logs"});
  click(maker.cmdNext[4]);
  onPage(maker.FraFinished);
  Check(maker.lblNamePlugIn.Caption == "New Plug-In Name: Old Painter", "the summary names it");
  Check(maker.lblFileRulesConfigured.Caption == "3" && maker.lblFolderRulesConfigured.Caption == "1" &&
            maker.lblRegKeyRulesConfigured.Caption == "1" && maker.lblRegistryValuesConfigured.Caption == "2",
        "the summary counts the rules");
  player.Answer("OK");
  click(maker.cmdSavePlugIn);
  onPage(maker.fraWelcome);
  AwaitWindow(player, "Plug-In Maker.");
}

int RowOf(frmMain& form, const std::string& name) {
  return form.lvwPlugInLists.FindText(name);
}

int PlugIn() {
  Sample sample;
  const fs::path painter = sample.Drive() / "Painter",
                 file = sample.Install() / "PlugIns/Painters/Old Painter.plg";
  // Two folders in each, so that the picker has nothing to complete behind the path that is typed.
  for (const char* name :
       {"single.tmp", "other.tmp", "Thumbs/a.tmp", "Thumbs/deeper/b.tmp", "Cache/c.tmp", "Cache/deeper/d.tmp",
        "Logs/deeper/e.log", "Thumbs/elder/b.tmp", "Cache/elder/d.tmp", "Logs/elder/e.log", "Kept/f.txt"})
    WriteAll(painter / name, "painted");
  sample.Run([&](Player& player) {
    frmMain& form = player.Form();
    auto& registry = platform::CurrentMachine().Registry();
    auto write = [&](const char* key, const char* name) {
      registry.Write(platform::kCurrentUser, key, name, {platform::ValueType::String, "x"});
    };
    auto there = [&](const char* key, const char* name) {
      return registry.Read(platform::kCurrentUser, key, name).type != platform::ValueType::Absent;
    };
    for (const char* key : {"Software\\Painter\\Recent", "Software\\Painter\\Recent\\Deeper",
                            "Software\\Painter", "Software\\Painter\\Sizes"})
      for (const char* name : {"LastFile", "Other"}) write(key, name);
    player.Click("lblMainMenu(2)");
    player.AwaitPage(form.fraPlugIns);
    int before = form.lvwPlugInLists.Count();
    player.Click("lblOpenPlugInMaker");
    AwaitWindow(player, "Plug-In Maker.");
    Build(player, *LoadedPlugInMaker(), sample.Drive());
    player.Click("cmdClose");
    player.Await("the wizard's end", [] { return !LoadedPlugInMaker(); });
    Check(form.lvwPlugInLists.Count() == before + 1, "it is in the list");
    AwaitWindow(player, form.Caption);

    int row = RowOf(form, "Old Painter");
    Tick(player, form.lvwPlugInLists, row);
    player.Answer("Yes");
    player.Click("cmdRunPlugIns");
    player.Await("the end of the run", [&] {
      return form.lblUserInfoPlugIn.Caption == "All selected Plug-Ins was successfully executed" &&
             !core::Run::OnStack();
    });
    Check(form.lblFilesDeletedPlugIn.Caption == "5" && form.lblFoldersDeletedPlugIn.Caption == "1" &&
              form.lblKeysDeletedPlugIn.Caption == "1" && form.lblValuesDeletedPlugIn.Caption == "3",
          "the counters: " + form.lblFilesDeletedPlugIn.Caption.Get());
    Check(
        !there("Software\\Painter\\Recent", "Other") && !there("Software\\Painter\\Recent\\Deeper", "Other"),
        "the key has gone with what lay below it");
    Check(!there("Software\\Painter", "LastFile") && there("Software\\Painter", "Other"),
          "one value has gone");
    Check(!there("Software\\Painter\\Sizes", "LastFile") && !there("Software\\Painter\\Sizes", "Other"),
          "all values have gone");
    Check(form.lvwPlugInLists.CheckedCount() == 0, "the tick is gone");
    Check(fs::exists(file), "the plug-in itself stays");

    // The one is removed alone, its category stays and goes by the wizard.
    Select(player, form.lvwPlugInLists, RowOf(form, "Old Painter"));
    player.Answer("Yes");
    player.Click("cmdRemovePlugIn");
    player.Await("the removed row", [&] { return form.lvwPlugInLists.Count() == before; });
    Check(!fs::exists(file) && fs::exists(file.parent_path()), "the file has gone, its category stays");
    AwaitWindow(player, form.Caption);
    player.Click("lblOpenPlugInMaker");
    AwaitWindow(player, "Plug-In Maker.");
    frmPlugInMaker& maker = *LoadedPlugInMaker();
    TypeInto(player, "cboCategoryPlugIn", "Painters", [&] { return maker.cboCategoryPlugIn.Text(); });
    player.Answer("Yes");
    player.Click("lblDeletePlugInCategory");
    player.Await("the category's end", [&] { return !fs::exists(file.parent_path()); });
    AwaitWindow(player, "Plug-In Maker.");
    player.Click("cmdClose");
    player.Await("the wizard's end", [] { return !LoadedPlugInMaker(); });
    AwaitWindow(player, form.Caption);
    Check(form.lvwPlugInLists.Count() == before, "the other plug-ins are there");
    player.Close();
  });
  Check(Listing(painter) ==
            std::map<std::string, long>{
                {"Kept/f.txt", 7}, {"Thumbs/deeper/b.tmp", 7}, {"Thumbs/elder/b.tmp", 7}, {"other.tmp", 7}},
        "only what the rules name has gone");
  Check(fs::exists(painter / "Cache/deeper") && !fs::exists(painter / "Logs"),
        "the folders of a file rule stay, that of a folder rule goes");
  return Failures();
}

}  // namespace

std::vector<Scenario> PlugInScenarios() {
  return {{"plug-in", PlugIn}};
}

}  // namespace e2e
