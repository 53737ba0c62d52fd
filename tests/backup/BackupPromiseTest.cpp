#include <gtest/gtest.h>
#include <string>

#include "backup/BackupPromise.h"

namespace backup {
namespace {

using platform::EntryInfo;
using platform::EntryKind;

EntryInfo File(std::uint64_t size, platform::Moment modified, EntryKind kind = EntryKind::File) {
  EntryInfo info;
  info.kind = kind;
  info.size = size;
  info.modified = modified;
  return info;
}

TEST(BackupPromiseTest, HoldsWhatWasStoredAsItLiesThere) {
  BackupPromise promise;
  promise.Add("C:\\Data\\\xCE\xBB\xCF\x8C\xCE\xB3\xCE\xBF\xCF\x82.tmp", 10, 7);
  promise.Add("C:\\Data\\a.tmp", 3, 5);
  promise.Add("C:\\Data\\A.tmp", 4, 6);
  promise.Add("C:\\Data\\twice.tmp", 1, 1);
  promise.Add("C:\\Data\\twice.tmp", 2, 2);

  struct {
    const char* path;
    EntryInfo now;
    bool holds;
  } cases[] = {
      {"C:\\Data\\a.tmp", File(3, 5), true},
      {"C:\\Data\\A.tmp", File(4, 6), true},
      {"C:\\Data\\A.tmp", File(3, 5), false},
      {"C:\\DATA\\a.tmp", File(3, 5), false},
      {"C:\\Data\\\xCE\xBB\xCF\x8C\xCE\xB3\xCE\xBF\xCF\x82.tmp", File(10, 7), true},
      {"C:\\Data\\\xCE\xBB\xCF\x8C\xCE\xB3\xCE\xBF\xCF\x83.tmp", File(10, 7), false},
      {"C:\\Data\\a.tmp", File(4, 5), false},
      {"C:\\Data\\a.tmp", File(3, 6), false},
      {"C:\\Data\\a.tmp", File(3, 5, EntryKind::FileLink), false},
      {"C:\\Data\\a.tmp", File(3, 5, EntryKind::Missing), false},
      {"C:\\Data\\twice.tmp", File(1, 1), false},
      {"C:\\Data\\twice.tmp", File(2, 2), true},
      {"C:\\Data\\", File(3, 5), false},
      {"a.tmp", File(3, 5), false},
  };
  for (const auto& c : cases) EXPECT_EQ(promise.Holds(c.path, c.now), c.holds) << c.path;
  EXPECT_EQ(promise.Count(), 4);
  EXPECT_FALSE(BackupPromise().Holds("C:\\Data\\a.tmp", File(3, 5)));
}

TEST(BackupPromiseTest, IsSmallForManyFiles) {
  constexpr std::uint64_t kFiles = 100'000;
  BackupPromise promise;
  auto path = [](std::uint64_t i) {
    return "C:\\Data\\folder" + std::to_string(i / 50) + "\\garbage file " + std::to_string(i) + ".tmp";
  };
  for (std::uint64_t i = 0; i < kFiles; ++i) promise.Add(path(i), i, static_cast<platform::Moment>(i));
  EXPECT_LT(promise.MemoryUsed(), 100 * kFiles);
  std::uint64_t held = 0;
  for (std::uint64_t i = 0; i < kFiles; ++i)
    held += promise.Holds(path(i), File(i, static_cast<platform::Moment>(i)));
  EXPECT_EQ(held, kFiles);
}

}  // namespace
}  // namespace backup
