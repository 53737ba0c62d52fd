// The results' menu, by right clicks on rows and the entries' letters.
#include <cstdlib>
#include <wx/defs.h>
#include <wx/textctrl.h>

#include "Hands.h"
#include "Sample.h"
#include "Scenarios.h"
#include "core/Keys.h"
#include "core/Run.h"
#include "core/m_SharedProcedures.h"

namespace fs = std::filesystem;
namespace driver = play::driver;
using play::Player;

namespace e2e {

namespace {

// Whatever is opened goes to a program that only writes down what it was given.
void AssociateWithLog(const Sample& sample, const fs::path& log) {
  const std::string types[] = {"text/plain", "application/octet-stream", "application/x-trash",
                               "inode/directory"};
  std::string list, defaults = "[Default Applications]\n";
  for (const std::string& type : types) {
    list += type + ";";
    defaults += type + "=opener.desktop\n";
  }
  fs::path opener = sample.root / "opener";
  WriteAll(opener, "#!/bin/sh\nprintf '%s\\n' \"$1\" >> '" + log.string() + "'\n");
  fs::permissions(opener, fs::perms::owner_all);
  WriteAll(sample.root / "share/applications/opener.desktop",
           "[Desktop Entry]\nType=Application\nName=Opener\nExec=" + opener.string() +
               " %f\nMimeType=" + list + "\n");
  WriteAll(sample.root / "config/mimeapps.list", defaults);
  setenv("XDG_DATA_HOME", (sample.root / "share").c_str(), 1);
  setenv("XDG_CONFIG_HOME", (sample.root / "config").c_str(), 1);
}

int ResultsMenu() {
  Sample sample;
  fs::path log = sample.root / "opened";
  AssociateWithLog(sample, log);
  std::string excluded;
  sample.Run([&](Player& player) {
    frmMain& form = player.Form();
    controls::ListView& rows = form.lvwFilesResultsBrasmir;
    player.OpenScanPage();
    player.Scan();
    player.OpenResults();
    const int count = rows.Count();
    std::string file = rows.Path(2);
    fs::path real = sample.Native(file);
    WriteAll(real, "what is in it\n");

    ChooseFromMenu(player, 2, 'o');
    player.Await("the opened file", [&] { return ReadAll(log) == real.string() + "\n"; });
    ChooseFromMenu(player, 2, 'v');
    AwaitWindow(player, file);
    Check(static_cast<wxTextCtrl*>(driver::Find("Content"))->GetValue() == "what is in it\n",
          "the viewer shows the file");
    driver::Press(WXK_ESCAPE);
    player.Await("the viewer's end", [&] { return !driver::FindTop(file); });
    ChooseFromMenu(player, 2, 'c');
    player.Await("the opened folder", [&] {
      std::string opened = ReadAll(log);
      return opened == real.string() + "\n" + real.parent_path().string() + "\n" ||
             opened == real.string() + "\n" + real.parent_path().string() + "/\n";
    });
    bool properties = false;
    player.When([still = driver::Stillness()]() mutable { return still.Reached(driver::Find("Close")); },
                [&] {
                  properties = true;
                  driver::Press(WXK_ESCAPE);
                });
    ChooseFromMenu(player, 2, 'p');
    player.Await("the properties", [&] { return properties && !driver::Find("Close"); });

    // An entry that removes works on the ticked row, whichever row the menu was opened on.
    fs::path gone = sample.Native(rows.Path(3));
    Tick(player, rows, 3);
    player.Answer("Yes");
    ChooseFromMenu(player, 1, 'm');
    player.Await("the removed row", [&] { return rows.Count() == count - 1 && !core::Run::OnStack(); });
    Check(!fs::exists(gone) && sample.InBin() == 1, "the ticked file is in the recycle bin");

    player.When([] { return driver::Find("Text") && driver::Find("Text")->HasFocus(); },
                [] {
                  driver::Type("because");
                  driver::Press(WXK_RETURN);
                });
    ChooseFromMenu(player, 2, 'f');
    player.Await("the exclusion", [&] { return form.lvwExcludedFilesBrasmir.FindText(file) > 0; });
    excluded = file;
    player.Close();
  });
  Check(sample.Stored(core::keys::kExcludedFiles, excluded) == "because", "the excluded file is stored");
  return Failures();
}

}  // namespace

std::vector<Scenario> ResultsMenuScenarios() {
  return {{"results-menu", ResultsMenu}};
}

}  // namespace e2e
