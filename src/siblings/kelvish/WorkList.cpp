#include "siblings/kelvish/WorkList.h"

#include "platform/Claim.h"
#include "platform/Machine.h"
#include "platform/RuntimeError.h"
#include "platform/WriteBeside.h"
#include "siblings/common/NewTextFile.h"

namespace kelvish {

namespace {

using core::handover::Line;

constexpr std::size_t kTogether = 500;

// Two programs at the lists at once could lose a line.
class Moment {
 public:
  Moment() : claim_(core::handover::kClaim, core::handover::kPatience) {
    if (!claim_.Held()) throw platform::PermissionDenied();
  }

 private:
  platform::Claim claim_;
};

}  // namespace

std::vector<Line> WorkList::Take() {
  Moment moment;
  std::vector<Line> lines;
  std::unordered_set<std::string> seen;
  for (Line& line : core::handover::Lines(list_)) {
    if (line.path.empty() || seen.insert(core::handover::Text(line.path, line.mark)).second)
      lines.push_back(std::move(line));
    else
      done_.push_back(line.name);
  }
  return lines;
}

void WorkList::Done(const Line& line) {
  done_.push_back(line.name);
  if (done_.size() < kTogether) return;
  Moment moment;
  TakeOut();
}

void WorkList::TakeOut() {
  if (!done_.empty()) core::handover::Remove(list_, done_);
  done_.clear();
}

void WorkList::Finish() {
  Moment moment;
  TakeOut();
  ShowRest();
}

void WorkList::ShowRest() const {
  const std::string copy = install_ + list_.file;
  const std::vector<Line> lines = core::handover::Lines(list_);
  if (!lines.empty()) {
    siblings::NewTextFile file(copy);
    for (const Line& line : lines)
      if (!line.path.empty()) file.Line(line.path);
    file.Finish();
    return;
  }
  platform::FileSystem& files = platform::CurrentMachine().Files();
  if (files.Look(copy).kind == platform::EntryKind::File) files.RemoveFile(copy);
  platform::WriteBeside::RemoveLeftovers(files, copy);
}

}  // namespace kelvish
