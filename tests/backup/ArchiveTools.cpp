#include "backup/ArchiveTools.h"

#include <fstream>

namespace test {

using platform::Status;

namespace {

std::uint32_t Crc(std::string_view text) {
  std::uint32_t crc = 0xFFFFFFFFu;
  for (unsigned char c : text) {
    crc ^= c;
    for (int bit = 0; bit < 8; ++bit) crc = crc & 1 ? crc >> 1 ^ 0xEDB88320u : crc >> 1;
  }
  return ~crc;
}

void Put(std::string& out, std::uint64_t value, int bytes) {
  for (int i = 0; i < bytes; ++i) out += static_cast<char>(value >> 8 * i);
}

}  // namespace

std::string MakeZip(const std::vector<RawEntry>& entries) {
  constexpr std::uint32_t kDate = 0x5B6E7000;  // some day in 2025, 14:00
  std::string zip, directory;
  std::vector<std::size_t> offsets;
  auto common = [&](std::string& out, const RawEntry& entry, const std::string& content) {
    Put(out, 20, 2);
    Put(out, entry.flags, 2);
    Put(out, entry.method, 2);
    Put(out, kDate, 4);
    Put(out, Crc(content), 4);
    Put(out, content.size(), 4);
    Put(out, entry.declaredSize < 0 ? content.size() : static_cast<std::uint64_t>(entry.declaredSize), 4);
    Put(out, entry.name.size(), 2);
    Put(out, 0, 2);
  };
  for (const RawEntry& entry : entries) {
    bool shares = entry.sharedWith >= 0;
    auto original = static_cast<std::size_t>(entry.sharedWith);
    const std::string& content = shares ? entries[original].content : entry.content;
    offsets.push_back(shares ? offsets[original] : zip.size());
    if (!shares) {
      zip += "PK\3\4";
      common(zip, entry, content);
      zip += entry.name + content;
    }
    directory += "PK\1\2";
    Put(directory, static_cast<std::uint64_t>(20 | entry.system << 8), 2);
    common(directory, entry, content);
    Put(directory, 0, 2);
    Put(directory, 0, 4);
    Put(directory, entry.attributes, 4);
    Put(directory, offsets.back(), 4);
    directory += entry.name;
  }
  std::size_t start = zip.size();
  zip += directory;
  zip += "PK\5\6";
  Put(zip, 0, 4);
  Put(zip, entries.size(), 2);
  Put(zip, entries.size(), 2);
  Put(zip, directory.size(), 4);
  Put(zip, start, 4);
  Put(zip, 0, 2);
  return zip;
}

void MakeSparseZip(const std::string& native, int holes, std::uint32_t size) {
  std::ofstream file(native, std::ios::binary);
  std::string directory;
  std::uint64_t offset = 0;
  auto common = [&](std::string& out, const std::string& name) {
    Put(out, 20, 2);
    Put(out, 0, 4);
    Put(out, 0x5B6E7000, 4);
    Put(out, 0, 4);
    Put(out, size, 4);
    Put(out, size, 4);
    Put(out, name.size(), 2);
    Put(out, 0, 2);
  };
  for (int i = 1; i <= holes; ++i) {
    std::string name = "hole" + std::to_string(i), local = "PK\3\4";
    common(local, name);
    local += name;
    file.seekp(static_cast<std::streamoff>(offset));
    file << local;
    directory += "PK\1\2";
    Put(directory, 20, 2);
    common(directory, name);
    Put(directory, 0, 6);
    Put(directory, 0, 4);
    Put(directory, offset, 4);
    directory += name;
    offset += local.size() + size;
  }
  std::string end = "PK\6\6";
  Put(end, 44, 8);
  Put(end, 45, 2);
  Put(end, 45, 2);
  Put(end, 0, 8);
  Put(end, static_cast<std::uint64_t>(holes), 8);
  Put(end, static_cast<std::uint64_t>(holes), 8);
  Put(end, directory.size(), 8);
  Put(end, offset, 8);
  end += "PK\6\7";
  Put(end, 0, 4);
  Put(end, offset + directory.size(), 8);
  Put(end, 1, 4);
  end += "PK\5\6";
  Put(end, 0, 4);
  Put(end, 0xFFFFFFFF, 4);
  Put(end, 0xFFFFFFFF, 4);
  Put(end, 0xFFFFFFFF, 4);
  Put(end, 0, 2);
  file.seekp(static_cast<std::streamoff>(offset));
  file << directory << end;
}

namespace {

class WatchedFile : public platform::File {
 public:
  WatchedFile(WatchedFiles& owner, std::string path, std::unique_ptr<platform::File> real)
      : owner_(owner), path_(std::move(path)), real_(std::move(real)) {}
  std::optional<std::size_t> Read(std::uint64_t offset, std::span<std::byte> buffer) override {
    if (owner_.onRead && owner_.onRead(path_, offset) != Status::Done) return {};
    return real_->Read(offset, buffer);
  }
  Status Write(std::uint64_t offset, std::span<const std::byte> data) override {
    Status status = owner_.onWrite ? owner_.onWrite(path_, data.size()) : Status::Done;
    return status == Status::Done ? real_->Write(offset, data) : status;
  }
  std::uint64_t Size() override { return real_->Size(); }
  Status Truncate(std::uint64_t size) override { return real_->Truncate(size); }
  Status Flush() override {
    ++owner_.flushes;
    return real_->Flush();
  }

 private:
  WatchedFiles& owner_;
  std::string path_;
  std::unique_ptr<platform::File> real_;
};

}  // namespace

WatchedFiles::WatchedFiles(platform::Machine& machine) : machine_(machine) {
  platform::SetCurrentMachine(this);
}
WatchedFiles::~WatchedFiles() {
  platform::SetCurrentMachine(&machine_);
}

Status WatchedFiles::Rename(std::string_view from, std::string_view to, bool replace) {
  Status status = onRename ? onRename(from, to) : Status::Done;
  return status == Status::Done ? Real().Rename(from, to, replace) : status;
}

std::unique_ptr<platform::File> WatchedFiles::Open(std::string_view path, platform::OpenMode mode,
                                                   Status& status) {
  status = onOpen ? onOpen(path, mode) : Status::Done;
  if (status != Status::Done) return nullptr;
  auto real = Real().Open(path, mode, status);
  if (!real) return nullptr;
  return std::make_unique<WatchedFile>(*this, std::string(path), std::move(real));
}

}  // namespace test
