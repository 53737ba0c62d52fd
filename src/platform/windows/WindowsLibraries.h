// Where a program's libraries come from.
#pragma once

namespace platform {

// From now on a library that is asked for by its bare name is looked for in the system's folder alone
// (SetDefaultDllDirectories, SetDllDirectoryW), and not beside the program or in the current folder, where
// somebody may have put one of that name. The first thing that a program does; what it is linked to was
// loaded before.
void LoadLibrariesOfTheSystemAlone();

}  // namespace platform
