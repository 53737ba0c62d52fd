#include "support/WatchedFiles.h"

#include <utility>

namespace test {

using platform::Status;

namespace {

// An open file of either kind.
template <class Kind>
class Watched : public Kind {
 public:
  Watched(WatchedFiles& owner, std::string path, std::unique_ptr<Kind> real)
      : owner_(owner), real_(std::move(real)), path_(std::move(path)) {}
  std::optional<std::size_t> Read(std::uint64_t offset, std::span<std::byte> buffer) override {
    if (owner_.onRead && owner_.onRead(path_, offset) != Status::Done) return {};
    return real_->Read(offset, buffer);
  }
  Status Write(std::uint64_t offset, std::span<const std::byte> data) override {
    owner_.Step("write");
    Status status = owner_.onWrite ? owner_.onWrite(path_, data.size()) : Status::Done;
    return status == Status::Done ? real_->Write(offset, data) : status;
  }
  std::uint64_t Size() override { return real_->Size(); }
  Status Truncate(std::uint64_t size) override {
    owner_.Step("truncate");
    return real_->Truncate(size);
  }
  Status Flush() override {
    ++owner_.flushes;
    owner_.Step("flush");
    return real_->Flush();
  }
  Status SetPermissions(std::uint32_t permissions) override {
    owner_.Step();
    return real_->SetPermissions(permissions);
  }

 protected:
  WatchedFiles& owner_;
  std::unique_ptr<Kind> real_;

 private:
  std::string path_;
};

class WatchedHeldFile : public Watched<platform::HeldFile> {
 public:
  using Watched::Watched;
  std::uint32_t Names() override { return real_->Names(); }
  Status Rename(std::string_view name) override {
    owner_.Step("rename");
    return real_->Rename(name);
  }
  Status Remove() override {
    owner_.Step("remove");
    return real_->Remove();
  }
  std::optional<Stretch> NextStretch(std::uint64_t offset) override { return real_->NextStretch(offset); }
};

}  // namespace

Status WatchedFiles::RemoveFile(std::string_view path, bool readOnlyToo) {
  Step("remove");
  return real_.RemoveFile(path, readOnlyToo);
}

Status WatchedFiles::Rename(std::string_view from, std::string_view to, bool replace) {
  Step("rename");
  Status status = onRename ? onRename(from, to) : Status::Done;
  return status == Status::Done ? real_.Rename(from, to, replace) : status;
}

std::unique_ptr<platform::File> WatchedFiles::Open(std::string_view path, platform::OpenMode mode,
                                                   Status& status) {
  status = onOpen ? onOpen(path, mode) : Status::Done;
  if (status != Status::Done) return nullptr;
  if (mode != platform::OpenMode::Read) Step();
  auto real = real_.Open(path, mode, status);
  if (!real) return nullptr;
  return std::make_unique<Watched<platform::File>>(*this, std::string(path), std::move(real));
}

std::unique_ptr<platform::HeldFile> WatchedFiles::Hold(std::string_view path, Status& status) {
  auto real = real_.Hold(path, status);
  if (!real) return nullptr;
  return std::make_unique<WatchedHeldFile>(*this, std::string(path), std::move(real));
}

Status WatchedFiles::FlushFolder(std::string_view path) {
  Step("flush folder");
  return real_.FlushFolder(path);
}

}  // namespace test
