#include "platform/windows/WindowsLibraries.h"

#include <windows.h>

namespace {

// What Windows is to know of the program before it runs; see packaging/windows/take-system-libraries.
consteval IMAGE_LOAD_CONFIG_DIRECTORY64 Configuration() {
  IMAGE_LOAD_CONFIG_DIRECTORY64 configuration{};
  configuration.Size = sizeof configuration;
  // DependentLoadFlags, as this field has come to be called.
  configuration.Reserved1 = LOAD_LIBRARY_SEARCH_SYSTEM32;
  return configuration;
}

[[gnu::used, gnu::section(".loadcfg")]] constexpr IMAGE_LOAD_CONFIG_DIRECTORY64 kConfiguration =
    Configuration();

}  // namespace

namespace platform {

void LoadLibrariesOfTheSystemAlone() {
  SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
  SetDllDirectoryW(L"");
}

}  // namespace platform
