// A file that is being judged.
#pragma once

#include <string>
#include <string_view>

#include "platform/CountedList.h"
#include "platform/FileSystem.h"
#include "platform/LibFile.h"

namespace scan {

// Its path in two pieces, the folder with its backslash and the name. The whole path, which most files of a
// scan never need, is put together when it is first asked for. Lives no longer than the list or the text that
// it was made from.
class FoundFile {
 public:
  // `ahead`, if given, was told of the list's entries.
  FoundFile(const platform::CountedList& list, int index, platform::SizesAhead* ahead = nullptr)
      : FoundFile(list.FolderText(list.FolderOf(index)), list.NameText(index)) {
    ahead_ = ahead;
    index_ = index;
  }
  explicit FoundFile(std::string_view path) : FoundFile({}, path) {}

  std::string_view Folder() const { return folder_; }
  std::string_view Name() const { return name_; }
  const std::string& Path() const {
    if (path_.empty()) path_.append(folder_).append(name_);
    return path_;
  }
  // Known to hold something, without a look at it now.
  bool IsFilled() const { return ahead_ && ahead_->IsFilled(index_); }
  // As LibFile::GetSize gives it; of two seconds ago at most.
  long Size() const {
    if (ahead_)
      if (auto size = ahead_->SizeOf(index_)) return platform::LibFile::AsSize(*size);
    return platform::LibFile().GetSize(Path());
  }

 private:
  FoundFile(std::string_view folder, std::string_view name) : folder_(folder), name_(name) {
    if (!folder_.empty()) return;
    std::size_t last = name.rfind('\\');
    if (last == name.npos) return;
    folder_ = name.substr(0, last + 1);
    name_ = name.substr(last + 1);
  }

  std::string_view folder_, name_;
  mutable std::string path_;
  platform::SizesAhead* ahead_ = nullptr;
  int index_ = 0;
};

// What an error report says of it.
inline std::string ArgumentText(const FoundFile& file) {
  return file.Path();
}

}  // namespace scan
