// Which of Firefox's folders are cleared, and how.
#pragma once

#include <string_view>

namespace lumaro {

enum class FirefoxFolder {
  Other,      // nothing of it is touched
  OfProfile,  // loses its cookies and its history, if it holds any
  Cache,      // goes as a whole; never a profile's own folder
};

// By the folder's path, without regard to case. A folder belongs to a profile if ".default" and
// "\Mozilla\Firefox\Profiles\" stand in its path; of such folders that is a cache which has "Cache" in what
// follows the profile's own folder. A "Cache" before that, in a user's name for instance, makes no cache of
// it.
FirefoxFolder JudgeFirefoxFolder(std::string_view folder);

}  // namespace lumaro
