// The ZIP control behind backups, restore and extract. The only place that knows of a ZIP library.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "backup/BackupPromise.h"
#include "controls/Event.h"
#include "platform/CountedList.h"
#include "platform/FileSystem.h"

namespace backup {

class Filling;

// Archives are plain ZIP files (PKWARE's APPNOTE), Zip64 where they need it. Inside them an entry of the
// program's own is named "C:/folder/name"; at this class's border every path is "C:\folder\name". No link is
// ever stored, restored or written through.
class AbaleZip {
 public:
  // Results.
  static constexpr long kDone = 0;
  static constexpr long kLeftOut = 525;    // Zip: some files could not be read and aren't in the archive
  static constexpr long kFailed = 526;     // what was asked for didn't happen, or not for each file
  static constexpr long kNoArchive = 527;  // ListContents: the file is there but damaged, or no archive

  // The pending list. Assigning a text makes it the one path of the list; an empty text clears it.
  class PendingList {
   public:
    PendingList& operator=(std::string_view text) {
      paths_.Reset();
      if (!text.empty()) paths_.Add(text);
      return *this;
    }
    bool Empty() const { return paths_.Empty(); }
    const platform::CountedList& Paths() const { return paths_; }

   private:
    friend class AbaleZip;
    platform::CountedList paths_;
  };

  // Full path of the archive to work on.
  std::string ZipFilename;
  // Zip: entries keep their full path (the handler of AbaZip_PrepareEntry has the last word). Unzip: True
  // puts each entry back to its stored full path, or below TargetFolder if that isn't empty; False extracts
  // into TargetFolder.
  bool KeepPaths = false;
  std::string TargetFolder;
  PendingList FilesToProcess;
  void AddFileToProcess(std::string_view path) { FilesToProcess.paths_.Add(path); }
  void AddFileToProcess(std::string_view folder, std::string_view name) {
    FilesToProcess.paths_.AddIn(folder, name);
  }

  AbaleZip();
  ~AbaleZip();
  AbaleZip(const AbaleZip&) = delete;
  AbaleZip& operator=(const AbaleZip&) = delete;

  // Stores the pending files. The archive is made if it is missing, with its folder, and added to if it
  // exists; what it held is copied over, never compressed anew. It is written beside its place and renamed
  // there once it lies on the disk, so that what was there is never harmed. It is readable for its owner
  // alone. A path that the archive holds already goes to the new entry; the older one is renamed to " (2)", "
  // (3)" and so on before its extension. Only paths of the very same bytes are the same; a file that this
  // archive was given a moment ago, and that hasn't changed since, isn't stored twice.
  //
  // A file that can't be read as it was at one moment (locked, denied, vanished, changing all the while) is
  // left out, see LeftOut. Links are left out without being noted. With an empty pending list nothing
  // happens. What can't be stored as a whole (a full disk, a damaged archive, no right to write) raises
  // platform::RuntimeError. After a stop by the user the archive stays as it was, and the result is kFailed.
  //
  // With a `promise` the archive is then read back, and each file that it turns out to hold is entered, as it
  // was when it was stored.
  long Zip(BackupPromise* promise = nullptr);
  // Makes one work of all calls of Zip until Finish: the old archive is copied, and the new one put in place
  // and read back, once. Until then the archive is what it was, and Zip enters nothing into a promise.
  // Finish raises what Zip does, and gives kDone or, after a stop by the user, kFailed. Cancel gives up what
  // was done since Join; it may be called at any time.
  void Join();
  long Finish(BackupPromise* promise);
  void Cancel();
  // Paths that the last Zip could not store.
  const std::vector<std::string>& LeftOut() const { return leftOut_; }

  // Writes the pending entries, or all if none are pending, each under a temporary name beside its place and
  // renamed there once its checksum is right and it lies on the disk; dates, attributes and permissions come
  // back with it. Folders are made as they are needed.
  //
  // With KeepPaths: an existing file of the same content stays as it is; one that differs goes to the recycle
  // bin, as "name (before restore).txt". An entry that was renamed because a newer one took its path never
  // takes the place of a file that lies there. Of paths that differ in case alone all come back, under their
  // own names if the disk keeps them apart. Without KeepPaths: an entry whose name occurs once goes straight
  // into the folder, the others into sub-folders that follow their paths without the drive; a file that lies
  // there is kept, and the new one gets " (2)" before its extension.
  //
  // kDone, or kFailed: the archive is missing, damaged, encrypted or no archive, holds a name that isn't a
  // path of its own or a link, claims more than the drive has room for, some files could not be written, or
  // the user stopped it. What can be written is written all the same.
  long Unzip();

  // Raises AbaZip_ListingFile for each entry. kDone, kFailed (the archive can't be opened) or kNoArchive.
  long ListContents();

  // Unpacks every entry to nowhere and raises AbaZip_VerifiedFile for each: whether its bytes are what their
  // checksum says. kDone if all are; kFailed if one isn't, the archive can't be opened, or the user stopped
  // it.
  long Verify();

  // A text for a result; for a failure, what the last operation of any control said.
  std::string ErrorDescription(long code) const;

  // Asked by Unzip before entries go to the places that their names say which this user's program hasn't
  // stored as they are: how many there are, and some of the folders that they would be written to. Without an
  // answer of True they are failures. Into the program's own folder and into start-up folders they never go.
  std::function<bool(double count, const std::vector<std::string>& folders)> ConfirmForeign;

  // For each file that is about to be stored: the entry's name, which the handler may change; the archive;
  // the full source path.
  controls::Event<std::string&, const std::string&, const std::string&> AbaZip_PrepareEntry;

  // For each entry: stored full path, comment, size, compressed size, ratio (percent saved), attribute word,
  // CRC-32, and the dates of the last change, the last access and the creation; a date that isn't stored is
  // empty.
  using Date = std::optional<platform::Moment>;
  controls::Event<const std::string&, const std::string&, double, double, long, long, std::uint32_t, Date,
                  Date, Date>
      AbaZip_ListingFile;

  // The entry's path, whether it is good, and how many entries there are.
  controls::Event<const std::string&, bool, double> AbaZip_VerifiedFile;

 private:
  static constexpr char kStopped[] = "The work was stopped.";
  // Notes the text for ErrorDescription and gives the code.
  static long Fail(long code, std::string text);
  std::vector<std::string> leftOut_;
  bool joined_ = false;
  std::unique_ptr<Filling> filling_;  // of a joined work, once it has something to store
};

}  // namespace backup
