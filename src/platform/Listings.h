// The listings: what lies below a folder.
#pragma once

#include <memory>
#include <string>

#include "platform/CountedList.h"
#include "platform/FileSystem.h"

namespace platform {

// All append to their lists, give full paths, list hidden and system entries, and put a folder before what
// lies in it. No link is entered: a link to a folder is listed as a folder, any other as a file. Folders that
// can't be read are passed over. The result is 0, or an error code where the root itself can't be read; a
// root that isn't there lists nothing and gives 0. The only pattern is "*.*", which is every name. All let
// the stop control in meanwhile (Desktop::Breathe).

class LibDriveScan {
 public:
  // Every file below `root` at any depth. `ahead`, if given, is told of each.
  long ScanTree(const std::string& root, const std::string& pattern, CountedList& files,
                SizesAhead* ahead = nullptr) const;
  // Something that ScanTree may be given; null where the platform has none.
  std::unique_ptr<SizesAhead> LookAhead() const;
  // Every folder below `root` at any depth.
  long ScanFolders(const std::string& root, const std::string& pattern, CountedList& folders) const;
};

class LibTreeList {
 public:
  // The files below `path` at any depth.
  long ListFiles(const std::string& path, const std::string& pattern, CountedList& files) const;
  // The folders below `path` at any depth.
  long ListFolders(const std::string& path, const std::string& pattern, CountedList& folders) const;
  long ListAll(const std::string& path, const std::string& pattern, CountedList& files,
               CountedList& folders) const;
};

class LibFileList {
 public:
  // All files and folders below `root` at any depth; refuses (an error code, nothing listed) a drive root,
  // the Windows and Program Files folders, the roots of user profiles and every ancestor of the installation
  // folder, because its callers remove what it lists.
  long ListTree(const std::string& root, CountedList& files, CountedList& folders) const;
  // The files directly in `folder`. Refuses what ListTree refuses, for the same reason.
  long ListFolder(const std::string& folder, CountedList& files) const;
};

}  // namespace platform
