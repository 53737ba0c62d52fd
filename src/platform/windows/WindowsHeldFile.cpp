#include "platform/windows/WindowsHeldFile.h"

#include <cstring>
#include <vector>
#include <winioctl.h>

#include "platform/windows/WindowsPaths.h"
#include "platform/windows/WindowsStatus.h"
#include "platform/windows/WindowsText.h"

namespace platform {

WindowsHeldFile::WindowsHeldFile(UniqueHandle file, UniqueHandle attributes, DWORD lifted)
    : handle_(file.Get()), file_(std::move(file)), attributes_(std::move(attributes)), lifted_(lifted) {}

WindowsHeldFile::~WindowsHeldFile() {
  if (!lifted_) return;
  FILE_BASIC_INFO info{};  // a zero leaves a moment as it is
  info.FileAttributes = lifted_;
  SetFileInformationByHandle(attributes_.Get(), FileBasicInfo, &info, sizeof info);
}

std::uint32_t WindowsHeldFile::Names() {
  FILE_STANDARD_INFO info;
  return GetFileInformationByHandleEx(handle_, FileStandardInfo, &info, sizeof info) ? info.NumberOfLinks : 0;
}

Status WindowsHeldFile::Rename(std::string_view name) {
  auto wide = ToWide(name);
  std::wstring path = WindowsPaths::RealPathOf(handle_);
  std::size_t last = path.rfind(L'\\');
  if (!wide || wide->find_first_of(L"\\/:") != wide->npos || last == path.npos) return Status::Refused;
  path.replace(last + 1, path.npos, *wide);
  std::vector<std::uint64_t> buffer((sizeof(FILE_RENAME_INFO) + path.size() * sizeof(wchar_t)) / 8 + 1);
  auto* info = reinterpret_cast<FILE_RENAME_INFO*>(buffer.data());
  info->FileNameLength = static_cast<DWORD>(path.size() * sizeof(wchar_t));
  std::memcpy(info->FileName, path.c_str(), info->FileNameLength + sizeof(wchar_t));
  return SetFileInformationByHandle(handle_, FileRenameInfo, info, static_cast<DWORD>(buffer.size() * 8))
             ? Status::Done
             : LastStatus();
}

Status WindowsHeldFile::Remove() {
  Status status = RemoveOpened(handle_);
  if (status == Status::Done) lifted_ = 0;
  return status;
}

std::optional<HeldFile::Stretch> WindowsHeldFile::NextStretch(std::uint64_t offset) {
  std::uint64_t size = Size();
  if (offset >= size) return std::nullopt;
  FILE_ALLOCATED_RANGE_BUFFER asked{}, told{};
  asked.FileOffset.QuadPart = static_cast<LONGLONG>(offset);
  asked.Length.QuadPart = static_cast<LONGLONG>(size - offset);
  DWORD length = 0;
  bool good = DeviceIoControl(handle_, FSCTL_QUERY_ALLOCATED_RANGES, &asked, sizeof asked, &told, sizeof told,
                              &length, nullptr) ||
              GetLastError() == ERROR_MORE_DATA;
  if (!good) return Stretch{offset, size};
  if (length < sizeof told) return std::nullopt;
  auto begin = static_cast<std::uint64_t>(told.FileOffset.QuadPart);
  return Stretch{begin, begin + static_cast<std::uint64_t>(told.Length.QuadPart)};
}

}  // namespace platform
