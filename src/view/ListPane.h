// A list of the form in the system's own list control, which asks for the rows that it shows and no others.
#pragma once

#include <string>
#include <vector>
#include <wx/dataview.h>
#include <wx/panel.h>

#include "controls/ListView.h"
#include "view/ControlView.h"

namespace view {

// The native list was preferred to wxListCtrl, which opens a million rows faster but draws itself under GTK
// and so is mute for a screen reader.
class ListPane : public ControlView {
 public:
  ListPane(FormWindow& owner, wxWindow* parent, controls::ListView& list);
  ~ListPane() override;

  wxWindow* Window() override { return pane_; }
  wxWindow* Focus() override { return data_; }
  bool TakesEnter() const override { return true; }
  bool KeepsHeight() const override { return false; }
  wxRect HotRect() override;
  void ThemeChanged() override;
  void Detached() override;

  // For tests: a row's place on the screen (its check box where `check`), and how many cells were asked for.
  wxRect RowRect(int row, bool check);
  unsigned long CellsAsked() const;
  int RowsKnown() const;

 protected:
  void SyncContent() override;
  void SyncName() override;

 private:
  class Model;

  void MakeColumns();
  void SyncRows();
  void SyncSelection();
  void FitColumns();
  void FillColumn();
  void PlaceEmptyText();
  int SelectedRow() const;
  void SelectRow(int row);
  void OnKey(wxKeyEvent& event);
  void OnChar(wxKeyEvent& event);
  void Toggle();
  void JumpTo(const wxString& typed);
  void OpenMenu();
  void OnMotion(wxMouseEvent& event);

  controls::ListView& list_;
  wxPanel* pane_;
  wxDataViewCtrl* data_;
  wxWindow* empty_;
  wxObjectDataPtr<Model> model_;
  std::uint64_t version_ = ~std::uint64_t{0};
  bool fitted_ = false, flat_ = false;
  wxString typed_;
  long long typedAt_ = 0;
  wxString tip_;
};

}  // namespace view
