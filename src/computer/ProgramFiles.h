// The program's own files on the played computer, which an installer would have put there.
#pragma once

#include <string>

namespace computer {

// Copies skin, animation, help and sibling programs from `share`, a native folder, into `install`, a folder
// of the current machine, where they are missing or say something else, and at a first start the plug-ins
// that are missing as well. Goes through the machine's file system, so that no link on its drives leads out
// of them. Each file is written beside its place and renamed. What can't be copied is passed over: the
// program does without.
void InstallProgramFiles(const std::string& share, const std::string& install, bool firstTime);

}  // namespace computer
