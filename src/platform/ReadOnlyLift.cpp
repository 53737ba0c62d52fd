#include "platform/ReadOnlyLift.h"

#include "platform/Machine.h"

namespace platform {

ReadOnlyLift::ReadOnlyLift(std::string_view path, const EntryInfo& info)
    : identity_(info.identity), attributes_(info.attributes) {
  if (IsLink(info.kind) || !(attributes_ & kReadOnly)) return;
  path_ = path;
  lifted_ = CurrentMachine().Files().SetAttributes(path, attributes_ & ~kReadOnly, identity_) == Status::Done;
}

ReadOnlyLift::~ReadOnlyLift() {
  if (lifted_) CurrentMachine().Files().SetAttributes(path_, attributes_, identity_);
}

}  // namespace platform
