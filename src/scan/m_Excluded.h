// What the exclusion lists keep from being found or cleaned, for both modules.
#pragma once

#include <string>
#include <unordered_set>

#include "platform/CountedList.h"
#include "scan/Exclusions.h"
#include "scan/FoundFile.h"

namespace m_Excluded {

// The two exclusion lists as one scan::Exclusions; each test asks the directories first, then the files.

// Covered by an entry; or, with "Skip read-only files", the attribute word is exactly read-only alone or with
// hidden, archive or both.
bool IsExcludedSettingBrsm(const scan::Exclusions& excluded, const scan::FoundFile& sObject);
// The same with Lumaro's setting.
bool IsExcludedSettingLmro(const scan::Exclusions& excluded, const scan::FoundFile& sObject);
// Covered by an entry; nothing else.
bool IsExcludedBrokenShortcutsBrsm(const scan::Exclusions& excluded, const scan::FoundFile& sObject);
// Covered by an excluded directory; `sExcludedDirectories` is made from that list alone.
bool IsExcludedDirectoryLmro(const scan::Exclusions& sExcludedDirectories, const scan::FoundFile& sObject);

// Zero-byte files of this filter are to be left alone. A filter that the table doesn't hold isn't excluded.
bool IsExcludedZeroByteFileFileFilter(const std::string& sFilter);

// The folder is the Recent or the Temp folder, which Lumaro clears anyway.
bool IsExcludedUserDefinedFolderLmro(const std::string& sDirectory);

// Appends the names of the values under both exclusion keys. The first error code that isn't 0, else 0.
long ReadExclusions(platform::CountedList& sExcludedDirectories, platform::CountedList& sExcludedFiles);

// The cookies to keep: the lines of "Cookies.txt" in the installation folder, in their order. An absent file
// gives an empty list, and so does one that can't be read to its end: half a list would leave the rest of its
// cookies without protection, while an empty one is noticed.
void LoadExcludedCookies(platform::CountedList& sCookies);
// The loaded list is empty although the file isn't: it couldn't be read, and may name any cookie.
bool CookiesToKeepAreUnknown(const platform::CountedList& sCookies);
// For many questions: the lines as a set.
using CookieLines = std::unordered_set<std::string>;
CookieLines LinesOf(const platform::CountedList& sCookies);
// A line is exactly this text, case included.
bool ExcludedCookie(const CookieLines& sCookies, const std::string& sCookie);

}  // namespace m_Excluded
