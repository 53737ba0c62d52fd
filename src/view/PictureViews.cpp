#include "view/PictureViews.h"

#include <wx/animate.h>
#include <wx/filename.h>
#include <wx/log.h>
#include <wx/statbmp.h>

#include "view/ChartBox.h"
#include "view/FormWindow.h"
#include "view/Icons.h"
#include "view/Look.h"
#include "view/Native.h"
#include "view/Screen.h"
#include "view/Text.h"

namespace view {

namespace {

class PictureView : public ControlView {
 public:
  PictureView(FormWindow& owner, wxWindow* parent, controls::Picture& picture)
      : ControlView(owner, picture), control_(picture) {
    bitmap_ = new wxStaticBitmap(parent, wxID_ANY, wxBitmapBundle(), wxDefaultPosition, wxDefaultSize, 0,
                                 ToWx(picture.Name()));
  }
  wxWindow* Window() override { return bitmap_; }
  void ThemeChanged() override {
    image_.clear();
    Sync();
  }

 protected:
  void SyncContent() override {
    // The place is kept while there is no picture, so that nothing moves when one comes.
    wxSize size(Px(control_.Size), Px(control_.Size));
    if (bitmap_->GetMinSize() != size) bitmap_->SetMinSize(size);
    if (image_ == control_.Image.Get() && shownSize_ == control_.Size) return;
    image_ = control_.Image;
    shownSize_ = control_.Size;
    bitmap_->SetBitmap(PictureBundle(image_, control_.Size));
    bitmap_->Refresh();
  }

 private:
  controls::Picture& control_;
  wxStaticBitmap* bitmap_;
  std::string image_;
  int shownSize_ = 0;
};

class AnimationView : public ControlView {
 public:
  AnimationView(FormWindow& owner, wxWindow* parent, controls::Animation& animation)
      : ControlView(owner, animation), control_(animation) {
    player_ = new wxAnimationCtrl(parent, wxID_ANY, wxNullAnimation, wxDefaultPosition, wxDefaultSize,
                                  wxAC_NO_AUTORESIZE | wxBORDER_NONE, ToWx(animation.Name()));
  }
  wxWindow* Window() override { return player_; }
  void Detached() override { player_->Stop(); }

 protected:
  void SyncContent() override {
    if (file_ != control_.File.Get()) {
      file_ = control_.File;
      player_->Stop();
      playing_ = false;
      Load();
    }
    if (playing_ == control_.Playing) return;
    playing_ = control_.Playing;
    if (playing_ && player_->GetAnimation().IsOk())
      player_->Play();
    else
      player_->Stop();
  }

 private:
  // The toolkit doesn't play AVI files: the same frames lie beside it as a GIF.
  void Load() {
    const auto& toNative = owner_.GetScreen().Around().toNative;
    std::string beside = file_.substr(0, file_.rfind('.')) + ".gif";
    wxString path = toNative && !file_.empty() ? ToWx(toNative(beside)) : wxString();
    wxLogNull quiet;
    wxAnimation animation = player_->CreateAnimation();
    if (!path.empty() && wxFileName::FileExists(path) && animation.LoadFile(path)) {
      player_->SetAnimation(animation);
      player_->SetMinSize(animation.GetSize());
    } else {
      player_->SetAnimation(wxNullAnimation);
    }
    owner_.RequestLayout(player_);
  }

  controls::Animation& control_;
  wxAnimationCtrl* player_;
  std::string file_;
  bool playing_ = false;
};

class ChartView : public ControlView {
 public:
  ChartView(FormWindow& owner, wxWindow* parent, controls::Chart& chart)
      : ControlView(owner, chart), control_(chart) {
    box_ = new ChartBox(parent, ToWx(chart.Name()));
  }
  wxWindow* Window() override { return box_; }
  bool KeepsHeight() const override { return false; }
  void ThemeChanged() override { box_->Refresh(); }

 protected:
  void SyncContent() override { box_->Set(control_.RowLabel, control_.AxisTitle, control_.Columns); }
  void SyncName() override {
    std::string name = SpokenName();
    for (const auto& column : control_.Columns.Get()) {
      if (column.Data.empty()) continue;
      name += (name.empty() ? "" : ", ") + column.Label + " " + column.Data + " " + control_.AxisTitle.Get();
    }
    native::SetAccessible(*box_, native::Role::Chart, ToWx(name));
  }

 private:
  controls::Chart& control_;
  ChartBox* box_;
};

}  // namespace

std::unique_ptr<ControlView> MakePictureView(FormWindow& owner, wxWindow* parent,
                                             controls::Picture& picture) {
  return std::make_unique<PictureView>(owner, parent, picture);
}
std::unique_ptr<ControlView> MakeAnimationView(FormWindow& owner, wxWindow* parent,
                                               controls::Animation& animation) {
  return std::make_unique<AnimationView>(owner, parent, animation);
}
std::unique_ptr<ControlView> MakeChartView(FormWindow& owner, wxWindow* parent, controls::Chart& chart) {
  return std::make_unique<ChartView>(owner, parent, chart);
}

}  // namespace view
