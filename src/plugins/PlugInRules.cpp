#include "plugins/PlugInRules.h"

#include "core/Text.h"
#include "core/m_SharedProcedures.h"
#include "platform/RuntimeError.h"

namespace plugins {

bool IsOneName(std::string_view text) {
  if (text.empty() || text.back() == '.' || text.back() == ' ') return false;
  for (unsigned char c : text)
    if (c < 32 || std::string_view("\\/:*?\"<>|").find(static_cast<char>(c)) != std::string_view::npos)
      return false;
  return true;
}

std::string PlugInsFolder() {
  return gRegistry->InstallDirectory + "PlugIns";
}

std::string CategoryFolder(std::string_view category) {
  if (!IsOneName(category)) return {};
  return PlugInsFolder() + "\\" + std::string(category);
}

std::string PlugInPath(std::string_view category, std::string_view name) {
  std::string folder = category.empty() ? PlugInsFolder() : CategoryFolder(category);
  if (folder.empty() || !IsOneName(name)) return {};
  return folder + "\\" + std::string(name) + ".plg";
}

std::optional<std::uint32_t> RootKey(std::string_view name) {
  static constexpr struct {
    std::string_view name;
    std::uint32_t key;
  } kRoots[] = {
      {"HKEY_CLASSES_ROOT", platform::kClassesRoot},
      {"HKEY_CURRENT_USER", platform::kCurrentUser},
      {"HKEY_LOCAL_MACHINE", platform::kLocalMachine},
      {"HKEY_USERS", platform::kUsers},
      {"HKEY_PERFORMANCE_DATA", platform::kPerformanceData},
      {"HKEY_CURRENT_CONFIG", platform::kCurrentConfig},
      {"HKEY_DYN_DATA", platform::kDynData},
  };
  for (const auto& root : kRoots)
    if (root.name == name) return root.key;
  return std::nullopt;
}

std::string ExpandTokens(std::string path, const TokenFolders& folders) {
  const struct {
    std::string_view token;
    const std::string& folder;
  } kTokens[] = {
      {"%SystemRoot%", folders.systemRoot},
      {"%windir%", folders.windows},
      {"%ProgramFiles%", folders.programFiles},
  };
  for (const auto& [token, folder] : kTokens) {
    if (!core::Contains(path, token)) continue;
    std::size_t rest = path.find('%') + token.size() + 1;
    path = folder + (rest < path.size() ? path.substr(rest) : std::string());
  }
  return path;
}

std::string_view TakeField(std::string_view& rest) {
  std::size_t bar = rest.find('|');
  if (bar == std::string_view::npos) throw platform::RuntimeError(5, "Invalid procedure call or argument");
  std::string_view field = rest.substr(0, bar);
  rest.remove_prefix(bar + 1);
  return field;
}

}  // namespace plugins
