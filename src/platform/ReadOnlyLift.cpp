#include "platform/ReadOnlyLift.h"

#include "platform/Machine.h"

namespace platform {

ReadOnlyLift::ReadOnlyLift(std::string_view path, const EntryInfo& info) : attributes_(info.attributes) {
  if (IsLink(info.kind) || !(attributes_ & kReadOnly)) return;
  path_ = path;
  lifted_ = CurrentMachine().Files().SetAttributes(path, attributes_ & ~kReadOnly) == Status::Done;
}

ReadOnlyLift::~ReadOnlyLift() {
  if (lifted_) CurrentMachine().Files().SetAttributes(path_, attributes_);
}

namespace {

// The bit is looked at only after a refusal: most files haven't got it, and there may be a million of them.
Status RemoveAnyway(std::string_view path, Status (FileSystem::*remove)(std::string_view)) {
  FileSystem& files = CurrentMachine().Files();
  Status status = (files.*remove)(path);
  if (status != Status::Denied) return status;
  ReadOnlyLift lift(path, files.Look(path));
  if (!lift.Lifted()) return status;
  status = (files.*remove)(path);
  if (status == Status::Done) lift.WorkDone();
  return status;
}

}  // namespace

Status RemoveFileAnyway(std::string_view path) {
  return RemoveAnyway(path, &FileSystem::RemoveFile);
}
Status RemoveFolderAnyway(std::string_view path) {
  return RemoveAnyway(path, &FileSystem::RemoveFolder);
}

}  // namespace platform
