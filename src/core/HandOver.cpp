#include "core/HandOver.h"

#include <algorithm>
#include <charconv>

#include "core/Keys.h"
#include "platform/LibRegistry.h"
#include "platform/Machine.h"
#include "platform/RuntimeError.h"

namespace core::handover {

namespace {

constexpr std::uint32_t kRoot = platform::kCurrentUser;
// The start entry, a value of a RunOnce key, and the program below the installation folder.
constexpr char kEntry[] = "Kelvish";
constexpr char kProgram[] = "Kelvish.exe";
constexpr char kUnmarked[] = "- ";

// Takes a number and the blank behind it off the text.
template <class Number>
bool Take(std::string_view& text, Number& number) {
  auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end == text.data() + text.size() || *end != ' ') return false;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()) + 1);
  return true;
}

// What a list holds, kept beside it so that adding a line doesn't read the others: the next line's name, and
// how many lines and bytes there are.
struct Contents {
  std::uint64_t next = 1, lines = 0, bytes = 0;
};

std::string_view NameOf(const List& list) {
  std::string_view key = list.key;
  return key.substr(key.rfind('\\') + 1);
}

Contents ReadContents(const List& list) {
  std::string text = platform::LibRegistry().ReadValue(kRoot, keys::kKelvish, NameOf(list)) + " ";
  std::string_view rest = text;
  Contents contents;
  if (!Take(rest, contents.next) || !Take(rest, contents.lines) || !Take(rest, contents.bytes)) return {};
  return contents;
}

long WriteContents(const List& list, const Contents& contents) {
  return platform::LibRegistry().WriteValue(kRoot, keys::kKelvish, NameOf(list),
                                            std::to_string(contents.next) + " " +
                                                std::to_string(contents.lines) + " " +
                                                std::to_string(contents.bytes));
}

std::vector<std::string> Names(const List& list) {
  platform::CountedList found;
  if (platform::LibRegistry().EnumValues(kRoot, list.key, found) != 0) throw platform::DeviceIoError();
  std::vector<std::string> names;
  for (int i = 0; i < found.UpperBound(); ++i) names.push_back(found[i]);
  return names;
}

}  // namespace

void WriteStartEntry(const std::string& install) {
  for (const auto& [root, data] : platform::CurrentMachine().StartOnceEntries(install + kProgram))
    if (platform::LibRegistry().WriteValue(root, keys::kRunOnce, kEntry, data) == 0) return;
}

void RemoveStartEntry(const std::string& install) {
  platform::LibRegistry().DeleteValue(platform::kLocalMachine, keys::kRunOnce, kEntry);
  for (const auto& [root, data] : platform::CurrentMachine().StartOnceEntries(install + kProgram))
    if (root != platform::kLocalMachine) platform::LibRegistry().DeleteValue(root, keys::kRunOnce, kEntry);
}

std::optional<Mark> MarkOf(const platform::EntryInfo& info) {
  if (info.kind != platform::EntryKind::File) return std::nullopt;
  return Mark{info.identity ? info.identity->file : std::array<std::uint64_t, 2>{}, info.created,
              info.modified, info.size};
}

std::string Text(const std::string& path, const std::optional<Mark>& mark) {
  if (!mark) return kUnmarked + path;
  std::string text;
  for (std::uint64_t part : mark->number) text += std::to_string(part) + " ";
  return text + std::to_string(mark->created) + " " + std::to_string(mark->modified) + " " +
         std::to_string(mark->size) + " " + path;
}

std::optional<Line> Read(std::string_view text) {
  if (text.starts_with(kUnmarked)) return Line{{}, std::string(text.substr(2)), std::nullopt};
  Mark mark;
  if (!Take(text, mark.number[0]) || !Take(text, mark.number[1]) || !Take(text, mark.created) ||
      !Take(text, mark.modified) || !Take(text, mark.size))
    return std::nullopt;
  return Line{{}, std::string(text), mark};
}

std::string Add(const List& list, const std::string& path) {
  const std::string text = Text(path, MarkOf(platform::CurrentMachine().Files().Look(path)));
  platform::RegistryTransaction transaction;
  Contents contents = ReadContents(list);
  if (contents.lines >= kMostLines || contents.bytes + text.size() > kMostBytes)
    throw platform::RuntimeError(67, "Too many files");
  const std::string name = std::to_string(contents.next);
  ++contents.next;
  ++contents.lines;
  contents.bytes += text.size();
  // The number first: after a kill between the two it is used by no other line.
  bool good = WriteContents(list, contents) == 0 &&
              platform::LibRegistry().WriteValue(kRoot, list.key, name, text) == 0;
  if (transaction.Commit() != 0 || !good) throw platform::PermissionDenied();
  return name;
}

std::vector<Line> Lines(const List& list) {
  std::vector<Line> lines;
  for (const std::string& name : Names(list)) {
    Line line = Read(platform::LibRegistry().ReadValue(kRoot, list.key, name)).value_or(Line{});
    line.name = name;
    lines.push_back(std::move(line));
  }
  return lines;
}

void Remove(const List& list, const std::vector<std::string>& names) {
  platform::LibRegistry registry;
  platform::RegistryTransaction transaction;
  bool good = true;
  Contents contents = ReadContents(list);
  for (const std::string& name : names) {
    std::size_t bytes = registry.ReadValue(kRoot, list.key, name).size();
    good = good && registry.DeleteValue(kRoot, list.key, name) == 0;
    contents.lines -= contents.lines > 0;
    contents.bytes -= std::min<std::uint64_t>(contents.bytes, bytes);
  }
  good = good && WriteContents(list, contents) == 0;
  if (transaction.Commit() != 0 || !good) throw platform::PermissionDenied();
}

bool IsEmpty(const List& list) {
  return Names(list).empty();
}

}  // namespace core::handover
