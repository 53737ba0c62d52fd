// A file that takes the place of the old one once it is whole.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "platform/FileSystem.h"

namespace platform {

// Writes beside `target`, under a name of its own and readable for the user alone, and puts what was written
// in the target's place in one step once it lies on the disk. A kill, a full disk or any other failure leaves
// what was there before. Nothing here raises.
class WriteBeside {
 public:
  // The folder must exist. `files` must outlive the object.
  WriteBeside(FileSystem& files, std::string target);
  // Removes the file beside, unless it has been put in place or kept.
  ~WriteBeside();
  WriteBeside(const WriteBeside&) = delete;
  WriteBeside& operator=(const WriteBeside&) = delete;

  // The first failure, that of making the file included; Done if there was none. After a failure every
  // operation answers the same, and nothing is put in place.
  Status State() const { return state_; }
  // The file beside, where it lies and what it holds. Only where it has been made.
  const std::string& Path() const { return path_; }
  File& Out() { return *file_; }

  // Writes behind what was appended before.
  Status Append(std::span<const std::byte> bytes);
  // Brings what was written onto the disk and closes the file.
  Status Flush();
  // Flushes, if that hasn't been done, and puts the file in the target's place. Refused where the target is
  // no plain file, Denied where it is read-only; with `replace` false, Exists where anything has its name.
  Status Finish(bool replace = true);
  // Closes the file and leaves it under Path().
  void Keep();
  // Closes the file and removes it.
  void Discard();

  // The file name of a target, with "_" for each "~", a dot, six of 0-9 and A-Z, and this. It matches no file
  // filter that a first start is given.
  static constexpr std::string_view kSuffix = ".brasmir";
  // A file's name (without a folder) has that form. `target`, if given, gets the name that it was written
  // for, without tildes and cut short where it was too long.
  static bool IsName(std::string_view name, std::string_view* target = nullptr);
  // Removes what killed processes have left beside `target`. Nobody may be writing it meanwhile.
  static void RemoveLeftovers(FileSystem& files, std::string_view target);

 private:
  FileSystem& files_;
  std::string target_, path_;
  std::unique_ptr<File> file_;
  std::uint64_t end_ = 0;
  Status state_ = Status::Exists;
  bool there_ = false;
};

}  // namespace platform
