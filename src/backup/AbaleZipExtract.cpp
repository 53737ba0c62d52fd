// The ZIP control's way out of an archive.
#include "backup/AbaleZip.h"
#include "backup/Extraction.h"
#include "backup/MarkKey.h"
#include "backup/StopWatch.h"
#include "backup/ZipReasons.h"
#include "core/Numbers.h"
#include "platform/Desktop.h"

namespace backup {

namespace {

// Empty for an archive whose entries can be unpacked.
std::string WhyNotUnpacked(const std::string& name, ArchiveFile& file, Archive& archive) {
  if (!archive.IsOpen()) return WhyNotOpen(name, file, archive);
  if (!Overlaps(archive.Zip(), file.Length())) return {};
  return "The archive " + name + " is damaged: its entries share their bytes.";
}

}  // namespace

long AbaleZip::Unzip() {
  if (!KeepPaths && TargetFolder.empty()) return Fail(kFailed, "There is no folder to extract into.");
  ArchiveFile file(ZipFilename);
  Archive archive(file);
  if (std::string problem = WhyNotUnpacked(ZipFilename, file, archive); !problem.empty())
    return Fail(kFailed, problem);
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

long AbaleZip::Verify() {
  ArchiveFile file(ZipFilename);
  Archive archive(file);
  if (std::string problem = WhyNotUnpacked(ZipFilename, file, archive); !problem.empty())
    return Fail(kFailed, problem);
  double damaged = 0;
  StopWatch stop;
  std::vector<std::byte> buffer(1 << 20);
  for (zip_uint64_t i = 0; i < archive.Count(); ++i) {
    Entry entry = ReadEntry(archive.Zip(), i, {});
    bool good = !entry.damaged && !entry.encrypted;
    zip_file_t* content = good && !entry.folder ? zip_fopen_index(archive.Zip(), i, 0) : nullptr;
    if (!entry.folder) good = good && content;
    // libzip compares the checksum at the content's end.
    zip_int64_t read = 1;
    while (content && read > 0) {
      platform::CurrentDesktop().Breathe();
      if (stop.Stopped()) break;
      read = zip_fread(content, buffer.data(), buffer.size());
    }
    if (content) good = zip_fclose(content) == 0 && read == 0;
    if (stop.Stopped()) return Fail(kFailed, kStopped);
    if (!good) ++damaged;
    AbaZip_VerifiedFile(entry.path, good, static_cast<double>(archive.Count()));
  }
  return damaged == 0 ? kDone
                      : Fail(kFailed, core::NumberText(damaged) + " of the archive's entries are damaged.");
}

}  // namespace backup
