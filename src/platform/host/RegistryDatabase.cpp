#include "platform/host/RegistryDatabase.h"

#include <iterator>
#include <sqlite3.h>
#include <sys/stat.h>
#include <utility>

#include "platform/host/HostPrivacy.h"

namespace platform {

namespace {

constexpr int kBusyMilliseconds = 5000, kBusyAgainMilliseconds = 50;
// "brsm"; tells our file from other SQLite files.
constexpr const char* kApplicationId = "1651667821";
constexpr const char* kVersion = "1";

// As the file itself keeps them, to the letter: a file whose tables read otherwise isn't ours.
struct Table {
  std::string_view name, sql;
};
constexpr Table kTables[] = {
    {"registry_keys",
     "CREATE TABLE registry_keys(id INTEGER PRIMARY KEY, parent INTEGER NOT NULL, name TEXT NOT NULL)"},
    {"registry_values",
     R"(CREATE TABLE registry_values(id INTEGER PRIMARY KEY, key_id INTEGER NOT NULL, name TEXT NOT NULL,
                             type INTEGER NOT NULL, data NOT NULL))"},
};
constexpr const char* kFirstRows = R"(
INSERT INTO registry_keys VALUES
  (1, 0, 'HKEY_CLASSES_ROOT'), (2, 0, 'HKEY_CURRENT_USER'), (3, 0, 'HKEY_LOCAL_MACHINE'), (4, 0, 'HKEY_USERS'),
  (5, 0, 'HKEY_PERFORMANCE_DATA'), (6, 0, 'HKEY_CURRENT_CONFIG'), (7, 0, 'HKEY_DYN_DATA');
PRAGMA application_id = 1651667821;
PRAGMA user_version = 1;
)";

// In the order of RegistryDatabase::Statement.
constexpr const char* kSql[] = {
    "BEGIN",
    "BEGIN IMMEDIATE",
    "COMMIT",
    "PRAGMA data_version",
    "SELECT id, parent, name FROM registry_keys ORDER BY id",
    "SELECT id, key_id, name, type, data FROM registry_values ORDER BY id",
    "INSERT INTO registry_keys(parent, name) VALUES(?, ?)",
    "INSERT INTO registry_values(key_id, name, type, data) VALUES(?, ?, ?, ?)",
    "UPDATE registry_values SET type = ?, data = ? WHERE id = ?",
    "DELETE FROM registry_keys WHERE id = ?",
    "DELETE FROM registry_values WHERE id = ?",
};

constexpr int kTypeString = 1, kTypeBinary = 3, kTypeDWord = 4;

long CodeOf(int result) {
  switch (result & 0xFF) {
    case SQLITE_OK:
    case SQLITE_DONE:
    case SQLITE_ROW:
      return kRegistryDone;
    case SQLITE_PERM:
    case SQLITE_READONLY:
    case SQLITE_AUTH:
      return kRegistryAccessDenied;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return kRegistryBusy;
    case SQLITE_NOMEM:
      return kRegistryOutOfMemory;
    case SQLITE_FULL:
      return kRegistryDiskFull;
    case SQLITE_CANTOPEN:
      return kRegistryCannotOpen;
    case SQLITE_IOERR:
      return kRegistryIoFailed;
    case SQLITE_TOOBIG:
      return kRegistryInvalidParameter;
    default:  // a structure or content that the program never writes
      return kRegistryDamaged;
  }
}

std::string_view TextOf(sqlite3_stmt* statement, int column) {
  auto text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
  if (!text) return {};
  return {text, static_cast<std::size_t>(sqlite3_column_bytes(statement, column))};
}

}  // namespace

long RegistryDatabase::Open() {
  if (database_) return kRegistryDone;
  long code = OpenFile();
  if (code == kRegistryDone) code = Protect();
  if (code == kRegistryDone) {
    SetPatience();
    code = Run(waitForDisk_ ? "PRAGMA synchronous = FULL" : "PRAGMA synchronous = OFF");
  }
  if (code == kRegistryDone) code = Run("PRAGMA cell_size_check = ON");
  if (code == kRegistryDone) code = Check();
  if (code != kRegistryDone) Close();
  return code;
}

long RegistryDatabase::OpenFile() {
  bool trusted = false;
  std::string place = PlaceOfDatabase(file_, trusted);
  if (place.empty()) return kRegistryCannotOpen;
  if (!trusted) return kRegistryRefused;
  // Falls back to reading alone where the file can't be written.
  constexpr int kFlags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX |
                         SQLITE_OPEN_EXRESCODE | SQLITE_OPEN_NOFOLLOW;
  long code = CodeOf(sqlite3_open_v2(place.c_str(), &database_, kFlags, nullptr));
  if (code != kRegistryDone) return code;
  // Whoever owns a folder above could have swapped the store's between the look and the opening.
  bool stillTrusted = false;
  return PlaceOfDatabase(file_, stillTrusted) == place && stillTrusted ? kRegistryDone : kRegistryRefused;
}

// Nothing that the file says is carried out, and nothing in it may be larger than what the program writes.
long RegistryDatabase::Protect() {
  static constexpr std::pair<int, int> kSwitches[] = {
      {SQLITE_DBCONFIG_DEFENSIVE, 1},   {SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},
      {SQLITE_DBCONFIG_ENABLE_VIEW, 0}, {SQLITE_DBCONFIG_ENABLE_TRIGGER, 0},
      {SQLITE_DBCONFIG_DQS_DDL, 0},     {SQLITE_DBCONFIG_DQS_DML, 0},
  };
  for (auto [name, value] : kSwitches)
    if (sqlite3_db_config(database_, name, value, nullptr) != SQLITE_OK) return kRegistryRefused;
  static constexpr std::pair<int, int> kLimits[] = {
      {SQLITE_LIMIT_LENGTH, 8 << 20},
      {SQLITE_LIMIT_SQL_LENGTH, 4096},
      {SQLITE_LIMIT_COLUMN, 16},
      {SQLITE_LIMIT_EXPR_DEPTH, 16},
      {SQLITE_LIMIT_COMPOUND_SELECT, 8},
      {SQLITE_LIMIT_ATTACHED, 0},
      {SQLITE_LIMIT_VARIABLE_NUMBER, 16},
      {SQLITE_LIMIT_TRIGGER_DEPTH, 1},
      {SQLITE_LIMIT_LIKE_PATTERN_LENGTH, 16},
  };
  for (auto [name, value] : kLimits) sqlite3_limit(database_, name, value);
  return kRegistryDone;
}

void RegistryDatabase::SetPatience() {
  sqlite3_busy_timeout(database_, wasBusy_ ? kBusyAgainMilliseconds : kBusyMilliseconds);
}

void RegistryDatabase::Close() {
  for (sqlite3_stmt*& statement : statements_) {
    sqlite3_finalize(statement);
    statement = nullptr;
  }
  sqlite3_close(database_);
  database_ = nullptr;
  empty_ = false;
}

// Whether the tables are ours, or there are none. Nothing but this may be asked of a file that hasn't passed.
long RegistryDatabase::CheckSchema(bool& empty) {
  sqlite3_stmt* statement = nullptr;
  int outcome =
      sqlite3_prepare_v2(database_, "SELECT type, name, tbl_name, sql FROM sqlite_schema ORDER BY name", -1,
                         &statement, nullptr);
  std::size_t rows = 0;
  bool ours = true;
  while (outcome == SQLITE_OK && ours && (outcome = sqlite3_step(statement)) == SQLITE_ROW) {
    outcome = SQLITE_OK;
    ours = rows < std::size(kTables) && TextOf(statement, 0) == "table" &&
           TextOf(statement, 1) == kTables[rows].name && TextOf(statement, 2) == kTables[rows].name &&
           TextOf(statement, 3) == kTables[rows].sql;
    ++rows;
  }
  sqlite3_finalize(statement);
  empty = rows == 0;
  if (outcome != SQLITE_OK && outcome != SQLITE_DONE) return CodeOf(outcome);
  return ours && (empty || rows == std::size(kTables)) ? kRegistryDone : kRegistryDamaged;
}

long RegistryDatabase::Check() {
  // One moment for all, so that nobody's writing shows half.
  std::string application, version, pageSize, journal, structure;
  bool noTables = false;
  struct stat info {};
  long code = Run("BEGIN");
  if (code == kRegistryDone && stat(file_.c_str(), &info) != 0) code = kRegistryIoFailed;
  if (code == kRegistryDone && info.st_size > kLargestStore) code = kRegistryDamaged;
  if (code == kRegistryDone) code = CheckSchema(noTables);
  if (code == kRegistryDone) code = Query("PRAGMA application_id", application);
  if (code == kRegistryDone) code = Query("PRAGMA user_version", version);
  if (code == kRegistryDone) code = Query("PRAGMA page_size", pageSize);
  if (code == kRegistryDone) code = Query("PRAGMA journal_mode", journal);
  if (code == kRegistryDone) code = Query("PRAGMA quick_check(1)", structure);
  // SQLite makes the file with the first question, if it wasn't there.
  if (code == kRegistryDone && stat(file_.c_str(), &info) != 0) code = kRegistryIoFailed;
  Rollback();
  if (code != kRegistryDone) return code;

  if (info.st_size == 0) {
    code = MakeTables();
    // In a folder or a file that can't be written, nothing is there to be read.
    empty_ = code == kRegistryAccessDenied || code == kRegistryCannotOpen;
    return empty_ ? kRegistryDone : code;
  }
  // SQLite itself takes the end of a file that was cut within a page for zeros, and one of a single byte for
  // empty.
  bool cut = noTables || static_cast<unsigned long>(info.st_size) % std::stoul(pageSize) != 0;
  bool good = application == kApplicationId && version == kVersion && journal == "delete" &&
              structure == "ok" && !cut;
  return good ? kRegistryDone : kRegistryDamaged;
}

long RegistryDatabase::MakeTables() {
  long code = Run("BEGIN IMMEDIATE");
  if (code != kRegistryDone) return code;
  // Another process may have been first.
  bool none = false;
  code = CheckSchema(none);
  for (const Table& table : kTables)
    if (code == kRegistryDone && none) code = Run(std::string(table.sql).c_str());
  if (code == kRegistryDone && none) code = Run(kFirstRows);
  if (code == kRegistryDone) code = Run("COMMIT");
  if (code != kRegistryDone) Rollback();
  return code;
}

long RegistryDatabase::Run(const char* sql) {
  return CodeOf(sqlite3_exec(database_, sql, nullptr, nullptr, nullptr));
}

long RegistryDatabase::Query(const char* sql, std::string& result) {
  sqlite3_stmt* statement = nullptr;
  int outcome = sqlite3_prepare_v2(database_, sql, -1, &statement, nullptr);
  if (outcome == SQLITE_OK) outcome = sqlite3_step(statement);
  if (outcome == SQLITE_ROW) result = TextOf(statement, 0);
  sqlite3_finalize(statement);
  return CodeOf(outcome);
}

long RegistryDatabase::Prepare(Statement which, sqlite3_stmt*& statement) {
  sqlite3_stmt*& slot = statements_[which];
  int outcome = SQLITE_OK;
  if (!slot)
    outcome = sqlite3_prepare_v3(database_, kSql[which], -1, SQLITE_PREPARE_PERSISTENT, &slot, nullptr);
  statement = slot;
  return CodeOf(outcome);
}

long RegistryDatabase::Step(sqlite3_stmt* statement) {
  int outcome = sqlite3_step(statement);
  sqlite3_reset(statement);
  sqlite3_clear_bindings(statement);
  return CodeOf(outcome);
}

long RegistryDatabase::ReadDataVersion(std::int64_t& version) {
  sqlite3_stmt* statement;
  long code = Prepare(kDataVersion, statement);
  if (code != kRegistryDone) return code;
  int outcome = sqlite3_step(statement);
  if (outcome == SQLITE_ROW) version = sqlite3_column_int64(statement, 0);
  sqlite3_reset(statement);
  return CodeOf(outcome);
}

long RegistryDatabase::HasChanged(bool& changed) {
  std::int64_t version = 0;
  long code = ReadDataVersion(version);
  changed = version != dataVersion_;
  return code;
}

long RegistryDatabase::Load(const TakeKey& takeKey, const TakeValue& takeValue) {
  if (empty_) {
    // Tables that another process has made since.
    bool none = false;
    long code = CheckSchema(none);
    if (code != kRegistryDone) return code;
    if (none) return ReadDataVersion(dataVersion_);
    Close();
    code = Open();
    if (code != kRegistryDone || empty_) return code;
  }

  // Within a transaction of ours it is that one's state, otherwise one of its own holds all steps together.
  bool own = sqlite3_get_autocommit(database_) != 0;
  sqlite3_stmt* statement;
  long code = own ? Prepare(kBegin, statement) : kRegistryDone;
  if (own && code == kRegistryDone) code = Step(statement);

  if (code == kRegistryDone) code = Prepare(kSelectKeys, statement);
  if (code == kRegistryDone) {
    int outcome;
    while ((outcome = sqlite3_step(statement)) == SQLITE_ROW)
      takeKey(sqlite3_column_int64(statement, 0), sqlite3_column_int64(statement, 1), TextOf(statement, 2));
    sqlite3_reset(statement);
    code = CodeOf(outcome);
  }

  if (code == kRegistryDone) code = Prepare(kSelectValues, statement);
  if (code == kRegistryDone) {
    int outcome;
    RegistryValue value;
    while ((outcome = sqlite3_step(statement)) == SQLITE_ROW) {
      int type = sqlite3_column_int(statement, 3);
      value.type = type == kTypeString  ? ValueType::String
                   : type == kTypeDWord ? ValueType::DWord
                                        : ValueType::Other;
      value.number = type == kTypeDWord ? static_cast<std::uint32_t>(sqlite3_column_int64(statement, 4)) : 0;
      value.text = TextOf(statement, 4);
      takeValue(sqlite3_column_int64(statement, 0), sqlite3_column_int64(statement, 1), TextOf(statement, 2),
                value);
    }
    sqlite3_reset(statement);
    code = CodeOf(outcome);
  }

  if (code == kRegistryDone) code = ReadDataVersion(dataVersion_);
  if (own) {
    if (code == kRegistryDone)
      code = Commit();
    else
      Rollback();
  }
  return code;
}

long RegistryDatabase::BeginWrite() {
  if (empty_) {
    // Perhaps it can be written by now.
    Close();
    long code = Open();
    if (code != kRegistryDone) return code;
    if (empty_) return kRegistryAccessDenied;
  }
  SetPatience();
  sqlite3_stmt* statement;
  long code = Prepare(kBeginWrite, statement);
  if (code == kRegistryDone) code = Step(statement);
  if (code == kRegistryBusy) wasBusy_ = true;
  return code;
}

long RegistryDatabase::TestWrite() {
  long code = BeginWrite();
  // The same number again: the page is written to the journal and would be to the file.
  if (code == kRegistryDone) code = Run("PRAGMA user_version = 1");
  Rollback();
  return code;
}

long RegistryDatabase::Commit() {
  sqlite3_stmt* statement;
  long code = Prepare(kCommit, statement);
  if (code == kRegistryDone) code = Step(statement);
  wasBusy_ = code == kRegistryBusy;
  if (code != kRegistryDone) Rollback();
  return code;
}

void RegistryDatabase::Rollback() {
  if (database_ && !sqlite3_get_autocommit(database_)) Run("ROLLBACK");
}

void RegistryDatabase::Bind(sqlite3_stmt* statement, int index, std::string_view text) {
  // A null pointer would bind NULL.
  sqlite3_bind_text64(statement, index, text.data() ? text.data() : "", text.size(), SQLITE_STATIC,
                      SQLITE_UTF8);
}

void RegistryDatabase::BindValue(sqlite3_stmt* statement, int index, const RegistryValue& value) {
  switch (value.type) {
    case ValueType::DWord:
      sqlite3_bind_int(statement, index, kTypeDWord);
      sqlite3_bind_int64(statement, index + 1, value.number);
      break;
    case ValueType::String:
      sqlite3_bind_int(statement, index, kTypeString);
      Bind(statement, index + 1, value.text);
      break;
    default:
      sqlite3_bind_int(statement, index, kTypeBinary);
      Bind(statement, index + 1, value.text);
  }
}

long RegistryDatabase::AddKey(std::int64_t parent, std::string_view name, std::int64_t& id) {
  sqlite3_stmt* statement;
  long code = Prepare(kInsertKey, statement);
  if (code != kRegistryDone) return code;
  sqlite3_bind_int64(statement, 1, parent);
  Bind(statement, 2, name);
  code = Step(statement);
  id = sqlite3_last_insert_rowid(database_);
  return code;
}

long RegistryDatabase::AddValue(std::int64_t key, std::string_view name, const RegistryValue& value,
                                std::int64_t& id) {
  sqlite3_stmt* statement;
  long code = Prepare(kInsertValue, statement);
  if (code != kRegistryDone) return code;
  sqlite3_bind_int64(statement, 1, key);
  Bind(statement, 2, name);
  BindValue(statement, 3, value);
  code = Step(statement);
  id = sqlite3_last_insert_rowid(database_);
  return code;
}

long RegistryDatabase::ChangeValue(std::int64_t id, const RegistryValue& value) {
  sqlite3_stmt* statement;
  long code = Prepare(kUpdateValue, statement);
  if (code != kRegistryDone) return code;
  BindValue(statement, 1, value);
  sqlite3_bind_int64(statement, 3, id);
  return Step(statement);
}

long RegistryDatabase::RemoveKey(std::int64_t id) {
  sqlite3_stmt* statement;
  long code = Prepare(kDeleteKey, statement);
  if (code != kRegistryDone) return code;
  sqlite3_bind_int64(statement, 1, id);
  return Step(statement);
}

long RegistryDatabase::RemoveValue(std::int64_t id) {
  sqlite3_stmt* statement;
  long code = Prepare(kDeleteValue, statement);
  if (code != kRegistryDone) return code;
  sqlite3_bind_int64(statement, 1, id);
  return Step(statement);
}

}  // namespace platform
