#include "platform/LibFile.h"

#include "platform/Desktop.h"
#include "platform/Machine.h"

namespace platform {

long LibFile::GetSize(const std::string& path) const {
  bool readOnly;
  return GetSize(path, readOnly);
}

long LibFile::GetSize(const std::string& path, bool& readOnly) const {
  EntryInfo info = CurrentMachine().Files().LookBriefly(path);
  readOnly = (info.attributes & kReadOnly) != 0;
  if (info.kind == EntryKind::Missing) return 0;
  if (info.kind != EntryKind::File) return -1;
  return AsSize(info.size);
}

long LibFile::GetAttributes(const std::string& path) const {
  EntryInfo info = CurrentMachine().Files().Look(path);
  return info.kind == EntryKind::Missing ? 0 : static_cast<long>(info.attributes);
}

std::string LibFile::BrowseForFile() const {
  return CurrentDesktop().BrowseForFile();
}

}  // namespace platform
