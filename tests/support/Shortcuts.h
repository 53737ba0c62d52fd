// Shortcut files, made byte by byte.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace test {

// What goes into a shortcut. Texts are UTF-8 and written in Unicode; those that end in Ansi are written as
// they are.
struct ShortcutParts {
  std::string idList = {};  // the bytes of an item id list, without its size
  bool linkInfo = true;
  std::string basePathAnsi = {};  // local base path
  std::string basePath = {};      // the same in Unicode; left out where it and the suffix are empty
  std::string suffixAnsi = {}, suffix = {};
  std::string networkName = {};                               // "\\server\share": a network form
  bool mapped = false;                                        // the network form stands beside the local one
  std::string name = {}, workingFolder = {}, arguments = {};  // string data
  std::string environmentAnsi = {}, environment = {};         // a target with variables
};

std::string MakeShortcut(const ShortcutParts& parts);

// A shortcut as Windows makes it for a file on a local disk; characters beyond ASCII only stand in the
// Unicode form.
std::string MakeShortcut(std::string_view target);

}  // namespace test
