// For a test that not every machine can play.
#pragma once

#include <cstdlib>
#include <gtest/gtest.h>

// Ends the test with the reason why it can't be played here: as skipped on a developer's machine, and as
// failed on the build server, which has all that the tests need and tells so by the variable CI.
#define CANNOT_PLAY(why)                    \
  do {                                      \
    if (std::getenv("CI")) FAIL() << (why); \
    GTEST_SKIP() << (why);                  \
  } while (false)
