#include "forms/LumaroPlaces.h"

#include "forms/Page.h"

namespace forms {

LumaroPlaces::LumaroPlaces() {
  for (int row = 0; row < kRows; ++row) {
    Link(lblDirLumaro[row], kPlaceRows[row].caption, kPlaceRows[row].mnemonic);
    Value(this->*kPlaceRows[row].count, "0");
    ImgProcessLumaro[row].Image = "mark-row";
    Hide(ImgProcessLumaro[row]);
  }
  for (const PlaceBox& box : kInternetBoxes) Design(this->*box.box, box.caption, box.mnemonic);
  for (const PlaceBox& box : kFolderBoxes) Design(this->*box.box, box.caption, box.mnemonic);
  chkEraseIndexDatOnRebootOptionsLumaro.Enabled = false;
}

}  // namespace forms
