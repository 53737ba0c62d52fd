#include "view/Arrange.h"

#include <algorithm>
#include <wx/sizer.h>
#include <wx/statbmp.h>

#include "view/FormWindow.h"
#include "view/Icons.h"
#include "view/LabelBox.h"
#include "view/Look.h"
#include "view/Native.h"
#include "view/Panels.h"
#include "view/Text.h"

namespace view {

using controls::Align;
using controls::Kind;
using controls::LabelStyle;
using controls::Layout;
using Type = controls::Layout::Type;

namespace {

bool IsSpace(const Layout& node) {
  return node.type == Type::Space;
}

LabelStyle StyleOf(const Layout& node) {
  if (node.type == Type::Text) return node.style;
  if (node.type == Type::Item && node.control->GetKind() == Kind::Label)
    return static_cast<const controls::Label*>(node.control)->Style;
  return LabelStyle::Plain;
}

bool IsText(const Layout& node) {
  return node.type == Type::Text || (node.type == Type::Item && node.control->GetKind() == Kind::Label);
}

bool Contains(const Layout& node) {
  switch (node.type) {
    case Type::Column:
    case Type::Row:
    case Type::Grid:
    case Type::Group:
    case Type::Stack:
    case Type::Rule:
      return true;
    case Type::Item: {
      Kind kind = node.control->GetKind();
      return kind == Kind::Frame || kind == Kind::Panel || kind == Kind::ListView ||
             kind == Kind::ProgressBar;
    }
    default:
      return false;
  }
}

class Arranger {
 public:
  explicit Arranger(FormWindow& owner) : owner_(owner) {}

  // Where a node stands: what it may do with the width that there is.
  struct Place {
    bool given = true;   // the width of what surrounds it comes from outside
    bool fills = false;  // it takes all of that width
    bool page = false;   // a frame in a stack
  };

  // Either a window or a sizer.
  struct Piece {
    wxWindow* window = nullptr;
    wxSizer* sizer = nullptr;
    bool keepsHeight = false;
  };

  void Fill(wxWindow* parent, wxSizer* sizer, const Layout& node, Place place) {
    if (node.type == Type::Grid) {
      FillGrid(parent, sizer, node, place);
      return;
    }
    bool row = node.type == Type::Row;
    const Layout* before = nullptr;
    for (const Layout& child : node.children) {
      if (IsSpace(child)) {
        if (child.stretch)
          sizer->AddStretchSpacer(child.stretch);
        else
          sizer->AddSpacer(Px(child.size));
      } else {
        AddChild(parent, sizer, child, node, row, place,
                 before && !IsSpace(*before) && node.type != Type::Stack ? node.gap : 0);
      }
      before = &child;
    }
  }

 private:
  void AddChild(wxWindow* parent, wxSizer* sizer, const Layout& child, const Layout& node, bool row,
                Place place, int gap) {
    bool stack = node.type == Type::Stack;
    bool link = StyleOf(child) == LabelStyle::Link;
    Place inner;
    inner.page = stack;
    // In a column texts and containers take its width anyway, so that long texts can wrap; a link only as
    // wide as its text.
    bool across = child.expand || stack ||
                  (child.align == Align::Left && (Contains(child) || (IsText(child) && !link)));
    inner.given = row ? place.given && child.stretch > 0 : place.given;
    inner.fills = inner.given && (row || across);
    Piece piece = Make(parent, child, inner);
    wxSizerFlags flags(stack ? 1 : child.stretch);
    if (gap) flags.Border(row ? wxLEFT : wxTOP, Px(gap));
    if (child.reserve) flags.ReserveSpaceEvenIfHidden();
    if (!row && child.stretch)
      if (auto* text = dynamic_cast<LabelBox*>(piece.window)) text->StandAtTop();
    if (row) {
      if (child.expand && !piece.keepsHeight)
        flags.Expand();
      else
        flags.CenterVertical();
    } else if (across) {
      flags.Expand();
    } else if (child.align == Align::Right) {
      flags.Right();
    } else if (child.align == Align::Center) {
      flags.CenterHorizontal();
    }
    Add(sizer, piece, flags);
  }

  void FillGrid(wxWindow* parent, wxSizer* sizer, const Layout& node, Place place) {
    auto* grid = static_cast<wxFlexGridSizer*>(sizer);
    std::size_t columns = static_cast<std::size_t>(std::max(node.columns, 1));
    for (std::size_t i = 0; i < node.children.size(); ++i) {
      const Layout& child = node.children[i];
      if (IsSpace(child)) {
        sizer->AddSpacer(Px(child.size));
        continue;
      }
      auto column = static_cast<int>(i % columns);
      bool growing = std::find(node.growing.begin(), node.growing.end(), column) != node.growing.end();
      bool link = StyleOf(child) == LabelStyle::Link;
      Place inner;
      inner.given = place.given && growing;
      bool across = child.expand ||
                    (growing && child.align == Align::Left && (Contains(child) || (IsText(child) && !link)));
      inner.fills = inner.given && across;
      Piece piece = Make(parent, child, inner);
      wxSizerFlags flags;
      if (child.reserve) flags.ReserveSpaceEvenIfHidden();
      if (across) {
        flags.Expand();
      } else {
        flags.CenterVertical();
        if (child.align == Align::Right) flags.Right();
        if (child.align == Align::Center) flags.Center();
      }
      Add(sizer, piece, flags);
    }
    for (int column : node.growing)
      if (column >= 0 && column < static_cast<int>(columns))
        grid->AddGrowableCol(static_cast<std::size_t>(column), 1);
  }

  static void Add(wxSizer* sizer, const Piece& piece, const wxSizerFlags& flags) {
    if (piece.window)
      sizer->Add(piece.window, flags);
    else
      sizer->Add(piece.sizer, flags);
  }

  wxSizer* MakeSizer(const Layout& node) {
    switch (node.type) {
      case Type::Row:
        return new wxBoxSizer(wxHORIZONTAL);
      case Type::Grid:
        return new wxFlexGridSizer(std::max(node.columns, 1),
                                   wxSize(Px(std::max(node.gap, 8)), Px(node.gap)));
      default:
        return new wxBoxSizer(wxVERTICAL);
    }
  }

  // The node's children in a sizer of its own, with its padding around.
  wxSizer* MakeBox(wxWindow* parent, const Layout& node, Place place) {
    wxSizer* sizer = MakeSizer(node);
    Fill(parent, sizer, node, place);
    if (node.padding) {
      auto* padded = new wxBoxSizer(wxVERTICAL);
      padded->Add(sizer, wxSizerFlags(1).Expand().Border(wxALL, Px(node.padding)));
      sizer = padded;
    }
    if (node.minWidth || node.minHeight) sizer->SetMinSize(Px(node.minWidth), Px(node.minHeight));
    return sizer;
  }

  Piece Make(wxWindow* parent, const Layout& node, Place place) {
    Piece piece;
    switch (node.type) {
      case Type::Item:
        return MakeItem(parent, node, place);
      case Type::Column:
      case Type::Row:
      case Type::Grid:
        if (!node.skin) {
          piece.sizer = MakeBox(parent, node, place);
          return piece;
        }
        piece.window = MakeBand(parent, node, place);
        return piece;
      case Type::Group:
        piece.window = MakeGroup(parent, node, place);
        break;
      case Type::Stack: {
        piece.window =
            new wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL | wxBORDER_NONE);
        piece.window->SetSizer(MakeBox(piece.window, node, place));
        break;
      }
      case Type::Text:
        piece.window = MakeText(parent, node, place);
        break;
      case Type::Image: {
        auto* bitmap = new wxStaticBitmap(parent, wxID_ANY, PictureBundle(node.text, node.size));
        bitmap->SetMinSize(wxSize(Px(node.size), Px(node.size)));
        owner_.OnTheme(
            [bitmap, name = node.text, size = node.size] { bitmap->SetBitmap(PictureBundle(name, size)); });
        piece.window = bitmap;
        break;
      }
      case Type::Rule:
        piece.window = new RuleLine(parent);
        return piece;
      case Type::Space:
        piece.window = new wxPanel(parent);
        break;
    }
    SetLeast(piece.window, node);
    return piece;
  }

  // A minimum in the layout comes on top of the widget's own.
  static void SetLeast(wxWindow* window, const Layout& node) {
    wxSize least = window->GetMinSize();
    if (node.minWidth) least.x = Px(node.minWidth);
    if (node.minHeight) least.y = Px(node.minHeight);
    window->SetMinSize(least);
  }

  wxWindow* MakeBand(wxWindow* parent, const Layout& node, Place place) {
    auto* band = new Band(parent);
    SetLeast(band, node);
    wxSizer* row = MakeSizer(node);
    Fill(band, row, node, place);
    auto* padded = new wxBoxSizer(wxVERTICAL);
    padded->Add(row, wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT, Px(std::max(node.padding, 12))));
    band->SetSizer(padded);
    owner_.AdoptBand(*band);
    return band;
  }

  wxWindow* MakeGroup(wxWindow* parent, const Layout& node, Place place) {
    auto* group = new GroupBox(parent, ToWx(node.text), node.padding);
    owner_.OnTheme([group] { group->ThemeChanged(); });
    Fill(group, group->Inside(), node, place);
    return group;
  }

  wxWindow* MakeText(wxWindow* parent, const Layout& node, Place place) {
    auto* box = new LabelBox(parent, place.fills, wxEmptyString);
    LabelBox::Content content;
    content.text = ToWx(node.text);
    content.style = node.style;
    content.align = node.align;
    box->Set(content);
    box->onGrow = [owner = &owner_, box] { owner->RequestLayout(box); };
    native::SetAccessible(*box, native::Role::Text, content.text);
    owner_.OnTheme([box] { box->ThemeChanged(); });
    return box;
  }

  Piece MakeItem(wxWindow* parent, const Layout& node, Place place) {
    ControlView& view =
        owner_.Adopt(MakeControlView(owner_, parent, *node.control, node, place.fills, place.page));
    if (place.page) owner_.AdoptPage(*node.control);
    wxWindow* window = view.Window();
    if (!node.children.empty()) {
      Place inner = place;
      inner.page = false;
      auto* sizer = new wxBoxSizer(wxVERTICAL);
      for (const Layout& child : node.children) {
        Piece piece = Make(window, child, inner);
        Add(sizer, piece, wxSizerFlags(1).Expand());
      }
      if (node.padding) {
        auto* padded = new wxBoxSizer(wxVERTICAL);
        padded->Add(sizer, wxSizerFlags(1).Expand().Border(wxALL, Px(node.padding)));
        sizer = padded;
      }
      if (dynamic_cast<MenuGround*>(window)) {
        // The menu's edge.
        auto* edged = new wxBoxSizer(wxVERTICAL);
        edged->Add(sizer, wxSizerFlags(1).Expand().Border(wxRIGHT, 1));
        sizer = edged;
      }
      window->SetSizer(sizer);
    }
    SetLeast(window, node);
    Piece piece;
    piece.window = window;
    piece.keepsHeight = view.KeepsHeight();
    return piece;
  }

  FormWindow& owner_;
};

}  // namespace

void Arrange(FormWindow& owner, wxWindow* root, const Layout& layout) {
  Arranger arranger(owner);
  auto* sizer = new wxBoxSizer(wxVERTICAL);
  // The root as the one child of a column that fills the window.
  Layout whole(Type::Column);
  whole.children.push_back(layout);
  whole.children.back().stretch = 1;
  whole.children.back().expand = true;
  arranger.Fill(root, sizer, whole, Arranger::Place{});
  root->SetSizer(sizer);
}

}  // namespace view
