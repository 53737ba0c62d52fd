#include "scan/m_Excluded.h"

#include "core/ErrorReport.h"
#include "core/Keys.h"
#include "core/Numbers.h"
#include "core/Text.h"
#include "core/m_SharedProcedures.h"
#include "platform/LibFile.h"
#include "platform/LibFolders.h"
#include "platform/LibPath.h"
#include "platform/LibRegistry.h"
#include "platform/Operations.h"
#include "platform/TextFile.h"

namespace m_Excluded {

using core::Args;
using core::Array;
using core::Guarded;
using core::Procedure;
using core::Value;
using platform::CountedList;
using platform::LibPath;

namespace {

// Bytes; a list of cookies that is larger was made by somebody else, and then no cookie goes.
constexpr std::uint64_t kLargestCookieList = 16 << 20;

// Read-only alone or with hidden, archive or both.
bool IsReadOnlyWord(long attributes) {
  return attributes == 1 || attributes == 3 || attributes == 33 || attributes == 35;
}

bool IsExcludedSetting(const char* procedure, const scan::Exclusions& excluded,
                       const scan::FoundFile& sObject, const std::string& skipReadOnlyFiles) {
  return Guarded(Procedure{"m_Excluded", procedure},
                 Args(Array{"sExcludedDirectories()"}, Array{"sExcludedFiles()"}, Value("sObject", sObject)),
                 [&] {
                   if (excluded.Cover(sObject)) return true;
                   return core::IsOne(skipReadOnlyFiles) &&
                          IsReadOnlyWord(platform::LibFile().GetAttributes(sObject.Path()));
                 });
}

}  // namespace

bool IsExcludedSettingBrsm(const scan::Exclusions& excluded, const scan::FoundFile& sObject) {
  return IsExcludedSetting("IsExcludedSettingBrsm", excluded, sObject, gRegistry->SkipReadOnlyFilesBrsm);
}

bool IsExcludedSettingLmro(const scan::Exclusions& excluded, const scan::FoundFile& sObject) {
  return IsExcludedSetting("IsExcludedSettingLmro", excluded, sObject, gRegistry->skipReadOnlyfilesLmro);
}

bool IsExcludedBrokenShortcutsBrsm(const scan::Exclusions& excluded, const scan::FoundFile& sObject) {
  return Guarded(Procedure{"m_Excluded", "IsExcludedBrokenShortcutsBrsm"},
                 Args(Array{"sExcludedDirectories()"}, Array{"sExcludedFiles()"}, Value("sObject", sObject)),
                 [&] { return excluded.Cover(sObject); });
}

bool IsExcludedDirectoryLmro(const scan::Exclusions& sExcludedDirectories, const scan::FoundFile& sObject) {
  return Guarded(Procedure{"m_Excluded", "IsExcludedDirectoryLmro"},
                 Args(Array{"sExcludedDirectories()"}, Value("sObject", sObject)),
                 [&] { return sExcludedDirectories.Cover(sObject); });
}

bool IsExcludedZeroByteFileFileFilter(const std::string& sFilter) {
  return Guarded(Procedure{"m_Excluded", "IsExcludedZeroByteFileFileFilter"}, Args(Value("sFilter", sFilter)),
                 [&] {
                   std::string stored = platform::LibRegistry().ReadValue(
                       gRegistry->HKEY_CURRENT_USER, core::keys::kExcludeZeroByteFiles, sFilter);
                   return !stored.empty() && core::ToBoolean(stored);
                 });
}

bool IsExcludedUserDefinedFolderLmro(const std::string& sDirectory) {
  return Guarded(Procedure{"m_Excluded", "IsExcludedUserDefinedFolderLmro"},
                 Args(Value("sDirectory", sDirectory)), [&] {
                   LibPath paths;
                   platform::LibFolders folders;
                   std::string folder = paths.AddBackslash(sDirectory);
                   return core::Equals(folder, paths.AddBackslash(folders.Recent())) ||
                          core::Equals(folder, paths.AddBackslash(folders.Temp()));
                 });
}

long ReadExclusions(CountedList& sExcludedDirectories, CountedList& sExcludedFiles) {
  platform::LibRegistry registry;
  long directories = registry.EnumValues(gRegistry->HKEY_CURRENT_USER, core::keys::kExcludedDirectories,
                                         sExcludedDirectories);
  long files = registry.EnumValues(gRegistry->HKEY_CURRENT_USER, core::keys::kExcludedFiles, sExcludedFiles);
  return directories != 0 ? directories : files;
}

void LoadExcludedCookies(CountedList& sCookies) {
  Guarded(
      Procedure{"m_Excluded", "LoadExcludedCookies"},
      Args(Array{"sCookies()"}, Value("lCookieIndex", sCookies.UpperBound())),
      [&] {
        sCookies.Reset();
        std::string file = gRegistry->InstallDirectory + "Cookies.txt";
        if (!platform::ops::IsFile(file)) return;
        platform::TextReader reader(file, kLargestCookieList);
        while (!reader.AtEnd()) sCookies.Add(reader.ReadLine());
      },
      [&] { sCookies.Reset(); });
}

bool CookiesToKeepAreUnknown(const CountedList& sCookies) {
  return sCookies.UpperBound() == 0 &&
         platform::LibFile().GetSize(gRegistry->InstallDirectory + "Cookies.txt") != 0;
}

CookieLines LinesOf(const CountedList& sCookies) {
  CookieLines lines;
  for (int i = 0; i < sCookies.UpperBound(); ++i) lines.insert(sCookies[i]);
  return lines;
}

bool ExcludedCookie(const CookieLines& sCookies, const std::string& sCookie) {
  return Guarded(Procedure{"m_Excluded", "ExcludedCookie"},
                 Args(Array{"sCookies()"}, Value("sCookie", sCookie)),
                 [&] { return sCookies.contains(sCookie); });
}

}  // namespace m_Excluded
