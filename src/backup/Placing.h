// Putting files in their places. For the ZIP control alone.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "backup/Archive.h"
#include "platform/WriteBeside.h"

namespace backup {

// Writes files under temporary names beside their places. When some have come together, all are brought onto
// the disk, and only then each is put in its place in one step. So a kill at any moment leaves the old file
// in place or the new one as a whole.
class Placing {
 public:
  Placing();
  ~Placing();
  Placing(const Placing&) = delete;
  Placing& operator=(const Placing&) = delete;

  enum class Way {
    Replace,  // a file that lies there is set aside and goes to the recycle bin
    // A name that only differs in case is another one, if the disk keeps both; otherwise as Replace, or as
    // Free.
    OwnOrReplace,
    OwnOrFree,
    Free,  // a file that lies there stays, and the new one gets " (2)", " (3)" and so on
  };

  // A file that is being written.
  class Writing {
   public:
    platform::Status Write(std::span<const std::byte> data) { return beside_->Append(data); }
    platform::Status State() const { return beside_->State(); }

   private:
    friend class Placing;
    std::unique_ptr<platform::WriteBeside> beside_;
    std::string path_, shown_;
    Way way_ = Way::Replace;
    Dates dates_;
    std::uint32_t attributes_ = 0;
  };

  // Begins a file that is to lie at `path`, whose folder is there. `shown` is what it is called if it fails.
  Writing Begin(const std::string& path, const std::string& shown, Way way);
  // The file has all its bytes. Dates, attributes and permissions come with it.
  void Accept(Writing writing, const Entry& entry);

  // Puts all accepted files in place.
  void Settle();
  // Brings the folders onto the disk as well. False if one of them couldn't be.
  bool Finish();

  struct Failure {
    std::string shown, reason;
  };
  // What could not be put in place since the last call.
  std::vector<Failure> TakeFailures();

 private:
  std::string Put(const Writing& writing);
  std::string PutOver(const Writing& writing, const platform::EntryInfo& there);
  std::string PutFree(const Writing& writing, int first);
  platform::Status SetAside(const std::string& path, std::string& aside, bool& linked);

  platform::FileSystem& files_;
  std::vector<Writing> accepted_;
  std::uint64_t acceptedBytes_ = 0;
  std::vector<Failure> failures_;
  std::unordered_set<std::string> folders_;
  std::unordered_map<std::string, int> numbers_;  // the last one that a path was given
  // Temporary files that killed processes have left: by folder, then by the front of their names.
  std::unordered_map<std::string, std::multimap<std::string, std::string>> leftovers_;
};

}  // namespace backup
