#include "view/Icons.h"

#include <map>
#include <tuple>
#include <wx/filename.h>
#include <wx/image.h>

#include "view/Look.h"
#include "view/Text.h"

namespace view {

namespace {

std::string pictureFolder;
std::map<std::tuple<std::string, int, bool, int, int>, wxBitmapBundle> bundles;
constexpr int kSizes[] = {16, 24, 32, 48};

// The picture in exactly `pixels`, made from the file that is next larger.
wxImage Load(const std::string& name, int pixels, bool onDark) {
  for (int size : kSizes) {
    if (size < pixels && size != 48) continue;
    wxString path =
        ToWx(pictureFolder + (onDark ? "/dark/" : "/") + std::to_string(size) + "/" + name + ".png");
    wxImage image;
    if (!wxFileName::FileExists(path) || !image.LoadFile(path, wxBITMAP_TYPE_PNG)) continue;
    if (size != pixels) image.Rescale(pixels, pixels, wxIMAGE_QUALITY_HIGH);
    return image;
  }
  return wxImage();
}

}  // namespace

void SetPictureFolder(std::string folder) {
  pictureFolder = std::move(folder);
  bundles.clear();
}

wxBitmapBundle PictureBundle(const std::string& name, int size, bool onDark, int before, int behind) {
  if (name.empty() || pictureFolder.empty()) return wxBitmapBundle();
  auto [place, fresh] = bundles.try_emplace({name, size, onDark, before, behind});
  if (!fresh) return place->second;
  wxVector<wxBitmap> bitmaps;
  for (int scale : {1, 2})
    if (wxImage image = Load(name, Px(size) * scale, onDark); image.IsOk()) {
      if (before || behind)
        image.Resize(wxSize(image.GetWidth() + Px(before + behind) * scale, image.GetHeight()),
                     wxPoint(Px(before) * scale, 0));
      bitmaps.push_back(wxBitmap(image));
    }
  if (!bitmaps.empty()) place->second = wxBitmapBundle::FromBitmaps(bitmaps);
  return place->second;
}

wxBitmapBundle PictureBundle(const std::string& name, int size) {
  return PictureBundle(name, size, DarkTheme());
}

wxIconBundle WindowIcons() {
  wxIconBundle icons;
  for (int size : kSizes) {
    wxImage image = Load("brasmir", size, false);
    if (!image.IsOk()) continue;
    wxIcon icon;
    icon.CopyFromBitmap(wxBitmap(image));
    icons.AddIcon(icon);
  }
  return icons;
}

void ForgetPictures() {
  bundles.clear();
}

}  // namespace view
