// One filling of an archive with files. For the ZIP control alone.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "backup/ArchiveWriter.h"
#include "backup/BackupPromise.h"
#include "backup/Packing.h"
#include "backup/ReadBack.h"
#include "backup/StopWatch.h"
#include "platform/CountedList.h"
#include "platform/FileSystem.h"

namespace backup {

// Reads files on the calling thread, packs them on all cores, and writes them in their order.
class Filling {
 public:
  // Raises platform::RuntimeError, as everything here does, if what is there can't be added to.
  explicit Filling(const std::string& target);

  // Gives an entry's name, from the file's path; an empty one leaves the file out.
  using Naming = std::function<std::string(const std::string& path)>;
  // Stores files. Those that can't be read as they were at one moment are appended to `leftOut`; links are
  // passed over. False if the user stopped it.
  bool Store(const platform::CountedList& paths, const Naming& naming, std::vector<std::string>& leftOut);

  // Puts the archive in place, reads back what was stored, and enters it into `promise`, if there is one.
  // False if the user stopped it; then nothing was entered and the archive may be what it was.
  bool Finish(BackupPromise* promise);

 private:
  // A file whose pieces are on their way.
  struct Underway {
    NewEntry entry;
    std::string path;
    int given = 0, taken = 0;  // pieces
    bool allGiven = false, failed = false;
    std::size_t firstPiece = 0;
    Sha256::Digest digest{};
  };

  bool IsStored(const std::string& path, const std::string& name, const platform::EntryInfo& info) const;
  void StoreOne(const std::string& path, const std::string& name, const platform::EntryInfo& info,
                std::unique_ptr<platform::File> file);
  bool StoreWhole(Underway& underway, std::unique_ptr<platform::File> file);
  bool StoreInPieces(Underway& underway, platform::File& file);
  void Give(std::vector<std::byte> raw, bool first, bool last);
  void WriteDone(bool all);
  void Write(PackJob& job);
  void EndFront();

  StopWatch stop_;
  std::string target_;
  ArchiveWriter writer_;
  Workers workers_;
  std::deque<Underway> underway_;
  std::vector<std::string>* leftOut_ = nullptr;  // of the Store that is at work
  Sha256 digest_;                                // of the front's pieces, if it has several

  platform::CountedList storedPaths_;
  std::vector<StoredFile> stored_;
  std::vector<Piece> pieces_;
  std::size_t firstNew_;                // the first record that isn't from before
  std::vector<std::int64_t> storedOf_;  // for each record from there on: its place in stored_, or -1
};

}  // namespace backup
