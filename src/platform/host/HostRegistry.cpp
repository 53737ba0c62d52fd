#include "platform/host/HostRegistry.h"

#include <algorithm>
#include <exception>

#include "platform/CoarseClock.h"
#include "platform/RuntimeError.h"
#include "platform/host/HostLocale.h"

namespace platform {

namespace {

constexpr auto kCheckInterval = std::chrono::milliseconds(20);
// The system's own limit for keys within keys.
constexpr std::ptrdiff_t kDeepest = 512;
// All keys' paths together: a file within its limit could say far longer ones.
constexpr std::size_t kMostPathBytes = 64 << 20;

bool IsRoot(std::uint32_t root) {
  return root >= kClassesRoot && root <= kDynData;
}

char RootByte(std::uint32_t root) {
  return static_cast<char>('0' + (root - kClassesRoot));
}

bool HoldsNul(std::string_view text) {
  return text.find('\0') != std::string_view::npos;
}

// An empty key is the root itself.
bool IsWellFormed(std::string_view key) {
  if (key.empty()) return true;
  return key.front() != '\\' && key.back() != '\\' && key.find("\\\\") == std::string_view::npos;
}

long CheckKey(std::uint32_t root, std::string_view key) {
  if (!IsRoot(root)) return kRegistryInvalidRoot;
  if (HoldsNul(key) || std::ranges::count(key, '\\') >= kDeepest) return kRegistryInvalidParameter;
  return IsWellFormed(key) ? kRegistryDone : kRegistryBadPath;
}

void FoldPath(std::uint32_t root, std::string_view key, std::string& path) {
  path.assign(1, RootByte(root));
  if (key.empty()) return;
  path += '\\';
  FoldCase(key, path);
}

RuntimeError ReadFailure(long code) {
  switch (code) {
    case kRegistryCannotOpen:
    case kRegistryAccessDenied:
    case kRegistryRefused:
      return PathFileAccess();
    case kRegistryOutOfMemory:
      return OutOfMemory();
    case kRegistryBusy:
      return PermissionDenied();
    default:
      return DeviceIoError();
  }
}

StoreState Describe(long code, const std::string& file) {
  switch (code) {
    case kRegistryDone:
    case kRegistryBusy:  // somebody is writing
      return {StoreHealth::Good, file, {}, {}};
    case kRegistryDamaged:
    case kRegistryIoFailed:
      return {StoreHealth::Damaged, file, "The file of the settings is damaged or holds something else.",
              "Put a copy of it in its place, or rename it: the next start makes new settings."};
    case kRegistryRefused:
      return {StoreHealth::Refused, file,
              "The file of the settings, or its folder, belongs to another user or can be written by others.",
              "Give both to yourself alone if you trust what they say, or rename the file."};
    default:
      return {StoreHealth::Unreachable, file, "The file of the settings can't be opened.",
              "See that its folder is there and that you may read and write in it."};
  }
}

}  // namespace

HostRegistry::~HostRegistry() {
  if (writing_) database_.Commit();
}

void HostRegistry::Refresh() {
  if (long code = Renew()) throw ReadFailure(code);
}

long HostRegistry::Renew() {
  // Under our own lock nobody else writes.
  if (writing_ && imageGood_) return kRegistryDone;
  auto now = CoarseNow();
  if (imageGood_ && now < nextCheck_) return kRegistryDone;
  long code = database_.Open();
  bool changed = !imageGood_;
  if (code == kRegistryDone && imageGood_) code = database_.HasChanged(changed);
  if (code == kRegistryDone && changed) code = LoadImage();
  // Whoever holds the lock that long hasn't committed yet, so the image is still what the store says.
  if (code == kRegistryBusy && imageGood_) code = kRegistryDone;
  if (code != kRegistryDone) {
    imageGood_ = false;
    database_.Close();
    return code;
  }
  nextCheck_ = now + kCheckInterval;
  return kRegistryDone;
}

long HostRegistry::LoadImage() {
  imageGood_ = false;
  read_ = nullptr;
  keys_.clear();
  for (std::uint32_t root = kClassesRoot; root <= kDynData; ++root)
    keys_.emplace(std::string(1, RootByte(root)),
                  std::make_unique<Key>(Key{root - kClassesRoot + 1, {}, {}}));

  struct Entered {
    Key* key;
    std::string_view path;  // the map's own text
  };
  std::unordered_map<std::int64_t, Entered> byId;
  for (auto& [path, key] : keys_) byId.emplace(key->id, Entered{key.get(), path});
  bool whole = true;
  std::size_t pathBytes = 0;
  std::string path;
  long code = database_.Load(
      [&](std::int64_t id, std::int64_t parent, std::string_view name) {
        if (parent == 0) return;
        auto above = byId.find(parent);
        if (!whole || above == byId.end() || std::ranges::count(above->second.path, '\\') >= kDeepest ||
            (pathBytes += above->second.path.size() + name.size()) > kMostPathBytes) {
          whole = false;
          return;
        }
        path.assign(above->second.path);
        path += '\\';
        FoldCase(name, path);
        auto [entry, isNew] = keys_.try_emplace(path, nullptr);
        if (isNew) entry->second = std::make_unique<Key>(Key{id, {}, {}});
        byId.emplace(id, Entered{entry->second.get(), entry->first});
      },
      [&](std::int64_t id, std::int64_t key, std::string_view name, const RegistryValue& data) {
        auto owner = byId.find(key);
        if (owner == byId.end()) {
          whole = false;
          return;
        }
        name_.clear();
        FoldCase(name, name_);
        Value& value =
            owner->second.key->values.emplace(id, Value{id, std::string(name), data}).first->second;
        owner->second.key->byName.insert_or_assign(name_, &value);
      });
  if (code == kRegistryDone && !whole) code = kRegistryDamaged;
  imageGood_ = code == kRegistryDone;
  return code;
}

HostRegistry::Key* HostRegistry::FindKey(std::uint32_t root, std::string_view key) {
  if (!IsRoot(root)) return nullptr;
  FoldPath(root, key, path_);
  auto found = keys_.find(std::string_view(path_));
  return found == keys_.end() ? nullptr : found->second.get();
}

HostRegistry::Value* HostRegistry::FindValue(Key& key, std::string_view name) {
  name_.clear();
  FoldCase(name, name_);
  auto found = key.byName.find(std::string_view(name_));
  return found == key.byName.end() ? nullptr : found->second;
}

RegistryValue HostRegistry::Read(std::uint32_t root, std::string_view key, std::string_view name) {
  Refresh();
  if (!read_ || readRoot_ != root || readPath_ != key) {
    read_ = FindKey(root, key);
    readRoot_ = root;
    readPath_ = key;
  }
  Value* value = read_ ? FindValue(*read_, name) : nullptr;
  return value ? value->data : RegistryValue();
}

long HostRegistry::Names(std::uint32_t root, std::string_view key, std::vector<std::string>& names) {
  Refresh();
  if (Key* owner = FindKey(root, key))
    for (const auto& [id, value] : owner->values) names.push_back(value.name);
  return kRegistryDone;
}

bool HostRegistry::KeyExists(std::uint32_t root, std::string_view key) {
  Refresh();
  return FindKey(root, key) != nullptr;
}

long HostRegistry::Write(std::uint32_t root, std::string_view key, std::string_view name,
                         const RegistryValue& value) {
  if (long code = CheckKey(root, key)) return code;
  if (HoldsNul(name) || value.type == ValueType::Absent) return kRegistryInvalidParameter;
  if (value.type == ValueType::String && HoldsNul(value.text)) return kRegistryInvalidParameter;
  return Change([&]() -> long {
    RegistryValue data = value;
    if (data.type == ValueType::DWord)
      data.text = std::to_string(data.number);
    else
      data.number = 0;

    Key* owner = nullptr;
    if (long code = MakeKey(root, key, owner)) return code;
    if (Value* there = FindValue(*owner, name)) {
      if (there->data.type == data.type && there->data.text == data.text) return kRegistryDone;
      if (long code = database_.ChangeValue(there->id, data)) return code;
      there->data = std::move(data);
      return kRegistryDone;
    }
    std::int64_t id = 0;
    if (long code = database_.AddValue(owner->id, name, data, id)) return code;
    Value& made = owner->values.emplace(id, Value{id, std::string(name), std::move(data)}).first->second;
    owner->byName.insert_or_assign(name_, &made);
    return kRegistryDone;
  });
}

long HostRegistry::MakeKey(std::uint32_t root, std::string_view key, Key*& made) {
  made = FindKey(root, key);
  if (made) return kRegistryDone;
  std::size_t last = key.rfind('\\');
  std::string_view above = last == std::string_view::npos ? std::string_view() : key.substr(0, last);
  std::string_view name = last == std::string_view::npos ? key : key.substr(last + 1);
  Key* parent = nullptr;
  if (long code = MakeKey(root, above, parent)) return code;
  std::int64_t id = 0;
  if (long code = database_.AddKey(parent->id, name, id)) return code;
  FoldPath(root, key, path_);
  made = keys_.emplace(path_, std::make_unique<Key>(Key{id, {}, {}})).first->second.get();
  return kRegistryDone;
}

long HostRegistry::RemoveValue(std::uint32_t root, std::string_view key, std::string_view name) {
  if (long code = CheckKey(root, key)) return code;
  return Change([&]() -> long {
    Key* owner = FindKey(root, key);
    Value* value = owner ? FindValue(*owner, name) : nullptr;
    if (!value) return kRegistryDone;
    if (long code = database_.RemoveValue(value->id)) return code;
    owner->byName.erase(name_);
    owner->values.erase(value->id);
    return kRegistryDone;
  });
}

long HostRegistry::RemoveAllValuesOf(Key& key) {
  for (const auto& [id, value] : key.values)
    if (long code = database_.RemoveValue(id)) return code;
  key.byName.clear();
  key.values.clear();
  return kRegistryDone;
}

long HostRegistry::RemoveAllValues(std::uint32_t root, std::string_view key) {
  if (long code = CheckKey(root, key)) return code;
  return Change([&]() -> long {
    Key* owner = FindKey(root, key);
    return owner ? RemoveAllValuesOf(*owner) : kRegistryDone;
  });
}

long HostRegistry::RemoveKey(std::uint32_t root, std::string_view key) {
  if (long code = CheckKey(root, key)) return code;
  if (key.empty()) return kRegistryAccessDenied;
  return Change([&]() -> long {
    if (!FindKey(root, key)) return kRegistryDone;
    std::string below = path_ + '\\';
    read_ = nullptr;
    for (auto entry = keys_.begin(); entry != keys_.end();) {
      const std::string& path = entry->first;
      if (path + '\\' != below && !path.starts_with(below)) {
        ++entry;
        continue;
      }
      if (long code = RemoveAllValuesOf(*entry->second)) return code;
      if (long code = database_.RemoveKey(entry->second->id)) return code;
      entry = keys_.erase(entry);
    }
    return kRegistryDone;
  });
}

void HostRegistry::Begin() {
  // What a transaction writes often rests on what it reads first.
  if (depth_++ == 0) nextCheck_ = {};
}

long HostRegistry::End() {
  if (depth_ == 0 || --depth_ > 0) return failure_;
  long code = failure_;
  failure_ = kRegistryDone;
  if (writing_) {
    code = database_.Commit();
    writing_ = false;
    if (code != kRegistryDone) imageGood_ = false;
  }
  return code;
}

StoreState HostRegistry::State() {
  if (writing_) return Describe(failure_, file_);
  nextCheck_ = {};
  if (long code = Renew()) return Describe(code, file_);
  long code = database_.TestWrite();
  if (code == kRegistryDone || code == kRegistryBusy) return Describe(code, file_);
  return {StoreHealth::ReadOnly, file_, "The settings can't be written.",
          code == kRegistryDiskFull ? "Make room on the disk that the file lies on."
                                    : "See that you may write the file and in its folder."};
}

long HostRegistry::StartWriting() {
  if (writing_) return kRegistryDone;
  if (long code = database_.Open()) return code;
  if (long code = database_.BeginWrite()) return code;
  writing_ = true;
  bool changed = true;
  if (imageGood_)
    if (long code = database_.HasChanged(changed)) return code;
  return changed ? LoadImage() : kRegistryDone;
}

long HostRegistry::Abandon(long code) {
  database_.Rollback();
  if (writing_) imageGood_ = false;
  writing_ = false;
  if (depth_ > 0) failure_ = code;
  return code;
}

long HostRegistry::Change(const std::function<long()>& change) {
  if (depth_ > 0 && failure_ != kRegistryDone) return failure_;
  try {
    long code = StartWriting();
    if (code == kRegistryDone) code = change();
    if (code != kRegistryDone) return Abandon(code);
    if (depth_ > 0) return code;
    code = database_.Commit();
    writing_ = false;
    if (code != kRegistryDone) imageGood_ = false;
    return code;
  } catch (const std::exception&) {
    // Out of memory: what the image says may be half of it.
    imageGood_ = false;
    Abandon(kRegistryOutOfMemory);
    database_.Close();
    return kRegistryOutOfMemory;
  }
}

}  // namespace platform
