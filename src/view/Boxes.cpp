#include "view/Boxes.h"

#include <algorithm>
#include <vector>
#include <wx/artprov.h>
#include <wx/button.h>
#include <wx/clipbrd.h>
#include <wx/dialog.h>
#include <wx/display.h>
#include <wx/scrolwin.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/textctrl.h>
#include <wx/utils.h>

#include "platform/Machine.h"
#include "view/Icons.h"
#include "view/LabelBox.h"
#include "view/Look.h"
#include "view/Native.h"
#include "view/Text.h"

namespace view {

using platform::BoxAnswer;
using platform::BoxButtons;
using platform::BoxIcon;

namespace {

class Dialog : public wxDialog {
 public:
  Dialog(wxTopLevelWindow* parent, const std::string& title)
      : wxDialog(parent, wxID_ANY, ToWx(title), wxDefaultPosition, wxDefaultSize,
                 wxDEFAULT_DIALOG_STYLE | (parent ? 0 : wxSTAY_ON_TOP), "box") {
    SetIcons(WindowIcons());
    all_ = new wxBoxSizer(wxVERTICAL);
    buttons_ = new wxBoxSizer(wxHORIZONTAL);
    buttons_->AddStretchSpacer();
  }

  void AddContent(wxSizer* content) { all_->Add(content, wxSizerFlags(1).Expand().Border(wxALL, Px(16))); }

  wxButton* AddButton(int id, const char* label, const char* name) {
    auto* button =
        new wxButton(this, id, label, wxDefaultPosition, wxDefaultSize, 0, wxDefaultValidator, name);
    button->SetMinSize(wxSize(std::max(Px(88), button->GetBestSize().x), -1));
    button->Bind(wxEVT_BUTTON, [this, id](wxCommandEvent&) { EndModal(id); });
    buttons_->Add(button, wxSizerFlags().Border(wxLEFT, Px(8)));
    return button;
  }

  // Escape and the window's own close button answer `escape`; Enter presses `preset` unless another has the
  // focus.
  int Ask(wxButton* preset, int escape, wxWindow* focus = nullptr) {
    all_->Add(buttons_, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, Px(16)));
    SetSizerAndFit(all_);
    SetEscapeId(escape);
    preset->SetDefault();
    (focus ? focus : preset)->SetFocus();
    if (GetParent() && GetParent()->IsShown())
      CentreOnParent();
    else
      CentreOnScreen();
    // The toolkit has an object for this, but not on every system.
    int busy = 0;
    for (; wxIsBusy(); ++busy) wxEndBusyCursor();
    int answer = ShowModal();
    for (; busy > 0; --busy) wxBeginBusyCursor();
    return answer;
  }

 private:
  wxBoxSizer* all_;
  wxBoxSizer* buttons_;
};

LabelBox* AddText(wxWindow* parent, const wxString& text,
                  controls::LabelStyle style = controls::LabelStyle::Plain, bool fills = false) {
  auto* box = new LabelBox(parent, fills, "message");
  LabelBox::Content content;
  content.text = text;
  content.style = style;
  box->Set(content);
  native::SetAccessible(*box, native::Role::Text, text);
  return box;
}

wxArtID ArtOf(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::Critical:
      return wxART_ERROR;
    case BoxIcon::Exclamation:
      return wxART_WARNING;
    default:
      return wxART_INFORMATION;
  }
}

}  // namespace

BoxAnswer ShowMessage(wxTopLevelWindow* parent, const platform::Box& box) {
  Dialog dialog(parent, box.title);
  wxString text = ToWx(box.text);
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  if (box.icon != BoxIcon::None) {
    auto* icon = new wxStaticBitmap(&dialog, wxID_ANY, native::BoxPicture(ArtOf(box.icon), Px(32)));
    static const char* const kNames[] = {"", "Error", "Warning", "Information"};
    native::SetAccessibleName(*icon, kNames[static_cast<int>(box.icon)]);
    row->Add(icon, wxSizerFlags().Border(wxRIGHT, Px(16)));
  }
  // A report with very long arguments scrolls and leaves the buttons on the screen.
  auto* area =
      new wxScrolledWindow(&dialog, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxVSCROLL | wxBORDER_NONE);
  area->SetScrollRate(0, Px(8));
  auto* inside = new wxBoxSizer(wxVERTICAL);
  inside->Add(AddText(area, text));
  area->SetSizer(inside);
  wxSize wanted = inside->CalcMin();
  wanted.x = std::max(wanted.x, Px(200));
  int most = wxDisplay().GetClientArea().height * 6 / 10;
  if (wanted.y > most) wanted = wxSize(wanted.x + Px(24), most);
  area->SetMinSize(wanted);
  row->Add(area, wxSizerFlags(1).CenterVertical());
  dialog.AddContent(row);
  dialog.Bind(wxEVT_CHAR_HOOK, [&](wxKeyEvent& event) {
    if (event.ControlDown() && event.GetKeyCode() == 'C' && wxTheClipboard->Open()) {
      wxTheClipboard->SetData(new wxTextDataObject(text));
      wxTheClipboard->Close();
    } else {
      event.Skip();
    }
  });
  if (box.buttons == BoxButtons::Ok) {
    dialog.Ask(dialog.AddButton(wxID_OK, "&OK", "OK"), wxID_OK);
    return BoxAnswer::Ok;
  }
  dialog.AddButton(wxID_YES, "&Yes", "Yes");
  // A question of this program is about removing, restoring or running something.
  wxButton* no = dialog.AddButton(wxID_NO, "&No", "No");
  return dialog.Ask(no, wxID_NO) == wxID_YES ? BoxAnswer::Yes : BoxAnswer::No;
}

std::string AskText(wxTopLevelWindow* parent, const std::string& prompt, const std::string& title,
                    const std::string& defaultText) {
  Dialog dialog(parent, title);
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(AddText(&dialog, ToWx(prompt)), wxSizerFlags().Border(wxBOTTOM, Px(8)));
  auto* text = new wxTextCtrl(&dialog, wxID_ANY, ToWx(defaultText), wxDefaultPosition, wxSize(Px(360), -1), 0,
                              wxDefaultValidator, "Text");
  native::SetAccessibleName(*text, ToWx(prompt));
  text->SelectAll();
  column->Add(text, wxSizerFlags().Expand());
  dialog.AddContent(column);
  wxButton* ok = dialog.AddButton(wxID_OK, "&OK", "OK");
  dialog.AddButton(wxID_CANCEL, "&Cancel", "Cancel");
  return dialog.Ask(ok, wxID_CANCEL, text) == wxID_OK ? FromWx(text->GetValue()) : std::string();
}

bool ShowFileProperties(wxTopLevelWindow* parent, const std::string& path) {
  platform::Machine& machine = platform::CurrentMachine();
  platform::EntryInfo info = machine.Files().Look(path);
  if (info.kind == platform::EntryKind::Missing || info.kind == platform::EntryKind::Unreadable) return false;

  std::size_t slash = path.rfind('\\');
  std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
  std::string folder = slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
  auto date = [&](platform::Moment moment) {
    platform::DateTime local = machine.GetClock().ToLocal(moment);
    return machine.GetLocale().ShortDate(local) + " " + machine.GetLocale().LongTime(local);
  };
  std::string attributes;
  static constexpr std::pair<std::uint32_t, const char*> kNames[] = {{platform::kReadOnly, "Read-only"},
                                                                     {platform::kHidden, "Hidden"},
                                                                     {platform::kSystem, "System"},
                                                                     {platform::kArchive, "Archive"}};
  for (auto [bit, word] : kNames)
    if (info.attributes & bit) attributes += (attributes.empty() ? "" : ", ") + std::string(word);
  static constexpr const char* kKinds[] = {"", "File", "Folder", "Link", "Link to a folder", ""};

  std::vector<std::pair<const char*, std::string>> lines{{"Name:", name}, {"Folder:", folder}};
  lines.emplace_back("Kind:", kKinds[static_cast<int>(info.kind)]);
  if (info.kind == platform::EntryKind::File) {
    std::string digits = std::to_string(info.size);
    for (std::size_t at = digits.size(); at > 3; at -= 3) digits.insert(at - 3, 1, ' ');
    lines.emplace_back("Size:", digits + " bytes");
  }
  lines.emplace_back("Created:", date(info.created));
  lines.emplace_back("Modified:", date(info.modified));
  lines.emplace_back("Accessed:", date(info.accessed));
  lines.emplace_back("Attributes:", attributes.empty() ? "None" : attributes);

  Dialog dialog(parent, "Properties of " + name);
  auto* grid = new wxFlexGridSizer(2, wxSize(Px(16), Px(8)));
  for (const auto& [caption, value] : lines) {
    grid->Add(AddText(&dialog, caption, controls::LabelStyle::Quiet));
    grid->Add(AddText(&dialog, ToWxLine(value)));
  }
  dialog.AddContent(grid);
  dialog.Ask(dialog.AddButton(wxID_OK, "&Close", "Close"), wxID_OK);
  return true;
}

}  // namespace view
