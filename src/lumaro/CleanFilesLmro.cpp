#include "lumaro/CleanFilesLmro.h"

#include <map>

#include "core/ErrorReport.h"
#include "core/Keys.h"
#include "core/m_SharedProcedures.h"
#include "lumaro/Cleaners.h"
#include "platform/Desktop.h"
#include "platform/LibRegistry.h"
#include "platform/RuntimeError.h"
#include "removal/Removing.h"
#include "scan/m_Excluded.h"

namespace m_CleanFiles {

using core::Args;
using core::Guarded;
using places::Way;

void CleanPlace(frmMain& form, const places::Place& place, Remover& remover) {
  static const std::map<Way, lumaro::Cleaner*> cleaners = {
      {Way::Files, lumaro::CleanFiles},     {Way::CacheEntries, lumaro::CleanCacheEntries},
      {Way::History, lumaro::CleanHistory}, {Way::IndexDat, lumaro::ClearIndexDat},
      {Way::Firefox, lumaro::CleanFirefox}, {Way::RecycleBin, lumaro::EmptyRecycleBin},
  };
  Guarded(core::Procedure{"m_CleanFiles", place.cleaner}, Args(core::Object{"frmMain"}),
          [&] { cleaners.at(place.way)(form, place, remover); });
}

#define CLEANER(name)                                    \
  void name(frmMain& form, Remover& remover) {           \
    CleanPlace(form, places::ClearedBy(#name), remover); \
  }
CLEANER(CleanCookieFilesLmro)
CLEANER(CleanTemporaryInternetFilesLmro)
CLEANER(CleanHistoryLmro)
CLEANER(CleanDownloadedProgramFilesLmro)
CLEANER(CleanOfflineFilesLmro)
CLEANER(ClearIndexDatFiles)
CLEANER(CleanRecentFolderLmro)
CLEANER(CleanTempFolderLmro)
CLEANER(CleanXPPrefetchFolderLmro)
CLEANER(CleanUserDefinedFoldersLmro)
CLEANER(CleanFirefoxBrowserCacheLmro)
CLEANER(EmptyRecycleBinLmro)
#undef CLEANER

void DeleteFoldersLmro(bool bForce) {
  Guarded(core::Procedure{"m_CleanFiles", "DeleteFoldersLmro"}, Args(core::Value("bForce", bForce)), [&] {
    platform::CountedList directories;
    if (platform::LibRegistry().EnumValues(gRegistry->HKEY_CURRENT_USER, core::keys::kExcludedDirectories,
                                           directories) != 0)
      throw platform::PathFileAccess();
    scan::Exclusions excluded(directories);
    for (int i = gFolders.UpperBound() - 1; i >= 0; --i) {
      platform::CurrentDesktop().Breathe();
      scan::FoundFile folder(gFolders, i);
      if (m_Excluded::IsExcludedDirectoryLmro(excluded, folder)) continue;
      if (bForce)
        removal::RemoveTree(folder.Path());
      else
        removal::RemoveFolder(folder.Path());
    }
  });
}

}  // namespace m_CleanFiles
