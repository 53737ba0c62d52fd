// The SQLite file that the played computer's registry lies in.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "platform/RegistryStore.h"

struct sqlite3;
struct sqlite3_stmt;

namespace platform {

// Error codes of the system that a registry answers with.
enum RegistryCode : long {
  kRegistryDone = 0,
  kRegistryAccessDenied = 5,
  kRegistryInvalidRoot = 6,
  kRegistryOutOfMemory = 14,
  kRegistryInvalidParameter = 87,
  kRegistryDiskFull = 112,
  kRegistryBadPath = 161,
  kRegistryBusy = 170,
  kRegistryCannotOpen = 1011,
  kRegistryDamaged = 1015,
  kRegistryIoFailed = 1016,
  kRegistryRefused = 1307,  // somebody else may have made the file what it is
};

// Two tables, registry_keys(id, parent, name) and registry_values(id, key_id, name, type, data); the roots
// are the keys 1 to 7, in the order of their handles. Ids rise in the order of making. `type` is the
// registry's own number (1 for REG_SZ, 4 for REG_DWORD). Names and texts are the bytes that were written.
//
// A rollback journal with full synchronisation: a transaction is in the file whole or not at all, whenever
// the process or the power fails. Other processes may hold the file open; a lock of theirs is waited for up
// to five seconds, and once that was in vain for a twentieth of one until a write succeeds. A file that is
// damaged, that holds something else or that has grown beyond kLargestStore is left as it is.
//
// The file is opened only if nobody but the user and the superuser may have written it (HostPrivacy), never
// through a link of its name, and read only if it holds the two tables and nothing else: no view, no trigger
// and no index of somebody's making is ever evaluated.
//
// Every call answers a code of the above and none raises, but for what the callbacks raise.
class RegistryDatabase {
 public:
  static constexpr std::int64_t kLargestStore = 64 << 20;  // bytes

  // Without `waitForDisk` a commit is safe against the end of the process alone, and takes a fraction of the
  // time.
  RegistryDatabase(std::string file, bool waitForDisk) : file_(std::move(file)), waitForDisk_(waitForDisk) {}
  ~RegistryDatabase() { Close(); }
  RegistryDatabase(const RegistryDatabase&) = delete;
  RegistryDatabase& operator=(const RegistryDatabase&) = delete;

  // Opens the file where it isn't open, makes it where it is missing, and checks its structure once. An empty
  // file that can't be written is a registry without anything in it.
  long Open();
  void Close();

  // Whether another connection has written since the last Load.
  long HasChanged(bool& changed);
  // All keys and then all values, each by rising id, as of one moment.
  using TakeKey = std::function<void(std::int64_t id, std::int64_t parent, std::string_view name)>;
  using TakeValue = std::function<void(std::int64_t id, std::int64_t key, std::string_view name,
                                       const RegistryValue& value)>;
  long Load(const TakeKey& takeKey, const TakeValue& takeValue);

  // Takes the right to write, until Commit or Rollback. What a failed Commit was to write is gone.
  long BeginWrite();
  // Whether a write could be made now; writes nothing.
  long TestWrite();
  long Commit();
  void Rollback();

  long AddKey(std::int64_t parent, std::string_view name, std::int64_t& id);
  long AddValue(std::int64_t key, std::string_view name, const RegistryValue& value, std::int64_t& id);
  long ChangeValue(std::int64_t id, const RegistryValue& value);
  long RemoveKey(std::int64_t id);
  long RemoveValue(std::int64_t id);

 private:
  enum Statement {
    kBegin,
    kBeginWrite,
    kCommit,
    kDataVersion,
    kSelectKeys,
    kSelectValues,
    kInsertKey,
    kInsertValue,
    kUpdateValue,
    kDeleteKey,
    kDeleteValue,
    kStatements
  };
  long Run(const char* sql);
  // The first column of the first row.
  long Query(const char* sql, std::string& result);
  long Prepare(Statement which, sqlite3_stmt*& statement);
  // Runs a statement that gives no rows, and makes it ready for the next time.
  long Step(sqlite3_stmt* statement);
  long ReadDataVersion(std::int64_t& version);
  long OpenFile();
  long Protect();
  long Check();
  long CheckSchema(bool& empty);
  void SetPatience();
  long MakeTables();
  void Bind(sqlite3_stmt* statement, int index, std::string_view text);
  void BindValue(sqlite3_stmt* statement, int index, const RegistryValue& value);

  std::string file_;
  bool waitForDisk_;
  sqlite3* database_ = nullptr;
  sqlite3_stmt* statements_[kStatements] = {};
  // The file is empty and can't be written: there are no tables to ask.
  bool empty_ = false;
  // The last attempt to write has waited in vain for somebody's lock.
  bool wasBusy_ = false;
  std::int64_t dataVersion_ = -1;
};

}  // namespace platform
