// The hand-over to the boot-time cleaner: what it is to remove, and the entry that starts it once.
#pragma once

#include <string>

namespace m_Log {

// Enters the boot-time cleaner to be started with Windows, and then hands the file over as it is now: in the
// settings, which the boot-time cleaner believes, and for the reader as one line of "Temp\Locked Files.txt"
// in the installation folder (the system's ANSI code page, CR LF). Lines that are there stay, and nothing is
// taken out twice. The folder is not made: where it is missing, or the line can't be written, or the list is
// full (see core::handover), the failure is reported, the file isn't handed over and the entry stays.
void WriteLockedFilesToLog(const std::string& sFile);
// The same with "Temp\Index Files.txt", for "index.dat" files.
void WriteIndexDatFilesToLog(const std::string& sFile);

// The full path of the first of the two.
std::string LockedFilesLog();

}  // namespace m_Log
