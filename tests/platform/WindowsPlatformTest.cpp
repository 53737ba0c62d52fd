#include "PlatformTest.h"
#include "support/Hold.h"

namespace test {

struct LockHolder::Holder {
  Hold hold;
};

LockHolder::LockHolder(const std::string& nativePath, LockKind) : holder_(new Holder{Hold(nativePath)}) {}

LockHolder::~LockHolder() = default;

}  // namespace test
