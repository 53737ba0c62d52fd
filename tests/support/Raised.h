// The errors of the platform's operations, for tests.
#pragma once

#include "platform/RuntimeError.h"

namespace test {

// The number of the RuntimeError that a call raises; 0 for none.
template <class Call>
int Raised(Call call) {
  try {
    call();
  } catch (const platform::RuntimeError& error) {
    return error.Number();
  }
  return 0;
}

}  // namespace test
