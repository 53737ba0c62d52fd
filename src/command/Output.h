// What a command has to say, as a table, as JSON or as bare paths.
#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "command/Console.h"
#include "command/Progress.h"
#include "command/Wishes.h"

namespace command {

using Json = nlohmann::ordered_json;

// Counts and bytes are whole numbers.
inline std::int64_t Whole(double number) {
  return static_cast<std::int64_t>(number);
}

struct Column {
  const char* title;
  int width;  // the last column's is that of its text
  bool isNumber = false;
};

// A table for a person goes to the standard output, line by line and without line ends or control characters
// in a cell, whatever a name holds. JSON is one object a line, as docs/tidorra.schema.json says. Bare paths
// end in a zero byte each and are the very bytes of the names.
class Output {
 public:
  Output(Console& console, Form form, Progress& progress)
      : console_(console), form_(form), progress_(progress) {}

  void Table(std::vector<Column> columns);
  // One row: its cells, the object that says the same, and the path that it is about, if it is about one.
  void Row(const std::vector<std::string>& cells, const Json& object, std::string_view path = {});
  // The last words: a sentence for a person, on the standard error, and the object.
  void Summary(const std::string& sentence, const Json& object);
  // A sentence on the standard error, whatever the form, but for what Quiet leaves out.
  void Note(const std::string& sentence);
  void Error(const std::string& sentence);

 private:
  void Line(const Json& object);
  Console& console_;
  Form form_;
  Progress& progress_;
  std::vector<Column> columns_;
  bool titled_ = false;
};

// Puts a path into an object: its text, and where that isn't UTF-8 also its bytes as hexadecimal digits.
void PutPath(Json& object, std::string_view path);

}  // namespace command
