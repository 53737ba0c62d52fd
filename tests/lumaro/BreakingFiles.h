// The computer's files, of which one can't be read to its end.
#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>

#include "support/FaultyMachine.h"

namespace test {

// While it lives, reads of the file `path` fail from the offset `sound` on, as on a broken disk.
class BreakingFiles : public FaultyMachine, public platform::FileSystem {
 public:
  BreakingFiles(platform::Machine& machine, std::string path, std::uint64_t sound)
      : FaultyMachine(machine), real_(machine.Files()), path_(std::move(path)), sound_(sound) {}

  void Mend() { sound_ = UINT64_MAX; }

  platform::FileSystem& Files() override { return *this; }

  std::unique_ptr<platform::File> Open(std::string_view path, platform::OpenMode mode,
                                       platform::Status& status) override {
    auto file = real_.Open(path, mode, status);
    if (!file || path != path_ || mode != platform::OpenMode::Read) return file;
    return std::make_unique<BreakingFile>(std::move(file), sound_);
  }
  platform::EntryInfo Look(std::string_view path) override { return real_.Look(path); }
  platform::Status RemoveFile(std::string_view path) override { return real_.RemoveFile(path); }
  platform::Status RemoveFolder(std::string_view path) override { return real_.RemoveFolder(path); }
  platform::Status SetAttributes(std::string_view path, std::uint32_t attributes) override {
    return real_.SetAttributes(path, attributes);
  }
  platform::Status SetTimes(std::string_view path, std::optional<platform::Moment> created,
                            std::optional<platform::Moment> accessed,
                            std::optional<platform::Moment> modified) override {
    return real_.SetTimes(path, created, accessed, modified);
  }
  platform::Status Rename(std::string_view from, std::string_view to, bool replace) override {
    return real_.Rename(from, to, replace);
  }
  platform::Status CreateFolder(std::string_view path) override { return real_.CreateFolder(path); }
  platform::Status TestLock(std::string_view path) override { return real_.TestLock(path); }
  platform::Status Walk(std::string_view root, const platform::WalkOptions& options,
                        platform::TreeVisitor& visitor) override {
    return real_.Walk(root, options, visitor);
  }
  platform::Status FlushFolder(std::string_view path) override { return real_.FlushFolder(path); }

 private:
  class BreakingFile : public platform::File {
   public:
    BreakingFile(std::unique_ptr<platform::File> real, const std::uint64_t& sound)
        : real_(std::move(real)), sound_(sound) {}
    std::optional<std::size_t> Read(std::uint64_t offset, std::span<std::byte> buffer) override {
      if (offset >= sound_) return std::nullopt;
      return real_->Read(offset, buffer.first(std::min<std::uint64_t>(buffer.size(), sound_ - offset)));
    }
    platform::Status Write(std::uint64_t offset, std::span<const std::byte> data) override {
      return real_->Write(offset, data);
    }
    std::uint64_t Size() override { return real_->Size(); }
    platform::Status Truncate(std::uint64_t size) override { return real_->Truncate(size); }
    platform::Status Flush() override { return real_->Flush(); }

   private:
    std::unique_ptr<platform::File> real_;
    const std::uint64_t& sound_;
  };

  platform::FileSystem& real_;
  std::string path_;
  std::uint64_t sound_;
};

}  // namespace test
