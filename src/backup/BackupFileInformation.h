// The window that lists the content of one backup.
#pragma once

#include <cstdint>
#include <string>

#include "backup/AbaleZip.h"
#include "forms/frmBackupFileInformation.h"

namespace backup {

void WireBackupFileInformation(frmBackupFileInformation& form);

// Adds an entry to the window's list, if there is a window. A column that can't be had stays empty.
void AbaZip_ListingFile(const std::string& sFilename, const std::string& sComment, double size,
                        double compressed, long ratio, long attributes, std::uint32_t crc,
                        AbaleZip::Date modified, AbaleZip::Date accessed, AbaleZip::Date created);

}  // namespace backup
