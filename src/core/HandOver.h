// What the programs hand to the boot-time cleaner, and where.
#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileSystem.h"

namespace core::handover {

// A list of files. What is acted upon stands in the user's settings, where nobody else can write: the values
// of `key`, whose names are running numbers. `file`, a text below the installation folder with a path a line,
// is a copy for the reader that nobody believes.
struct List {
  const char* file;
  const char* key;
};
// What a cleaning could not remove, and index.dat files to be emptied.
inline constexpr List kLockedFiles{"Temp\\Locked Files.txt",
                                   "Software\\Orvane\\Tidorra\\Kelvish\\Locked files"};
inline constexpr List kIndexFiles{"Temp\\Index Files.txt", "Software\\Orvane\\Tidorra\\Kelvish\\Index files"};

// The most that one list takes.
inline constexpr std::size_t kMostLines = 100'000, kMostBytes = 16 << 20;

// Has the system start the boot-time cleaner once, at the next start, by the best entry that can be written
// (see Machine::StartOnceEntries); and takes back whatever was written. `install` ends in a backslash.
void WriteStartEntry(const std::string& install);
void RemoveStartEntry(const std::string& install);

// Whoever changes one of the lists, or the entry, holds this claim meanwhile, which is a moment.
inline constexpr char kClaim[] = "Kelvish lists";
inline constexpr std::chrono::milliseconds kPatience{10'000};

// What a file was at some moment, so that another one of its name is known from it. The number of its volume
// isn't asked: it may change from one start of the system to the next, and the path names the drive.
struct Mark {
  std::array<std::uint64_t, 2> number{};
  platform::Moment created = 0, modified = 0;
  std::uint64_t size = 0;
  bool operator==(const Mark&) const = default;
};
// The mark of a plain file as it was looked at; nothing for all else.
std::optional<Mark> MarkOf(const platform::EntryInfo& info);

// A line of a list.
struct Line {
  std::string name;  // of its value
  std::string path;
  std::optional<Mark> mark;  // nothing if no file was there when it was handed over
};

// The text that stands for a file in the list, and back; nothing for a text that isn't one.
std::string Text(const std::string& path, const std::optional<Mark>& mark);
std::optional<Line> Read(std::string_view text);

// All four under the claim; what the settings can't do is raised as a RuntimeError.
// Hands a file over as it is now, and gives the name of its line. Raises error 67 "Too many files" where the
// list is full.
std::string Add(const List& list, const std::string& path);
// The lines in the order of their making. One that can't be read has an empty path.
std::vector<Line> Lines(const List& list);
// Takes lines out by their names, all of them or none where the settings have transactions.
void Remove(const List& list, const std::vector<std::string>& names);
bool IsEmpty(const List& list);

}  // namespace core::handover
