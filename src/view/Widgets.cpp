// The widgets of the plain controls.
#include <algorithm>
#include <cmath>
#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/combobox.h>
#include <wx/gauge.h>
#include <wx/scrolwin.h>
#include <wx/spinctrl.h>
#include <wx/textctrl.h>

#include "view/ControlView.h"
#include "view/FormWindow.h"
#include "view/Icons.h"
#include "view/LabelBox.h"
#include "view/ListPane.h"
#include "view/Look.h"
#include "view/Native.h"
#include "view/Panels.h"
#include "view/PictureViews.h"
#include "view/Text.h"

namespace view {

using controls::LabelStyle;

namespace {

constexpr int kNarrowestButton = 88;

class LabelView : public ControlView {
 public:
  LabelView(FormWindow& owner, wxWindow* parent, controls::Label& label, bool fills)
      : ControlView(owner, label), label_(label) {
    box_ = new LabelBox(parent, fills, ToWx(label.Name()));
    box_->onClick = [this] { owner_.Click(label_); };
    box_->onEnter = [this] {
      if (label_.MouseMove) owner_.Act(label_, [this] { RaiseMove(); });
    };
    box_->onLeave = [this] {
      if (auto* panel = dynamic_cast<controls::Panel*>(label_.Parent()); panel && panel->MouseMove)
        owner_.Act(*panel, [panel] { panel->MouseMove(); });
    };
    box_->onGrow = [this] { owner_.RequestLayout(box_); };
    box_->onCut = [this](const wxString& whole) {
      if (whole == cut_ || !label_.ToolTip.Get().empty()) return;
      cut_ = whole;
      if (whole.empty())
        box_->UnsetToolTip();
      else
        box_->SetToolTip(whole);
    };
  }

  wxWindow* Window() override { return box_; }
  bool TakesEnter() const override { return box_->Clickable(); }
  bool KeepsHeight() const override { return false; }
  wxRect HotRect() override {
    wxRect area = box_->HotArea();
    area.SetPosition(box_->ClientToScreen(area.GetPosition()));
    return area;
  }
  void ThemeChanged() override { box_->ThemeChanged(); }

 protected:
  void SyncContent() override {
    LabelBox::Content content;
    content.text = ToWx(label_.Caption.Get());
    content.style = label_.Style;
    content.align = label_.Alignment;
    content.foreColor = label_.ForeColor;
    content.backColor = label_.BackColor;
    content.border = label_.Border;
    content.picture = label_.Picture;
    content.mnemonic = label_.Mnemonic;
    LabelStyle style = content.style;
    box_->SetClickable(style == LabelStyle::Link || style == LabelStyle::MenuEntry ||
                       static_cast<bool>(label_.Click));
    if (box_->Set(content)) owner_.RequestLayout(box_);
  }
  void SyncName() override {
    auto role = label_.Style == LabelStyle::MenuEntry ? native::Role::MenuItem
                : box_->Clickable()                   ? native::Role::Link
                                                      : native::Role::Text;
    native::SetAccessible(*box_, role, ToWx(SpokenName()));
  }

 private:
  void RaiseMove() {
    if (owner_.GetForm()->Reachable(label_)) label_.MouseMove();
  }

  controls::Label& label_;
  LabelBox* box_;
  wxString cut_;
};

class ButtonView : public ControlView {
 public:
  ButtonView(FormWindow& owner, wxWindow* parent, controls::Button& button)
      : ControlView(owner, button), control_(button), onBand_(dynamic_cast<Band*>(parent) != nullptr) {
    long style = button.Caption.Get().empty() ? wxBU_EXACTFIT : 0;
    if (onBand_) style |= wxBORDER_NONE;
    button_ = native::MakeButton(parent, Label(), style, ToWx(button.Name()));
    if (button.Primary) native::MarkPrimary(*button_);
    if (onBand_) native::MarkFlat(*button_);
    button_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { owner_.Click(control_); });
  }

  wxWindow* Window() override { return button_; }
  bool TakesEnter() const override { return true; }
  void ThemeChanged() override { picture_.clear(); }

 protected:
  void SyncContent() override {
    // A picture alone where there is no caption.
    bool onDark = DarkTheme() || onBand_ || (control_.Primary && control_.Enabled);
    if (control_.Picture.Get() != picture_ || onDark != onDark_) {
      picture_ = control_.Picture;
      onDark_ = onDark;
      // What leads on stands behind the text, as it points there.
      bool behind = picture_ == "ui-next";
      int distance = control_.Caption.Get().empty() ? 0 : 4;
      button_->SetBitmap(PictureBundle(picture_, 16, onDark, behind ? distance : 0, behind ? 0 : distance),
                         behind ? wxRIGHT : wxLEFT);
    }
    if (wxString label = Label(); label != button_->GetLabel()) button_->SetLabel(label);
    wxSize best = button_->GetBestSize();
    // Grows with a longer caption and never shrinks, so that its neighbours stay where they are.
    int width = std::max({widest_, best.x, control_.Caption.Get().empty() ? 0 : Px(kNarrowestButton)});
    if (width == widest_) return;
    widest_ = width;
    button_->SetMinSize(wxSize(width, -1));
    owner_.RequestLayout(button_);
  }

 private:
  wxString Label() const { return ToWxLabel(control_.Caption.Get(), control_.Mnemonic); }

  controls::Button& control_;
  wxButton* button_;
  bool onBand_;
  std::string picture_;
  bool onDark_ = false;
  int widest_ = 0;
};

class CheckView : public ControlView {
 public:
  CheckView(FormWindow& owner, wxWindow* parent, controls::CheckBox& box)
      : ControlView(owner, box), control_(box) {
    box_ = new wxCheckBox(parent, wxID_ANY, Label(), wxDefaultPosition, wxDefaultSize, 0, wxDefaultValidator,
                          ToWx(box.Name()));
    box_->Bind(wxEVT_CHECKBOX, [this](wxCommandEvent& event) {
      bool checked = event.IsChecked();
      owner_.Act(control_, [this, checked] { owner_.GetForm()->UserCheck(control_, checked); });
    });
  }
  wxWindow* Window() override { return box_; }

 protected:
  void SyncContent() override {
    if (wxString label = Label(); label != box_->GetLabel()) {
      box_->SetLabel(label);
      owner_.RequestLayout(box_);
    }
    bool checked = control_.Value != 0;
    if (box_->GetValue() != checked) box_->SetValue(checked);
  }

 private:
  wxString Label() const { return ToWxLabel(control_.Caption.Get(), control_.Mnemonic); }
  controls::CheckBox& control_;
  wxCheckBox* box_;
};

class TextView : public ControlView {
 public:
  TextView(FormWindow& owner, wxWindow* parent, controls::TextBox& box)
      : ControlView(owner, box), control_(box) {
    long style = (box.MultiLine ? wxTE_MULTILINE : wxTE_PROCESS_ENTER) | (box.ReadOnly ? wxTE_READONLY : 0);
    text_ = new wxTextCtrl(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, style,
                           wxDefaultValidator, ToWx(box.Name()));
    // As high as a combo box beside it.
    int height = std::max(text_->GetBestSize().y, native::NaturalHeight(*text_));
    text_->SetMinSize(wxSize(Px(160), box.MultiLine ? Px(72) : height));
    text_->Bind(wxEVT_TEXT, [this](wxCommandEvent&) {
      std::string typed = FromWx(text_->GetValue());
      bool taken = owner_.LetsIn(control_) && owner_.GetForm()->UserType(control_, typed);
      if (!taken) control_.Touch();
    });
  }
  wxWindow* Window() override { return text_; }
  bool TakesEnter() const override { return control_.MultiLine; }
  bool KeepsHeight() const override { return !control_.MultiLine; }

 protected:
  void SyncContent() override {
    if (wxString hint = ToWx(control_.Hint.Get()); hint != text_->GetHint()) text_->SetHint(hint);
    wxString value = ToWx(control_.Text.Get());
    if (control_.MultiLine) value.Replace("\r\n", "\n");
    if (value != text_->GetValue()) text_->ChangeValue(value);
  }

 private:
  controls::TextBox& control_;
  wxTextCtrl* text_;
};

class ComboView : public ControlView {
 public:
  ComboView(FormWindow& owner, wxWindow* parent, controls::ComboBox& box)
      : ControlView(owner, box), control_(box) {
    wxString name = ToWx(box.Name());
    if (box.Editable) {
      combo_ = new wxComboBox(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, 0, nullptr, 0,
                              wxDefaultValidator, name);
      combo_->Bind(wxEVT_COMBOBOX, &ComboView::OnPick, this);
      combo_->Bind(wxEVT_TEXT, [this](wxCommandEvent&) {
        std::string typed = FromWx(combo_->GetValue());
        bool taken = owner_.LetsIn(control_) && owner_.GetForm()->UserType(control_, typed);
        if (!taken) control_.Touch();
      });
    } else {
      choice_ = new wxChoice(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, 0, nullptr, 0,
                             wxDefaultValidator, name);
      choice_->Bind(wxEVT_CHOICE, &ComboView::OnPick, this);
    }
    Window()->SetMinSize(wxSize(Px(160), -1));
  }
  wxWindow* Window() override { return combo_ ? static_cast<wxWindow*>(combo_) : choice_; }
  bool TakesEnter() const override { return choice_ != nullptr; }

 protected:
  void SyncContent() override {
    if (control_.Items() != items_) {
      items_ = control_.Items();
      wxArrayString items;
      for (const std::string& item : items_) items.push_back(ToWxLine(item));
      if (combo_)
        combo_->Set(items);
      else
        choice_->Set(items);
    }
    if (combo_) {
      wxString value = ToWx(control_.Text());
      // The index first: it says which of two equal texts is meant.
      if (control_.ListIndex() != combo_->GetSelection() && control_.ListIndex() >= 0)
        combo_->SetSelection(control_.ListIndex());
      if (combo_->GetValue() != value) combo_->ChangeValue(value);
    } else if (choice_->GetSelection() != control_.ListIndex()) {
      choice_->SetSelection(control_.ListIndex());
    }
  }

 private:
  void OnPick(wxCommandEvent& event) {
    int index = event.GetSelection();
    owner_.Act(control_, [this, index] { owner_.GetForm()->UserPick(control_, index); });
  }

  controls::ComboBox& control_;
  wxComboBox* combo_ = nullptr;
  wxChoice* choice_ = nullptr;
  std::vector<std::string> items_;
};

class SpinView : public ControlView {
 public:
  SpinView(FormWindow& owner, wxWindow* parent, controls::SpinBox& box)
      : ControlView(owner, box), control_(box) {
    spin_ = new wxSpinCtrl(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, wxSP_ARROW_KEYS,
                           static_cast<int>(box.Min), static_cast<int>(box.Max),
                           static_cast<int>(box.Value.Get()), ToWx(box.Name()));
    spin_->Bind(wxEVT_SPINCTRL, [this](wxSpinEvent& event) {
      int value = event.GetPosition();
      owner_.Act(control_, [this, value] { owner_.GetForm()->UserSpin(control_, value); });
    });
  }
  wxWindow* Window() override { return spin_; }

 protected:
  void SyncContent() override {
    int value = static_cast<int>(std::lround(control_.Value.Get()));
    if (spin_->GetValue() != value) spin_->SetValue(value);
  }

 private:
  controls::SpinBox& control_;
  wxSpinCtrl* spin_;
};

class GaugeView : public ControlView {
 public:
  GaugeView(FormWindow& owner, wxWindow* parent, controls::ProgressBar& bar)
      : ControlView(owner, bar), control_(bar) {
    gauge_ = new wxGauge(parent, wxID_ANY, kRange, wxDefaultPosition, wxDefaultSize,
                         wxGA_HORIZONTAL | wxGA_SMOOTH, wxDefaultValidator, ToWx(bar.Name()));
    gauge_->SetMinSize(wxSize(Px(120), -1));
  }
  wxWindow* Window() override { return gauge_; }

 protected:
  void SyncContent() override {
    double share = control_.Max > 0 ? control_.Value / control_.Max : 0;
    int value = static_cast<int>(std::lround(std::clamp(share, 0.0, 1.0) * kRange));
    if (gauge_->GetValue() != value) gauge_->SetValue(value);
  }

 private:
  static constexpr int kRange = 1000;
  controls::ProgressBar& control_;
  wxGauge* gauge_;
};

// A Frame or a Panel; its children are added by the layout. A page scrolls where its window is too small for
// it.
class AreaView : public ControlView {
 public:
  AreaView(FormWindow& owner, wxWindow* parent, controls::Control& control, const controls::Layout& layout,
           bool page)
      : ControlView(owner, control) {
    wxString name = ToWx(control.Name());
    const controls::Label* entry = FirstEntry(layout);
    if (page) {
      auto* scrolled = new wxScrolledWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                            wxTAB_TRAVERSAL | wxBORDER_NONE | wxHSCROLL | wxVSCROLL, name);
      scrolled->SetScrollRate(Px(8), Px(8));
      window_ = scrolled;
    } else if (entry) {
      window_ = new MenuGround(parent, name, ToWx(entry->BackColor));
    } else {
      window_ = new wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                            wxTAB_TRAVERSAL | wxBORDER_NONE, name);
    }
    if (auto* panel = dynamic_cast<controls::Panel*>(&control))
      window_->Bind(wxEVT_ENTER_WINDOW, [this, panel](wxMouseEvent& event) {
        event.Skip();
        if (panel->MouseMove) owner_.Act(*panel, [panel] { panel->MouseMove(); });
      });
  }
  wxWindow* Window() override { return window_; }
  bool KeepsHeight() const override { return false; }

 protected:
  void SyncContent() override {}
  void SyncName() override {}

 private:
  static const controls::Label* FirstEntry(const controls::Layout& layout) {
    auto* label = layout.control ? dynamic_cast<const controls::Label*>(layout.control) : nullptr;
    // The current entry, which has a border, stands out.
    if (label && label->Style == LabelStyle::MenuEntry && !label->Border) return label;
    for (const auto& child : layout.children)
      if (auto* found = FirstEntry(child)) return found;
    return nullptr;
  }

  wxWindow* window_;
};

}  // namespace

std::unique_ptr<ControlView> MakeControlView(FormWindow& owner, wxWindow* parent, controls::Control& control,
                                             const controls::Layout& layout, bool fills, bool page) {
  using controls::Kind;
  switch (control.GetKind()) {
    case Kind::Label:
      return std::make_unique<LabelView>(owner, parent, static_cast<controls::Label&>(control), fills);
    case Kind::Button:
      return std::make_unique<ButtonView>(owner, parent, static_cast<controls::Button&>(control));
    case Kind::CheckBox:
      return std::make_unique<CheckView>(owner, parent, static_cast<controls::CheckBox&>(control));
    case Kind::TextBox:
      return std::make_unique<TextView>(owner, parent, static_cast<controls::TextBox&>(control));
    case Kind::ComboBox:
      return std::make_unique<ComboView>(owner, parent, static_cast<controls::ComboBox&>(control));
    case Kind::SpinBox:
      return std::make_unique<SpinView>(owner, parent, static_cast<controls::SpinBox&>(control));
    case Kind::ProgressBar:
      return std::make_unique<GaugeView>(owner, parent, static_cast<controls::ProgressBar&>(control));
    case Kind::Picture:
      return MakePictureView(owner, parent, static_cast<controls::Picture&>(control));
    case Kind::ListView:
      return std::make_unique<ListPane>(owner, parent, static_cast<controls::ListView&>(control));
    case Kind::Animation:
      return MakeAnimationView(owner, parent, static_cast<controls::Animation&>(control));
    case Kind::Chart:
      return MakeChartView(owner, parent, static_cast<controls::Chart&>(control));
    case Kind::Frame:
    case Kind::Panel:
      break;
  }
  return std::make_unique<AreaView>(owner, parent, control, layout, page);
}

}  // namespace view
