// A row of a stored list, as the values that it has in the registry.
#pragma once

#include <string>
#include <vector>

namespace settings {

// What one key holds of a row, under the row's text as the value's name. Keys lie below the current user's
// hive.
struct RowValue {
  const char* key;
  std::string data;
};

// Gives a row another text: its values are written under the new name, and only when all of them are there
// the old ones are deleted, so that a row is never without its values; in one transaction where the store has
// such. Where the two names differ in capitals alone they are the same values, which keep the name that they
// have. 0 done; otherwise the error code, and the row has its old values.
long RenameRow(const std::string& old, const std::string& name, const std::vector<RowValue>& values);

}  // namespace settings
