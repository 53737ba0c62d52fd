// What the program does to single files, to folders and through the shell.
#pragma once

#include <functional>
#include <string>

#include "platform/CountedList.h"
#include "platform/FileSystem.h"

// Every operation answers Done or the reason why not. What removes or changes something takes an absolute
// path of real names (see Guard.h) and answers Refused for any other; it follows no link, and it lifts a
// read-only bit for its work, which comes back where the work fails. Listings are in Listings.h, erasing is
// in Erase.h.
namespace platform::ops {

// A file of that name is there, or a link that doesn't lead to a folder.
bool IsFile(const std::string& path);
// A folder of that name is there, or a link to one. A backslash may stand at the end.
bool IsFolder(const std::string& path);

// Removes a file, or a link as a link. A folder is Refused.
Status Remove(const std::string& path);
// Moves a file, or a link as a link, into the recycle bin of its drive. A folder is Refused.
Status MoveToBin(const std::string& path);
// Empties a file at once. A link and a folder are Refused.
Status Empty(const std::string& path);

// Makes the folder and those above it that are missing. Done also where it is there.
Status MakeFolder(const std::string& path);
// Removes an empty folder, or a link to a folder as a link.
Status RemoveFolder(const std::string& path);
// Removes the folder with all that is in it. Links inside are removed as links and never entered, and what
// can't be removed stays with the folders above it. Refuses what MayClearTree refuses. Lets the stop control
// in meanwhile.
Status RemoveTree(const std::string& path);
// Bytes of all files below `path`, links not counted; 0 for a folder that isn't there. Lets the stop control
// in meanwhile.
double SizeBelow(const std::string& path);

// Opens the file with its associated program; starts it if it is an executable (".exe").
Status OpenDocument(const std::string& path);
// Shows the file's content in a viewer.
Status ViewContent(const std::string& path);
// Shows the shell's properties of the file.
Status ShowProperties(const std::string& path);
// Opens the folder in the shell.
Status OpenFolder(const std::string& path);

// Empties the recycle bin; `stop` is asked between two files and ends it with what is gone by then.
Status EmptyBin(const std::function<bool()>& stop = {});
// Restarts the computer.
Status Restart();

// Appends the keys of the browser cache's entries.
Status ListCacheEntries(CountedList& entries);
// Removes one entry of the browser's cache by its key.
Status RemoveCacheEntry(const std::string& entry);

}  // namespace platform::ops
