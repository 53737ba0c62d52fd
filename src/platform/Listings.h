// The listings: what lies below a folder.
#pragma once

#include <memory>
#include <string>

#include "platform/CountedList.h"
#include "platform/FileSystem.h"

namespace platform {

// All append to their lists, give full paths, list hidden and system entries, and put a folder before what
// lies in it. No link is entered: a link to a folder is listed as a folder, any other as a file. Folders that
// can't be read are passed over. All let the stop control in meanwhile (Desktop::Breathe).
namespace ops {

// Each answers Done also for a root that isn't there or is a link, which lists nothing; Refused for one that
// is no path; otherwise why the root itself can't be read.

// The files below `root` at any depth. `ahead`, if given, is told of each.
Status ListFiles(const std::string& root, CountedList& files, SizesAhead* ahead = nullptr);
// The folders below `root` at any depth.
Status ListFolders(const std::string& root, CountedList& folders);
Status ListAll(const std::string& root, CountedList& files, CountedList& folders);

// For callers that remove what is listed: these two answer Refused for what MayClearTree refuses.
Status ListTree(const std::string& root, CountedList& files, CountedList& folders);
// The files directly in `folder`.
Status ListFolder(const std::string& folder, CountedList& files);

// Something that ListFiles may be given; null where the platform has none.
std::unique_ptr<SizesAhead> LookAhead();

}  // namespace ops

// The same with the result codes of the support library: 0 done, else the system's error number.

class LibDriveScan {
 public:
  long ScanTree(const std::string& root, CountedList& files) const;
  long ScanFolders(const std::string& root, CountedList& folders) const;
};

class LibTreeList {
 public:
  long ListFiles(const std::string& path, CountedList& files) const;
  long ListFolders(const std::string& path, CountedList& folders) const;
  long ListAll(const std::string& path, CountedList& files, CountedList& folders) const;
};

class LibFileList {
 public:
  long ListTree(const std::string& root, CountedList& files, CountedList& folders) const;
  long ListFolder(const std::string& folder, CountedList& files) const;
};

}  // namespace platform
