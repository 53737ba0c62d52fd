// One run over an archive: which entries, and what became of them. For the ZIP control alone.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <tuple>
#include <unordered_map>
#include <vector>

#include "backup/Archive.h"
#include "backup/ForbiddenPlaces.h"
#include "backup/Packing.h"
#include "backup/Placing.h"
#include "backup/StopWatch.h"
#include "platform/CountedList.h"

namespace backup {

class Extraction {
 public:
  // `target` is empty for the places that the entries came from. `key` is what the user's own archives are
  // marked with.
  Extraction(zip_t* zip, bool keepPaths, const std::string& target, std::string key);

  // The pending entries, or all.
  void Choose(const platform::CountedList& pending);

  // Entries that aren't known to be the user's own and would go to the places that their names say.
  struct Foreign {
    double count = 0;
    std::vector<std::string> folders;  // some of those that they would be written to
  };
  // Looks at what was chosen and whether the drives have room for it. A text if they don't, otherwise empty.
  std::string Prepare(Foreign& foreign);

  // Without `foreignToo` those are failures. False if the user stopped it.
  bool Run(bool foreignToo);

  // A sentence on what failed; empty if nothing did.
  std::string Failures() const;

 private:
  // An entry whose content is on its way.
  struct Underway {
    Entry entry;
    std::string path;
  };

  void NoteFailure(const std::string& path, const std::string& reason);
  std::string WholePath(const Entry& entry) const;
  double StillNeeded(const std::string& root);
  std::string WhyNot(const Entry& entry, bool foreignToo);
  void Extract(const Entry& entry, const std::string& path);
  bool Give(const Entry& entry, const std::string& path);
  void TakeDone(bool all);

  // What is to be done with an entry, once its content is at hand: `content` holds all of it, or is null for
  // one that is read piece by piece.
  void Place(const Entry& entry, const std::string& path, const std::vector<std::byte>* content);
  std::optional<std::string> PlaceOf(const Entry& entry, const std::string& path, Placing::Way& way);
  std::optional<bool> IsThere(const std::string& path, const Entry& entry,
                              const std::vector<std::byte>* content);
  std::string Write(Placing::Writing& writing, const Entry& entry, const std::vector<std::byte>* content);
  bool HasDigest(const Entry& entry);
  bool MakeFolder(const std::string& folder);
  std::optional<std::string> SubFolder(std::string_view path);

  StopWatch stop_;
  zip_t* zip_;
  bool keepPaths_;
  std::string target_;  // with its backslash; empty for none
  std::string key_;
  std::vector<zip_uint64_t> chosen_;
  std::unordered_map<std::string, int> names_;  // how often a name or path occurs, folded
  // Of paths that occur more than once: what was put or found there, by folded path, size and checksum.
  std::set<std::tuple<std::string, std::uint64_t, std::uint32_t>> there_;
  std::unordered_map<std::string, bool> folders_;
  std::unordered_map<std::string, std::string> subFolders_;
  ForbiddenPlaces forbidden_;
  Workers workers_;
  std::deque<Underway> underway_;
  Placing placing_;
  std::vector<std::byte> buffer_, compared_;
  double asked_ = 0, failed_ = 0;
  std::string firstPath_, firstReason_;
};

// True if some entries share their bytes, which no honest archive's do: a thousand may hold what one seems
// to.
bool Overlaps(zip_t* zip, std::uint64_t length);

}  // namespace backup
