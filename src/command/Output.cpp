#include "command/Output.h"

#include <algorithm>
#include <utility>

#include "core/Text.h"
#include "platform/Utf.h"

namespace command {

namespace {

// Names are padded by their characters.
std::size_t Width(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(
      text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

void Append(std::string& line, const std::string& cell, const Column& column, bool isLast) {
  const std::size_t width = Width(cell), wanted = static_cast<std::size_t>(column.width);
  const std::string padding(wanted > width ? wanted - width : 0, ' ');
  if (column.isNumber) line += padding;
  line += cell;
  if (isLast) return;
  if (!column.isNumber) line += padding;
  line += "  ";
}

}  // namespace

void Output::Table(std::vector<Column> columns) {
  columns_ = std::move(columns);
  titled_ = false;
}

void Output::Row(const std::vector<std::string>& cells, const Json& object, std::string_view path) {
  progress_.Clear();
  switch (form_) {
    case Form::Quiet:
      return;
    case Form::Json:
      return Line(object);
    case Form::Null:
      if (!path.empty()) console_.out << path << '\0';
      return;
    case Form::Table:
      break;
  }
  std::string line;
  if (!std::exchange(titled_, true)) {
    for (std::size_t i = 0; i < columns_.size(); ++i)
      Append(line, columns_[i].title, columns_[i], i + 1 == columns_.size());
    line += '\n';
  }
  for (std::size_t i = 0; i < cells.size(); ++i)
    Append(line, core::OneLine(cells[i]), columns_[i], i + 1 == cells.size());
  console_.out << line << '\n';
}

void Output::Summary(const std::string& sentence, const Json& object) {
  progress_.Clear();
  if (form_ == Form::Json) Line(object);
  if (form_ == Form::Table) Note(sentence);
}

void Output::Note(const std::string& sentence) {
  if (form_ != Form::Quiet) Error(sentence);
}

void Output::Error(const std::string& sentence) {
  progress_.Clear();
  // What was said before comes first where both go to one place.
  console_.out << std::flush;
  console_.err << core::OneLine(sentence) << std::endl;
}

void Output::Line(const Json& object) {
  console_.out << object.dump(-1, ' ', false, Json::error_handler_t::replace) << '\n';
}

void PutPath(Json& object, std::string_view path) {
  object["path"] = path;
  if (platform::IsUtf8(path)) return;
  constexpr char kDigits[] = "0123456789abcdef";
  std::string digits;
  for (char c : path) {
    auto byte = static_cast<unsigned char>(c);
    digits += kDigits[byte >> 4];
    digits += kDigits[byte & 15];
  }
  object["path_hex"] = digits;
}

}  // namespace command
