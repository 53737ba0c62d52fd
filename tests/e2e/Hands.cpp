#include "Hands.h"

#include <fstream>
#include <wx/defs.h>
// After what its macros would rename.
#include <X11/Xatom.h>
#include <X11/Xlib.h>

namespace e2e {

namespace driver = play::driver;

namespace {

// The toolkit doesn't know the titles of the system's pickers, but the screen knows which window has the
// keys.
bool HasTheKeys(const std::string& title) {
  static Display* screen = XOpenDisplay(nullptr);
  Atom type;
  int format;
  unsigned long count = 0, left;
  unsigned char* data = nullptr;
  XGetWindowProperty(screen, DefaultRootWindow(screen), XInternAtom(screen, "_NET_ACTIVE_WINDOW", False), 0,
                     1, False, XA_WINDOW, &type, &format, &count, &left, &data);
  if (!data) return false;
  char* name = nullptr;
  // The window may be going just now.
  auto before = XSetErrorHandler([](Display*, XErrorEvent*) { return 0; });
  if (count == 1) XFetchName(screen, *reinterpret_cast<Window*>(data), &name);
  XSetErrorHandler(before);
  bool has = name && name == title;
  if (name) XFree(name);
  XFree(data);
  return has;
}

// Presses again and again until what has the keys is gone: it may not have taken the first time.
void PressUntilGone(play::Player& player, int key, std::function<bool()> there,
                    std::chrono::seconds patience) {
  driver::Press(key);
  auto pressed = std::chrono::steady_clock::now();
  player.When([=] { return !there() || std::chrono::steady_clock::now() - pressed > patience; },
              [=, &player] {
                if (there()) PressUntilGone(player, key, there, patience);
              });
}

}  // namespace

void Pick(play::Player& player, const std::string& title, const std::filesystem::path& native) {
  // It fills its list once it is there.
  auto since = std::chrono::steady_clock::now();
  player.When(
      [since, title]() mutable {
        auto now = std::chrono::steady_clock::now();
        if (!HasTheKeys(title)) since = now;
        return now - since > std::chrono::milliseconds(500);
      },
      [&player, title, native] {
        driver::Type(native.string());
        // The picker looks at the disk before it takes a path.
        PressUntilGone(
            player, WXK_RETURN, [title] { return HasTheKeys(title); }, std::chrono::seconds(3));
      });
}

void ClickIn(play::Player& player, controls::Form& form, controls::Control& control) {
  driver::Stillness still;
  player.Await(control.Name().c_str(), [&] {
    return still.Reached(form.Reachable(control) ? driver::Find(control.Name()) : nullptr);
  });
  driver::Click(control.Name());
}

void Tick(play::Player& player, controls::ListView& list, int row) {
  // A list that has just been filled shows its rows with the next frame.
  player.Await("the row's check box", [&] { return driver::ClickRow(list.Name(), row, true); });
  player.Await("the tick", [&] { return list.Checked(row); });
}

void Select(play::Player& player, controls::ListView& list, int row) {
  player.Await("the row", [&] { return driver::ClickRow(list.Name(), row); });
  player.Await("the selected row", [&] { return list.SelectedIndex() == row; });
}

void DeleteDirectly(play::Player& player) {
  frmMain& form = player.Form();
  player.SetOption(form.lblCleaningOptionsBrasmir, form.fraCleaningBrasmir,
                   form.chkDeleteFilesCleaningBrasmir, 1);
}

void UseBackup(play::Player& player) {
  frmMain& form = player.Form();
  player.Click("lblMainMenu(4)");
  player.AwaitPage(form.fraBackupRestore);
  player.Click("chkUseBackupCleaningBrasmir");
  player.Await("the tick", [&] { return form.chkUseBackupCleaningBrasmir.Value == 1; });
  player.OpenScanPage();
}

void WriteAll(const std::filesystem::path& path, const std::string& content) {
  std::filesystem::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << content;
}

void ChooseFromMenu(play::Player& player, int row, char letter) {
  AwaitWindow(player, player.Form().Caption);
  bool chosen = false;
  player.When(driver::MenuIsOpen, [&chosen, &player, letter] {
    chosen = true;
    PressUntilGone(player, letter, driver::MenuIsOpen, std::chrono::seconds(2));
  });
  player.Await("the row", [&] { return driver::RightClickRow("lvwFilesResultsBrasmir", row); });
  player.Await("the menu's end", [&] { return chosen && !driver::MenuIsOpen(); });
}

}  // namespace e2e
