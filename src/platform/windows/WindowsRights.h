// Who may change what.
#pragma once

#include <string>

namespace platform {

// Whether a file, the folder that it lies in and those above it belong to administrators or to the system,
// and nobody else may write to the file, add anything beside it, or remove, replace or give away any of them.
// By the owner and the access list that GetNamedSecurityInfoW tells; False where it tells nothing. `native`
// as WindowsPaths::Native gives it.
bool OnlyAdministratorsMayChange(const std::wstring& native);

}  // namespace platform
