#include "backup/AbaleZip.h"

#include <map>

#include "backup/Archive.h"
#include "backup/StopWatch.h"
#include "backup/ZipReasons.h"
#include "core/Numbers.h"
#include "platform/Desktop.h"

namespace backup {

namespace {

// What the last failure of each code said. All controls share it: the window's own control restores, and the
// main window's is asked why that failed.
std::map<long, std::string>& LastFailures() {
  static std::map<long, std::string> failures;
  return failures;
}

}  // namespace

long AbaleZip::Fail(long code, std::string text) {
  LastFailures()[code] = std::move(text);
  return code;
}

std::string AbaleZip::ErrorDescription(long code) const {
  auto last = LastFailures().find(code);
  if (last != LastFailures().end()) return last->second;
  switch (code) {
    case kDone:
      return "Done.";
    case kLeftOut:
      return "Some files could not be stored.";
    case kFailed:
      return "The work could not be done.";
    case kNoArchive:
      return "The file is damaged or not a ZIP archive.";
    default:
      return "Unknown result.";
  }
}

long AbaleZip::ListContents() {
  ArchiveFile file(ZipFilename);
  Archive archive(file);
  if (!archive.IsOpen()) {
    bool unreadable = file.Failure() != platform::Status::Done || archive.ErrorCode() == ZIP_ER_NOENT;
    return Fail(unreadable ? kFailed : kNoArchive, WhyNotOpen(ZipFilename, file, archive));
  }
  double damaged = 0;
  StopWatch stop;
  for (zip_uint64_t i = 0; i < archive.Count(); ++i) {
    platform::CurrentDesktop().Breathe();
    if (stop.Stopped()) return Fail(kFailed, kStopped);
    Entry entry = ReadEntry(archive.Zip(), i, {});
    if (entry.damaged) ++damaged;
    double size = static_cast<double>(entry.size), compressed = static_cast<double>(entry.compressedSize);
    long ratio =
        size > compressed ? static_cast<long>(core::RoundHalfEven(100 - compressed * 100 / size)) : 0;
    AbaZip_ListingFile(entry.path, entry.comment, size, compressed, ratio,
                       static_cast<long>(entry.attributes), entry.crc, entry.dates.modified,
                       entry.dates.accessed, entry.dates.created);
  }
  if (damaged > 0)
    return Fail(kNoArchive, "The archive is damaged in " + core::NumberText(damaged) + " of its entries.");
  return kDone;
}

}  // namespace backup
