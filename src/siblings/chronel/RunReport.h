// The report of a scheduled run.
#pragma once

#include <optional>
#include <string>

#include "platform/Desktop.h"
#include "siblings/common/NewTextFile.h"

namespace chronel {

// The present date and time in the user's forms.
std::string MomentText();

class RunReport {
 public:
  // Writes nothing where no report is wanted.
  RunReport(bool wanted, const std::string& path) {
    if (wanted) file_.emplace(path);
  }
  void Line(const std::string& text) {
    if (file_) file_->Line(text);
  }
  // A message box, or a question with what it was answered.
  void Box(const platform::Box& box, platform::BoxAnswer answer);
  void Finish() {
    if (file_) file_->Finish();
  }

 private:
  std::optional<siblings::NewTextFile> file_;
};

}  // namespace chronel
