// The ZIP control's way out of an archive.
#include "backup/AbaleZip.h"
#include "backup/Extraction.h"
#include "backup/MarkKey.h"
#include "backup/ZipReasons.h"

namespace backup {

long AbaleZip::Unzip() {
  if (!KeepPaths && TargetFolder.empty()) return Fail(kFailed, "There is no folder to extract into.");
  ArchiveFile file(ZipFilename);
  Archive archive(file);
  if (!archive.IsOpen()) return Fail(kFailed, WhyNotOpen(ZipFilename, file, archive));
  if (Overlaps(archive.Zip(), file.Length()))
    return Fail(kFailed, "The archive " + ZipFilename + " is damaged: its entries share their bytes.");
  Extraction extraction(archive.Zip(), KeepPaths, TargetFolder, MarkKey(false));
  extraction.Choose(FilesToProcess.Paths());
  Extraction::Foreign foreign;
  std::string problem = extraction.Prepare(foreign);
  if (!problem.empty()) return Fail(kFailed, problem);
  bool foreignToo = foreign.count > 0 && ConfirmForeign && ConfirmForeign(foreign.count, foreign.folders);
  bool whole = extraction.Run(foreignToo);
  problem = extraction.Failures();
  if (!whole) problem = problem.empty() ? kStopped : kStopped + (" " + problem);
  return problem.empty() ? kDone : Fail(kFailed, problem);
}

}  // namespace backup
