// The drives of the computer.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Machine.h"
#include "platform/windows/WindowsPaths.h"

namespace platform {

// Free is what the user may still fill, used is the rest.
class WindowsDrives : public Drives {
 public:
  // Where `played` isn't empty, those are the drives.
  WindowsDrives(const WindowsPaths& paths, std::vector<Drive> played)
      : paths_(paths), played_(std::move(played)) {}
  std::vector<Drive> List() override;
  std::optional<DriveInfo> Info(std::string_view root) override;

 private:
  const WindowsPaths& paths_;
  std::vector<Drive> played_;
};

}  // namespace platform
