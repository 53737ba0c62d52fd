// Yes-or-no settings, for programs that have nobody to tell of a text that is no number.
#pragma once

#include <string>

#include "core/Numbers.h"
#include "platform/RuntimeError.h"

namespace siblings {

// The text, read as a number, equals 1.
inline bool IsOn(const std::string& setting) {
  try {
    return core::IsOne(setting);
  } catch (const platform::RuntimeError&) {
    return false;
  }
}

}  // namespace siblings
