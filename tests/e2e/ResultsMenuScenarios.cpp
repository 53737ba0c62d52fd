// Every entry of the results' menu, by right clicks on rows and the entries' letters.
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
namespace driver = view::driver;
using program::Player;

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
  std::string excluded, excludedFolder, handedOver;
  sample.Run([&](Player& player) {
    frmMain& form = player.Form();
    controls::ListView& rows = form.lvwFilesResultsBrasmir;
    player.OpenScanPage();
    player.Scan();
    player.OpenResults();
    const int count = rows.Count();
    std::string file = rows.Path(2), folder(rows.SubItem(2, 1));
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

    // Without a ticked row the three ways to remove do nothing and say nothing.
    for (char method : {'d', 'm', 'e'}) {
      ChooseFromMenu(player, 1, method);
      player.AwaitRest();
    }
    AwaitWindow(player, form.Caption);
    Check(rows.Count() == count && fs::exists(real), "nothing is removed without a tick");
    // They work on the ticked rows, whichever row the menu was opened on.
    int left = count;
    for (char method : {'d', 'm', 'e'}) {
      fs::path gone = sample.Native(rows.Path(3));
      Tick(player, rows, 3);
      player.Answer("Yes");
      ChooseFromMenu(player, 1, method);
      --left;
      player.Await("the removed row", [&] { return rows.Count() == left && !core::Run::OnStack(); });
      Check(!fs::exists(gone), "the ticked file has gone");
      Check(sample.InBin() == (method == 'd' ? 0 : 1), "only the second goes to the recycle bin");
    }

    handedOver = rows.Path(4);
    ChooseFromMenu(player, 4, 'w');
    player.Await("the hand-over",
                 [&] { return ReadAll(sample.Install() / "Temp/Locked Files.txt") == handedOver + "\r\n"; });
    Check(rows.Count() == left, "the row stays");

    excluded = file;
    excludedFolder = folder;
    auto exclude = [&](char letter, controls::ListView& list) {
      player.When([] { return driver::Find("Text") && driver::Find("Text")->HasFocus(); },
                  [] {
                    driver::Type("because");
                    driver::Press(WXK_RETURN);
                  });
      ChooseFromMenu(player, 2, letter);
      player.Await("the exclusion", [&] { return list.FindText(letter == 'f' ? file : folder) > 0; });
      int entries = list.Count();
      // The second time it is refused.
      player.Answer("OK");
      ChooseFromMenu(player, 2, letter);
      AwaitWindow(player, form.Caption);
      Check(list.Count() == entries, "nothing is excluded twice");
    };
    exclude('f', form.lvwExcludedFilesBrasmir);
    exclude('y', form.lvwExcludedFoldersBrasmir);
    player.Close();
  });
  Check(sample.Stored(core::keys::kExcludedFiles, excluded) == "because", "the excluded file is stored");
  Check(sample.Stored(core::keys::kExcludedDirectories, excludedFolder) == "because",
        "the excluded folder is stored");
  return Failures();
}

}  // namespace

std::vector<Scenario> ResultsMenuScenarios() {
  return {{"results-menu", ResultsMenu}};
}

}  // namespace e2e
