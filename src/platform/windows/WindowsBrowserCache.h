// The browser cache of the computer: WinINet's.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/Machine.h"

namespace platform {

class WindowsBrowserCache : public BrowserCache {
 public:
  // The entries of all kinds: pages, cookies, history.
  Status List(std::vector<std::string>& keys) override;
  Status Remove(std::string_view key) override;
};

}  // namespace platform
