// What is removed without a method, a backup and a question: by the rules of a plug-in, and in places that
// hold more than files. Each operation is guarded as platform/Guard.h says.
#pragma once

#include <functional>
#include <string>

namespace removal {

// True if the file is gone.
bool DeleteFile(const std::string& path);
// Empties a file at once. True: it is locked and stayed as it was.
bool StaysLocked(const std::string& path);
// An empty folder, or a link to one as a link.
bool RemoveFolder(const std::string& path);
// A folder with all that is in it.
bool RemoveTree(const std::string& path);
// An entry of the browser's cache, by its key.
bool RemoveCacheEntry(const std::string& entry);
// Until StopProcess is set, which the stop control may do meanwhile.
void EmptyRecycleBin();

}  // namespace removal
