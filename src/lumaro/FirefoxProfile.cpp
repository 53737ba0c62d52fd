#include "lumaro/FirefoxProfile.h"

#include <string>

#include "core/Text.h"

namespace lumaro {

FirefoxFolder JudgeFirefoxFolder(std::string_view folder) {
  static const std::string kProfiles = core::Fold("\\Mozilla\\Firefox\\Profiles\\");
  std::string path = core::Fold(folder);
  // The last one: in a copy of a profile that lies within another profile, each keeps its own folder.
  std::size_t profiles = path.rfind(kProfiles);
  if (profiles == path.npos || path.find(core::Fold(".default")) == path.npos) return FirefoxFolder::Other;
  std::size_t behindProfile = path.find('\\', profiles + kProfiles.size());
  bool cache = behindProfile != path.npos && path.find(core::Fold("Cache"), behindProfile) != path.npos;
  return cache ? FirefoxFolder::Cache : FirefoxFolder::OfProfile;
}

}  // namespace lumaro
