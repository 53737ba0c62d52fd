#include <stdexcept>
#include <windows.h>

#include "platform/windows/WindowsText.h"
#include "support/Hold.h"

namespace test {

Hold::Hold(const std::string& native)
    : file_(CreateFileW(platform::ToWide(native).value().c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                        OPEN_EXISTING, 0, nullptr)) {
  if (file_ == INVALID_HANDLE_VALUE) throw std::runtime_error("can't hold " + native);
}

Hold::~Hold() {
  CloseHandle(file_);
}

}  // namespace test
