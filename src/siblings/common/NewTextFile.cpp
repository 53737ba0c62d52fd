#include "siblings/common/NewTextFile.h"

#include <span>

#include "core/Text.h"
#include "platform/LibPath.h"
#include "platform/Machine.h"
#include "platform/Operations.h"

namespace siblings {

namespace {

constexpr std::size_t kBuffer = 64 * 1024;

// The computer's files, once the folder of `path` is there and holds nothing that a kill has left of that
// file.
platform::FileSystem& FilesReadyFor(const std::string& path) {
  platform::FileSystem& files = platform::CurrentMachine().Files();
  platform::ops::MakeFolder(platform::LibPath().GetFolder(path));
  platform::WriteBeside::RemoveLeftovers(files, path);
  return files;
}

std::string Encode(std::string_view text) {
  platform::Locale& locale = platform::CurrentMachine().GetLocale();
  const std::string line = core::OneLine(text);
  if (auto bytes = locale.ToAnsi(line)) return *bytes;
  text = line;
  std::string bytes;
  while (!text.empty()) {
    std::size_t length = 1;
    while (length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80) ++length;
    std::string_view character = text.substr(0, length);
    bytes += locale.ToAnsi(character).value_or("?");
    text.remove_prefix(length);
  }
  return bytes;
}

}  // namespace

NewTextFile::NewTextFile(const std::string& path) : file_(FilesReadyFor(path), path) {}

void NewTextFile::Line(std::string_view text) {
  buffer_ += Encode(text);
  buffer_ += "\r\n";
  if (buffer_.size() >= kBuffer) Write();
}

void NewTextFile::Write() {
  file_.Append(std::as_bytes(std::span(buffer_)));
  buffer_.clear();
}

bool NewTextFile::Finish() {
  Write();
  return file_.Finish() == platform::Status::Done;
}

}  // namespace siblings
