// The program's own files on the played computer, which an installer would have put there.
#pragma once

#include <string>

namespace program {

// Copies skin, animation, help and sibling programs from `share` into `install` (both native folders) where
// they are missing or older, and at a first start the plug-ins as well. Each file is written beside its place
// and renamed. What can't be copied is passed over: the program does without.
void InstallProgramFiles(const std::string& share, const std::string& install, bool firstTime);

}  // namespace program
