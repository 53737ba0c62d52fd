// The program's pictures, by file name without size and extension.
#pragma once

#include <string>
#include <wx/bmpbndl.h>
#include <wx/iconbndl.h>

namespace view {

// `folder` (a native path) holds 16, 24, 32 and 48 with the pictures for a light ground, and dark/ with the
// same four for a dark one.
void SetPictureFolder(std::string folder);

// A picture of `size` pixels at 96 dpi, sharp at every text size and display scale. Empty if there is none.
// `before` and `behind` are empty pixels at its sides.
wxBitmapBundle PictureBundle(const std::string& name, int size, bool onDark, int before = 0, int behind = 0);
// The one for the theme in force.
wxBitmapBundle PictureBundle(const std::string& name, int size);
// For a window's title bar.
wxIconBundle WindowIcons();

// Drops all that was loaded, as at a change of theme and before the toolkit goes.
void ForgetPictures();

}  // namespace view
