#include "siblings/common/NewTextFile.h"

#include <span>
#include <utility>

#include "platform/LibDirectory.h"
#include "platform/LibPath.h"
#include "platform/Machine.h"

namespace siblings {

namespace {

using platform::Status;

constexpr std::size_t kBuffer = 64 * 1024;
constexpr char kBeside[] = ".new";

platform::FileSystem& Files() {
  return platform::CurrentMachine().Files();
}

std::string Encode(std::string_view text) {
  platform::Locale& locale = platform::CurrentMachine().GetLocale();
  if (text.find_first_of("\r\n") == text.npos)
    if (auto bytes = locale.ToAnsi(text)) return *bytes;
  std::string bytes;
  while (!text.empty()) {
    std::size_t length = 1;
    while (length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80) ++length;
    std::string_view character = text.substr(0, length);
    auto encoded = character == "\r" || character == "\n" ? std::nullopt : locale.ToAnsi(character);
    bytes += encoded.value_or("?");
    text.remove_prefix(length);
  }
  return bytes;
}

}  // namespace

NewTextFile::NewTextFile(std::string path) : path_(std::move(path)), beside_(path_ + kBeside) {
  platform::LibDirectory().Create(platform::LibPath().GetFolder(path_));
  Status status;
  file_ = Files().Open(beside_, platform::OpenMode::CreateOrEmpty, status);
  good_ = file_ != nullptr;
}

NewTextFile::~NewTextFile() {
  if (!file_) return;
  file_.reset();
  Files().RemoveFile(beside_);
}

void NewTextFile::Discard(const std::string& path) {
  Files().RemoveFile(path + kBeside);
}

void NewTextFile::Line(std::string_view text) {
  if (!good_) return;
  buffer_ += Encode(text);
  buffer_ += "\r\n";
  if (buffer_.size() >= kBuffer) Write();
}

void NewTextFile::Write() {
  good_ = good_ && file_->Write(offset_, std::as_bytes(std::span(buffer_))) == Status::Done;
  offset_ += buffer_.size();
  buffer_.clear();
}

bool NewTextFile::Finish() {
  if (!file_) return false;
  Write();
  good_ = good_ && file_->Flush() == Status::Done;
  platform::EntryKind kind = Files().Look(path_).kind;
  bool free = kind == platform::EntryKind::Missing || kind == platform::EntryKind::File;
  if (!good_ || !free) return false;
  file_.reset();
  if (Files().Rename(beside_, path_, true) != Status::Done) {
    Files().RemoveFile(beside_);
    return false;
  }
  Files().FlushFolder(platform::LibPath().GetFolder(path_));
  return true;
}

}  // namespace siblings
