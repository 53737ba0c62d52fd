// A plug-in's life: built with the wizard in its own window, run and removed.
#include "Hands.h"
#include "Sample.h"
#include "Scenarios.h"
#include "core/OpenForms.h"
#include "core/Run.h"
#include "plugins/PlugInMaker.h"

namespace fs = std::filesystem;
using play::Player;

namespace e2e {

namespace {

// One rule, for a file that is picked in the system's own window.
void Build(Player& player, frmPlugInMaker& maker, const fs::path& file) {
  auto click = [&](controls::Control& control) { ClickIn(player, maker, control); };
  auto text = [](controls::TextBox& box) { return [&box] { return box.Text.Get(); }; };
  TypeInto(player, "txtNamePlugIn", "Old Painter", text(maker.txtNamePlugIn));
  TypeInto(player, "txtDescriptionPlugIn", "Removes what it leaves", text(maker.txtDescriptionPlugIn));
  TypeInto(player, "cboCategoryPlugIn", "Painters", [&] { return maker.cboCategoryPlugIn.Text(); });
  click(maker.cmdNext[0]);
  player.Await("the page of the files", [&] { return maker.CurrentPage() == &maker.fraFiles; });
  Pick(player, "Select a file", file);
  click(maker.lblAddNewFile);
  player.Await("the rule", [&] { return maker.lvwFiles.Count() == 1; });
  AwaitWindow(player, "Plug-In Maker.");
  for (int page : {1, 2, 3, 4}) click(maker.cmdNext[page]);
  player.Await("the summary", [&] { return maker.CurrentPage() == &maker.FraFinished; });
  Check(maker.lblFileRulesConfigured.Caption == "1", "the summary counts the rule");
  player.Answer("OK");
  click(maker.cmdSavePlugIn);
  AwaitWindow(player, "Plug-In Maker.");
  click(maker.cmdClose);
  player.Await("the wizard's end", [] { return !LoadedPlugInMaker(); });
}

int PlugIn() {
  Sample sample;
  const fs::path painter = sample.Drive() / "Painter",
                 file = sample.Install() / "PlugIns/Painters/Old Painter.plg";
  for (const char* name : {"single.tmp", "other.tmp"}) WriteAll(painter / name, "painted");
  sample.Run([&](Player& player) {
    frmMain& form = player.Form();
    controls::ListView& list = form.lvwPlugInLists;
    player.Click("lblMainMenu(2)");
    player.AwaitPage(form.fraPlugIns);
    int before = list.Count();
    player.Click("lblOpenPlugInMaker");
    AwaitWindow(player, "Plug-In Maker.");
    Build(player, *LoadedPlugInMaker(), painter / "single.tmp");
    AwaitWindow(player, form.Caption);
    Check(list.Count() == before + 1, "it is in the list");
    int row = list.FindText("Old Painter");
    Tick(player, list, row);
    player.Answer("Yes");
    player.Click("cmdRunPlugIns");
    player.Await("the end of the run", [&] {
      return form.lblUserInfoPlugIn.Caption == "All selected Plug-Ins was successfully executed" &&
             !core::Run::OnStack();
    });
    Select(player, list, row);
    player.Answer("Yes");
    player.Click("cmdRemovePlugIn");
    player.Await("the removed row", [&] { return list.Count() == before; });
    player.Close();
  });
  Check(Listing(painter) == std::map<std::string, long>{{"other.tmp", 7}}, "what the rule names has gone");
  Check(!fs::exists(file) && fs::exists(file.parent_path()), "so has the plug-in, and its category stays");
  return Failures();
}

}  // namespace

std::vector<Scenario> PlugInScenarios() {
  return {{"plug-in", PlugIn}};
}

}  // namespace e2e
