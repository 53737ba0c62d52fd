#include "platform/TextFile.h"

#include <span>
#include <string_view>

#include "platform/LibPath.h"
#include "platform/Machine.h"
#include "platform/RuntimeError.h"
#include "platform/WriteBeside.h"

namespace platform {

namespace {

FileSystem& Files() {
  return CurrentMachine().Files();
}

RuntimeError ErrorOf(Status status, const std::string& path) {
  switch (status) {
    case Status::Missing: {
      EntryKind folder = Files().Look(LibPath().GetFolder(path)).kind;
      return folder == EntryKind::Missing || folder == EntryKind::File ? PathNotFound() : FileNotFound();
    }
    case Status::Denied:
    case Status::Locked:
      return PermissionDenied();
    case Status::Full:
      return DiskFull();
    default:
      return PathFileAccess();
  }
}

// What a write on an open file answers.
RuntimeError WriteErrorOf(Status status) {
  if (status == Status::Full) return DiskFull();
  if (status == Status::Denied || status == Status::Locked) return PermissionDenied();
  return DeviceIoError();
}

std::unique_ptr<File> Open(const std::string& path, OpenMode mode) {
  Status status = Status::Failed;
  auto file = Files().Open(path, mode, status);
  if (!file) throw ErrorOf(status, path);
  return file;
}

std::string Encode(const std::string& line) {
  auto bytes = CurrentMachine().GetLocale().ToAnsi(line);
  if (!bytes) throw RuntimeError(5, "Invalid procedure call or argument");
  return *bytes + "\r\n";
}

std::span<const std::byte> Bytes(const std::string& text) {
  return std::as_bytes(std::span(text));
}

bool EndsInsideALine(const std::string& path) {
  Status status;
  auto file = Files().Open(path, OpenMode::Read, status);
  if (!file || file->Size() == 0) return false;
  std::byte last{};
  auto read = file->Read(file->Size() - 1, {&last, 1});
  return read == 1 && last != std::byte{'\n'} && last != std::byte{'\r'};
}

}  // namespace

TextReader::TextReader(const std::string& path, std::uint64_t most) : file_(Open(path, OpenMode::Read)) {
  if (file_->Size() > most) throw OutOfMemory();
}
TextReader::~TextReader() = default;

// Reads on; False at the end of the file.
bool TextReader::Fill() {
  if (ended_) return false;
  buffer_.erase(0, next_);
  next_ = 0;
  std::size_t kept = buffer_.size();
  buffer_.resize(kept + 64 * 1024);
  auto read = file_->Read(offset_, std::as_writable_bytes(std::span(buffer_).subspan(kept)));
  buffer_.resize(kept + read.value_or(0));
  if (!read) throw DeviceIoError();
  offset_ += *read;
  ended_ = *read == 0;
  return !ended_;
}

bool TextReader::AtEnd() {
  return next_ == buffer_.size() && !Fill();
}

std::string TextReader::ReadLine() {
  if (AtEnd()) throw InputPastEnd();
  std::size_t searched = 0, end;
  while ((end = buffer_.find_first_of("\r\n", next_ + searched)) == buffer_.npos) {
    searched = buffer_.size() - next_;
    if (!Fill()) break;
  }
  std::string_view line = std::string_view(buffer_).substr(next_);
  if (end == buffer_.npos) {
    std::string text = CurrentMachine().GetLocale().FromAnsi(line);
    next_ = buffer_.size();
    return text;
  }
  std::string text = CurrentMachine().GetLocale().FromAnsi(line.substr(0, end - next_));
  bool carriageReturn = buffer_[end] == '\r';
  next_ = end + 1;
  // The line feed of the pair may lie behind what has been read.
  if (carriageReturn && !AtEnd() && buffer_[next_] == '\n') ++next_;
  return text;
}

void WriteTextFile(const std::string& path, const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += Encode(line);
  WriteBeside::RemoveLeftovers(Files(), path);
  WriteBeside file(Files(), path);
  if (file.State() != Status::Done) throw ErrorOf(file.State(), path);
  file.Append(Bytes(text));
  if (Status status = file.Flush(); status != Status::Done) throw WriteErrorOf(status);
  if (Status status = file.Finish(); status != Status::Done) throw ErrorOf(status, path);
}

void AppendTextLine(const std::string& path, const std::string& line) {
  // A name may hold a line's end on some disks: its halves would name other files.
  if (line.find_first_of("\r\n") != line.npos) throw RuntimeError(5, "Invalid procedure call or argument");
  std::string text = Encode(line);
  // A line that a crash or an editor left without its end must not run into this one.
  if (EndsInsideALine(path)) text.insert(0, "\r\n");
  auto file = Open(path, OpenMode::Append);
  std::uint64_t size = file->Size();
  Status status = file->Write(size, Bytes(text));
  if (status == Status::Done) status = file->Flush();
  if (status == Status::Done) return;
  // Half a path would name another file.
  file->Truncate(size);
  throw WriteErrorOf(status);
}

}  // namespace platform
