#include "platform/LibPath.h"

#include "platform/PathText.h"

namespace platform {

std::string LibPath::AddBackslash(std::string_view path) const {
  if (path.empty()) return {};
  while (path.ends_with('\\')) path.remove_suffix(1);
  return std::string(path) + '\\';
}

std::string LibPath::GetFolder(std::string_view path) const {
  std::size_t last = path.rfind('\\');
  if (last == path.npos) return {};
  // The root's backslash is a part of it.
  return std::string(path.substr(0, last == 2 && IsDrivePath(path) ? 3 : last));
}

std::string LibPath::GetFileName(std::string_view path) const {
  std::size_t last = path.rfind('\\');
  return std::string(last == path.npos ? path : path.substr(last + 1));
}

std::string LibPath::GetExtension(std::string_view path) const {
  std::size_t last = path.rfind('\\');
  if (last != path.npos) path.remove_prefix(last + 1);
  std::size_t dot = path.rfind('.');
  return dot == path.npos ? std::string() : std::string(path.substr(dot + 1));
}

std::string LibPath::GetBaseName(std::string_view path) const {
  while (path.ends_with('\\')) path.remove_suffix(1);
  return GetFileName(path);
}

std::string LibPath::GetDriveRoot(std::string_view path) const {
  if (path.size() < 2 || path[1] != ':' || !IsDrivePath(std::string{path[0], ':', '\\'})) return {};
  return {path[0], ':', '\\'};
}

std::string LibPath::ReplaceChars(std::string_view text, std::string_view find,
                                  std::string_view replacement) const {
  if (find.empty()) return std::string(text);
  std::string result;
  for (std::size_t hit; (hit = text.find(find)) != text.npos; text.remove_prefix(hit + find.size()))
    result.append(text.substr(0, hit)).append(replacement);
  return result.append(text);
}

}  // namespace platform
