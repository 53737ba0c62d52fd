// The walk that every listing and measuring of this room is made of.
#pragma once

#include <string_view>

#include "platform/FileSystem.h"

namespace platform {

// FileSystem::Walk that lets the stop control in meanwhile (Desktop::Breathe). `root` may end in a backslash.
// It may be a link where it is a known folder or a drive. `spared` as in WalkOptions.
Status WalkTree(std::string_view root, bool recursive, bool sizes, TreeVisitor& visitor,
                std::span<const Identity> spared = {});

// The folder's path is that of a known folder.
bool IsKnownFolder(std::string_view path);

// Lets the stop control in at every few hundredth call.
class Breath {
 public:
  void operator()();

 private:
  unsigned count_ = 0;
};

}  // namespace platform
