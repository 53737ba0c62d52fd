// The file system of the computer.
#pragma once

#include "platform/FileSystem.h"
#include "platform/windows/WindowsPaths.h"

namespace platform {

// See WindowsPaths for how a path finds its file and what a link is. What is removed or changed is opened
// first and then acted upon by its handle, so that nothing can take its place in between. A file is in use
// where somebody has it open without allowing what is to be done, or holds a lock on a part of it.
class WindowsFileSystem : public FileSystem {
 public:
  explicit WindowsFileSystem(WindowsPaths& paths) : paths_(paths) {}

  EntryInfo Look(std::string_view path) override;
  EntryInfo LookBriefly(std::string_view path) override;
  Status RemoveFile(std::string_view path, bool readOnlyToo = false) override;
  Status RemoveFolder(std::string_view path, bool readOnlyToo = false) override;
  Status SetAttributes(std::string_view path, std::uint32_t attributes,
                       std::optional<Identity> only = {}) override;
  Status SetTimes(std::string_view path, std::optional<Moment> created, std::optional<Moment> accessed,
                  std::optional<Moment> modified) override;
  Status Rename(std::string_view from, std::string_view to, bool replace) override;
  Status Link(std::string_view path, std::string_view name) override;
  Status CreateFolder(std::string_view path) override;
  std::unique_ptr<File> Open(std::string_view path, OpenMode mode, Status& status) override;
  std::unique_ptr<HeldFile> Hold(std::string_view path, Status& status) override;
  std::vector<Identity> Ancestry(std::string_view path) override;
  Status TestLock(std::string_view path) override;
  // A folder's listing tells the sizes.
  std::unique_ptr<SizesAhead> LookAhead() override;
  Status Walk(std::string_view root, const WalkOptions& options, TreeVisitor& visitor) override;
  // A folder's changes lie in the file system's own journal, in their order; where the folder can be flushed
  // all the same, it is.
  Status FlushFolder(std::string_view path) override;

 private:
  EntryInfo LookByName(std::string_view path);
  std::unique_ptr<File> Create(std::string_view path, Status& status);
  Status KeepIfInPlace(const std::wstring& native, std::string_view path);

  WindowsPaths& paths_;
};

}  // namespace platform
