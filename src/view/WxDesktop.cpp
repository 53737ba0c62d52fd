#include "view/WxDesktop.h"

#include <thread>
#include <wx/dirdlg.h>
#include <wx/display.h>
#include <wx/filedlg.h>
#include <wx/filename.h>
#include <wx/menu.h>
#include <wx/utils.h>

#include "platform/Machine.h"
#include "view/Boxes.h"
#include "view/ContentViewer.h"
#include "view/FormWindow.h"
#include "view/Icons.h"
#include "view/Native.h"
#include "view/Screen.h"
#include "view/Text.h"

namespace view {

using platform::BoxAnswer;

WxDesktop::WxDesktop(Surroundings surroundings)
    : screen_(std::make_unique<Screen>(std::move(surroundings))), nextFrame_(&screen_->NextFrame()) {}

WxDesktop::~WxDesktop() = default;

BoxAnswer WxDesktop::MessageBox(const platform::Box& box) {
  bool asks = box.buttons == platform::BoxButtons::YesNo;
  if (screen_->Ending()) return asks ? BoxAnswer::No : BoxAnswer::Ok;
  screen_->PaintAll();
  Screen::Scope scope(*screen_, LetIn::Nothing);
  return ShowMessage(screen_->ActiveWindow(), box);
}

std::string WxDesktop::InputBox(const std::string& prompt, const std::string& title,
                                const std::string& defaultText) {
  if (screen_->Ending()) return {};
  screen_->PaintAll();
  Screen::Scope scope(*screen_, LetIn::Nothing);
  return AskText(screen_->ActiveWindow(), prompt, title, defaultText);
}

namespace {

// Shows the picker until a place on one of the computer's drives is chosen, or none.
template <class Picker>
std::string Browse(WxDesktop& desktop, Picker& picker) {
  const Surroundings& around = desktop.GetScreen().Around();
  while (picker.ShowModal() == wxID_OK) {
    std::string path = around.fromNative ? around.fromNative(FromWx(picker.GetPath())) : std::string();
    if (!path.empty()) return path;
    desktop.MessageBox({platform::BoxIcon::Information, platform::BoxButtons::Ok, "Brasmir",
                        "This place lies on none of the computer's drives\r\n" + FromWx(picker.GetPath())});
  }
  return {};
}

}  // namespace

std::string WxDesktop::BrowseForFolder() {
  if (screen_->Ending()) return {};
  screen_->PaintAll();
  Screen::Scope scope(*screen_, LetIn::Nothing);
  wxDirDialog picker(screen_->ActiveWindow(), "Select a folder", ToWx(screen_->Around().browseRoot),
                     wxDD_DEFAULT_STYLE | wxDD_DIR_MUST_EXIST);
  return Browse(*this, picker);
}

std::string WxDesktop::BrowseForFile() {
  if (screen_->Ending()) return {};
  screen_->PaintAll();
  Screen::Scope scope(*screen_, LetIn::Nothing);
  wxFileDialog picker(screen_->ActiveWindow(), "Select a file", ToWx(screen_->Around().browseRoot),
                      wxString(), wxFileSelectorDefaultWildcardStr, wxFD_OPEN | wxFD_FILE_MUST_EXIST);
  return Browse(*this, picker);
}

long WxDesktop::OpenDocument(const std::string& path) {
  const auto& toNative = screen_->Around().toNative;
  std::string native = toNative ? toNative(path) : std::string();
  if (native.empty() || platform::CurrentMachine().Files().Look(path).kind == platform::EntryKind::Missing)
    return 2;
  return native::OpenWithDesktop(native) ? 33 : 31;
}

long WxDesktop::ViewContent(const std::string& path) {
  return ContentViewer::Open(*screen_, path) ? 0 : 1;
}

long WxDesktop::OpenFolder(const std::string& path) {
  // Folders come with their trailing backslash.
  std::string folder = path;
  if (folder.size() > 3 && folder.back() == '\\') folder.pop_back();
  return OpenDocument(folder) > 32 ? 0 : 1;
}

long WxDesktop::ShowProperties(const std::string& path) {
  screen_->PaintAll();
  Screen::Scope scope(*screen_, LetIn::Nothing);
  if (platform::CurrentMachine().Files().Look(path).kind == platform::EntryKind::Missing) return 0;
  const auto& toNative = screen_->Around().toNative;
  if (auto shown = native::ShowSystemProperties(screen_->ActiveWindow(), toNative ? toNative(path) : path))
    return *shown ? 1 : 0;
  return ShowFileProperties(screen_->ActiveWindow(), path) ? 1 : 0;
}

void WxDesktop::Yield(bool allInput) {
  screen_->Yield(allInput ? LetIn::All : LetIn::StopControl);
}

void WxDesktop::Refresh(controls::Control& control) {
  if (std::chrono::steady_clock::now() < screen_->NextPaint() || !control.Owner()) return;
  if (FormWindow* window = screen_->WindowOf(*control.Owner())) screen_->Paint(*window);
}

void WxDesktop::Refresh(controls::Form& form) {
  if (FormWindow* window = screen_->WindowOf(form)) screen_->Paint(*window);
}

void WxDesktop::SetStopControl(controls::Control* control) {
  screen_->SetStopControl(control);
}

void WxDesktop::Sleep(int milliseconds) {
  screen_->PaintAll();
  std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

void WxDesktop::SetPointer(platform::Pointer pointer) {
  screen_->SetBusy(pointer == platform::Pointer::Hourglass);
}

void WxDesktop::ShowPopup(controls::Form& form, const controls::PopupMenu& design) {
  FormWindow* window = screen_->WindowOf(form);
  if (!window || !window->IsShown()) return;
  wxMenu menu;
  for (std::size_t i = 0; i < design.Entries.size(); ++i) {
    const auto& entry = design.Entries[i];
    if (entry.Caption.empty()) {
      menu.AppendSeparator();
      continue;
    }
    auto* item = new wxMenuItem(&menu, static_cast<int>(i) + 1, ToWxLabel(entry.Caption, entry.Mnemonic));
    if (wxBitmapBundle picture = PictureBundle(entry.Picture, 16); picture.IsOk()) item->SetBitmap(picture);
    menu.Append(item);
  }
  int chosen = wxID_NONE;
  {
    Screen::Scope scope(*screen_, LetIn::Nothing);
    // The release of the button that asked for the menu would close it again.
    while (wxGetMouseState().RightIsDown()) {
      native::ProcessEventsOnly(nullptr);
      wxMilliSleep(1);
    }
    native::ProcessEventsOnly(nullptr);
    // The place is told: what opened the menu has been handled, and the toolkit would look for it.
    wxPoint place = window->ScreenToClient(screen_->popupPlace.value_or(wxGetMousePosition()));
    chosen = window->GetPopupMenuSelectionFromUser(menu, place);
  }
  if (chosen < 1 || chosen > static_cast<int>(design.Entries.size())) return;
  // After what opened the menu has returned.
  controls::Form* target = &form;
  screen_->Post(*window, nullptr,
                [target, name = design.Name, chosen,
                 caption = design.Entries[static_cast<std::size_t>(chosen) - 1].Caption] {
                  target->MenuClick(name, chosen, caption);
                });
}

platform::Size WxDesktop::ScreenSize() {
  wxRect screen = wxDisplay().GetGeometry();
  return {screen.width, screen.height};
}

long WxDesktop::SetScreenResolution(int width, int height) {
  return native::SetScreenResolution(width, height);
}

void WxDesktop::Show(controls::Form& form) {
  screen_->MakeWindow(form).BringUp();
}

void WxDesktop::Hide(controls::Form& form) {
  form.Visible = false;
  if (FormWindow* window = screen_->WindowOf(form)) window->Hide();
}

void WxDesktop::Activate(controls::Form& form) {
  screen_->MakeWindow(form).BringUp();
}

void WxDesktop::Minimise(controls::Form& form) {
  FormWindow& window = screen_->MakeWindow(form);
  window.BringUp();
  window.Iconize(true);
}

void WxDesktop::Move(controls::Form& form) {
  if (FormWindow* window = screen_->WindowOf(form)) window->Place();
}

void WxDesktop::Forget(controls::Form& form) {
  screen_->Forget(form);
}

bool WxDesktop::AddTrayIcon(controls::Form& form, const std::string& picture, const std::string& tip) {
  return screen_->AddTrayIcon(form, picture, tip);
}

void WxDesktop::Quit() {
  screen_->Quit();
}

}  // namespace view
