#include "core/ErrorReport.h"

#include <new>

#include "core/Boxes.h"
#include "core/Run.h"
#include "core/Text.h"
#include "platform/RuntimeError.h"

namespace core {

Failure CurrentFailure() {
  try {
    throw;
  } catch (const platform::RuntimeError& error) {
    return {error.Number(), error.what()};
  } catch (const std::bad_alloc&) {
    return {7, "Out of memory"};
  } catch (const std::exception& error) {
    return {51, std::string("Internal error: ") + error.what()};
  } catch (...) {
    return {51, "Internal error"};
  }
}

void ShowErrorReport(const Procedure& procedure, const std::vector<std::string>& arguments,
                     const Failure& failure) {
  if (!Run::FirstFailure(std::string(procedure.module) + "." + procedure.name, failure.number)) return;
  std::vector<std::string> lines = {
      "There has been raised an error: ", std::string("Module: ") + procedure.module,
      std::string("Procedure: ") + procedure.name + " "};
  lines.insert(lines.end(), arguments.begin(), arguments.end());
  lines.push_back("Description: " + failure.description);
  lines.push_back("Error number: " + std::to_string(failure.number));
  Tell(BoxIcon::Critical, procedure.title, lines);
}

}  // namespace core
