// Reading an archive that was just written. For the ZIP control alone.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "backup/ArchiveWriter.h"
#include "backup/Packing.h"
#include "platform/FileSystem.h"

namespace backup {

// A file that was stored.
struct StoredFile {
  std::uint64_t size = 0;
  platform::Moment modified = 0;
  std::size_t record = 0;  // its number in the writer
  std::size_t firstPiece = 0, pieces = 0;
};

// Opens the archive anew and unpacks every piece on all cores. For each of the files: whether the archive
// holds it, its header and directory included. Empty if the archive can't be read at all, or the user stopped
// it.
std::vector<bool> ReadBack(const std::string& archive, const ArchiveWriter& writer,
                           const std::vector<StoredFile>& files, const std::vector<Piece>& pieces);

}  // namespace backup
