// Folders, with the result codes of the support library. Operations.h tells what each does.
#pragma once

#include <string>

#include "platform/Operations.h"

namespace platform {

class LibDirectory {
 public:
  bool Exists(const std::string& path) const { return ops::IsFolder(path); }
  // 1 done (also where it was there), 0 failed; so for the next two.
  long Create(const std::string& path) const { return ops::MakeFolder(path) == Status::Done ? 1 : 0; }
  long Remove(const std::string& path) const { return ops::RemoveFolder(path) == Status::Done ? 1 : 0; }
  long RemoveTree(const std::string& path) const { return ops::RemoveTree(path) == Status::Done ? 1 : 0; }
  // Bytes.
  double GetSize(const std::string& path) const { return ops::SizeBelow(path); }
};

}  // namespace platform
