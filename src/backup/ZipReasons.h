// Why a ZIP operation failed, in words and as an unexpected failure. For the ZIP control alone.
#pragma once

#include <string>

#include "backup/Archive.h"
#include "platform/FileSystem.h"
#include "platform/RuntimeError.h"

namespace backup {

// What a primitive's outcome says to a person, in a few words: "another program is using it".
std::string Reason(platform::Status status);

// A sentence on an archive that couldn't be opened.
std::string WhyNotOpen(const std::string& path, const ArchiveFile& file, const Archive& archive);

// What the report shows when an archive can't be written for this reason.
platform::RuntimeError FailureOf(platform::Status status);

}  // namespace backup
