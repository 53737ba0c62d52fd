#include "platform/PathText.h"

namespace platform {

bool IsDrivePath(std::string_view path) {
  if (path.size() < 3 || path[1] != ':' || path[2] != '\\') return false;
  char letter = path[0];
  return (letter >= 'A' && letter <= 'Z') || (letter >= 'a' && letter <= 'z');
}

bool IsDriveRoot(std::string_view path) {
  return path.size() == 3 && IsDrivePath(path);
}

bool IsPlainPath(std::string_view path) {
  if (!IsDrivePath(path)) return false;
  if (path.size() == 3) return true;
  std::string_view rest = path.substr(3);
  if (rest.back() == '\\' || rest.find('/') != rest.npos || rest.find('\0') != rest.npos) return false;
  while (!rest.empty()) {
    std::string_view name = TakeComponent(rest);
    if (name.empty() || name == "." || name == "..") return false;
  }
  return true;
}

std::string_view WithoutBackslash(std::string_view path) {
  if (path.ends_with('\\') && !IsDriveRoot(path)) path.remove_suffix(1);
  return path;
}

std::string_view TakeComponent(std::string_view& rest) {
  std::size_t end = rest.find('\\');
  std::string_view name = rest.substr(0, end);
  rest.remove_prefix(end == rest.npos ? rest.size() : end + 1);
  return name;
}

}  // namespace platform
