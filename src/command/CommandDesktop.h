// The person at a terminal, as far as a run knows them.
#pragma once

#include <string>

#include "command/Output.h"
#include "siblings/common/UnattendedDesktop.h"

namespace command {

class CommandDesktop : public siblings::UnattendedDesktop {
 public:
  CommandDesktop(Console& console, Output& output, Progress& progress, bool yes);

  // A box is said on the standard error. A question is answered with Yes where the command line said so or
  // the matter has been confirmed, by the person at a terminal, and otherwise with No.
  platform::BoxAnswer MessageBox(const platform::Box& box) override;

  // Asks whether a run may begin. False: it mustn't, and `code` says with what to end.
  bool Confirm(const std::string& question, int& code);

  // Questions are answered with Yes, because their matter has been confirmed.
  bool confirmed = false;
  // How many boxes told of a failure that ends a work.
  int failures = 0;

 private:
  bool Ask(const std::string& question);
  Console& console_;
  Output& output_;
  Progress& progress_;
  bool yes_;
};

}  // namespace command
