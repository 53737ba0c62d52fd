#include "backup/ZipReasons.h"

namespace backup {

using platform::Status;

std::string Reason(Status status) {
  switch (status) {
    case Status::Done:
      return "";
    case Status::Missing:
      return "it does not exist";
    case Status::Denied:
      return "access is denied";
    case Status::Locked:
      return "another program is using it";
    case Status::Exists:
      return "something with that name already exists";
    case Status::NotEmpty:
      return "the folder isn't empty";
    case Status::Full:
      return "the disk is full";
    case Status::Refused:
      return "its path leads through a link";
    case Status::Failed:
    case Status::Overwritten:
      break;
  }
  return "the disk answered with an error";
}

std::string WhyNotOpen(const std::string& path, const ArchiveFile& file, const Archive& archive) {
  std::string name = "The archive " + path;
  if (archive.ErrorCode() == ZIP_ER_NOENT || file.Failure() == Status::Missing) return name + " isn't there.";
  if (file.Failure() != Status::Done) return name + " can't be opened: " + Reason(file.Failure()) + ".";
  return name + " is damaged or not a ZIP archive (" + archive.Problem() + ").";
}

platform::RuntimeError FailureOf(Status status) {
  switch (status) {
    case Status::Missing:
      return platform::PathNotFound();
    case Status::Denied:
    case Status::Locked:
      return platform::PermissionDenied();
    case Status::Full:
      return platform::DiskFull();
    case Status::Exists:
    case Status::NotEmpty:
    case Status::Refused:
      return platform::PathFileAccess();
    default:
      return platform::DeviceIoError();
  }
}

}  // namespace backup
