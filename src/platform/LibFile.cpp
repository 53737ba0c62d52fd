#include "platform/LibFile.h"

#include <cctype>
#include <cstdint>

#include "platform/Desktop.h"
#include "platform/Guard.h"
#include "platform/LibPath.h"
#include "platform/Machine.h"
#include "platform/ReadOnlyLift.h"

namespace platform {

namespace {

FileSystem& Files() {
  return CurrentMachine().Files();
}

bool EqualsIgnoringAsciiCase(std::string_view a, std::string_view lower) {
  if (a.size() != lower.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i)
    if (std::tolower(static_cast<unsigned char>(a[i])) != lower[i]) return false;
  return true;
}

}  // namespace

long LibFile::GetSize(const std::string& path) const {
  bool readOnly;
  return GetSize(path, readOnly);
}

long LibFile::GetSize(const std::string& path, bool& readOnly) const {
  EntryInfo info = Files().LookBriefly(path);
  readOnly = (info.attributes & kReadOnly) != 0;
  if (info.kind == EntryKind::Missing) return 0;
  if (info.kind != EntryKind::File) return -1;
  return AsSize(info.size);
}

long LibFile::GetAttributes(const std::string& path) const {
  EntryInfo info = Files().Look(path);
  return info.kind == EntryKind::Missing ? 0 : static_cast<long>(info.attributes);
}

long LibFile::Delete(const std::string& path) const {
  return MayActOn(path) && Files().RemoveFile(path, true) == Status::Done ? 1 : 0;
}

long LibFile::MoveToRecycleBin(const std::string& path) const {
  if (!MayActOn(path)) return 1;
  RecycleBin& bin = CurrentMachine().Bin();
  EntryInfo info = Files().Look(path);
  if (info.kind == EntryKind::Missing) return 2;  // the system's "file not found"
  if (info.kind != EntryKind::File && !IsLink(info.kind)) return 1;
  ReadOnlyLift lift(path, info);
  if (bin.Move(path) != Status::Done) return 1;
  lift.WorkDone();
  return 0;
}

bool LibFile::ClearFile(const std::string& path) const {
  if (!MayActOn(path)) return true;
  EntryInfo info = Files().Look(path);
  if (info.kind == EntryKind::Missing) return false;
  if (info.kind != EntryKind::File) return true;
  ReadOnlyLift lift(path, info);
  Status status;
  auto file = Files().Open(path, OpenMode::Modify, status);
  return !file || file->Truncate(0) != Status::Done;
}

long LibFile::Exists(const std::string& path) const {
  return IsPresent(path) ? 1 : -1;
}

bool LibFile::IsPresent(const std::string& path) const {
  EntryKind kind = Files().LookBriefly(path).kind;
  return kind == EntryKind::File || kind == EntryKind::FileLink;
}

long LibFile::ShellOpen(const std::string& path) const {
  if (!IsPresent(path)) return 2;
  if (EqualsIgnoringAsciiCase(LibPath().GetExtension(path), "exe"))
    return CurrentMachine().GetProcesses().Start(path) ? 33 : 31;
  return CurrentDesktop().OpenDocument(path);
}

long LibFile::ViewContent(const std::string& path) const {
  return IsPresent(path) ? CurrentDesktop().ViewContent(path) : 2;
}

long LibFile::ShowProperties(const std::string& path) const {
  return IsPresent(path) ? CurrentDesktop().ShowProperties(path) : 0;
}

std::string LibFile::BrowseForFile() const {
  return CurrentDesktop().BrowseForFile();
}

}  // namespace platform
