#include "platform/windows/WindowsLibraries.h"

#include <windows.h>

namespace platform {

void LoadLibrariesOfTheSystemAlone() {
  SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
  SetDllDirectoryW(L"");
}

}  // namespace platform
