#include "HostPlatformTest.h"

namespace platform {
namespace {

using Texts = test::Strings;

const std::string kCache = "C:\\Users\\User\\AppData\\Local\\Microsoft\\Windows\\INetCache";
const std::string kIndex = kCache + "\\entries.txt";

TEST(HostBrowserCacheTest, ListsAndRemovesEntriesWithTheirFiles) {
  test::TestComputer computer;
  BrowserCache& cache = computer.Machine().Cache();
  EXPECT_EQ(computer.CacheKeys(), Texts{});
  EXPECT_EQ(cache.Remove("https://example.org/"), Status::Missing);

  computer.AddCacheEntry("https://example.org/logo.png", "IE\\AB12\\logo[1].png");
  computer.AddCacheEntry("Cookie:user@example.org/");
  computer.AddCacheEntry("https://example.org/ä?q=1\\2", "IE\\AB12\\ä.htm");
  EXPECT_EQ(computer.CacheKeys(), (Texts{"https://example.org/logo.png", "Cookie:user@example.org/",
                                         "https://example.org/ä?q=1\\2"}));

  EXPECT_EQ(cache.Remove("https://example.org/LOGO.png"), Status::Missing) << "keys have a case";
  EXPECT_EQ(cache.Remove("https://example.org/logo.png"), Status::Done);
  EXPECT_FALSE(computer.Exists(kCache + "\\IE\\AB12\\logo[1].png"));
  EXPECT_TRUE(computer.Exists(kCache + "\\IE\\AB12\\ä.htm"));
  EXPECT_EQ(cache.Remove("https://example.org/logo.png"), Status::Missing);
  EXPECT_EQ(cache.Remove("Cookie:user@example.org/"), Status::Done);
  // What is added meanwhile, and what another program of the family sees.
  computer.AddCacheEntry("https://example.org/logo.png", "IE\\AB12\\logo[2].png");
  Texts left = {"https://example.org/ä?q=1\\2", "https://example.org/logo.png"};
  EXPECT_EQ(computer.CacheKeys(), left);
  auto other = computer.AnotherMachine();
  Texts keys;
  EXPECT_EQ(other->Cache().List(keys), Status::Done);
  EXPECT_EQ(keys, left);
  EXPECT_EQ(other->Cache().Remove("https://example.org/logo.png"), Status::Done);
  EXPECT_EQ(computer.CacheKeys(), Texts{"https://example.org/ä?q=1\\2"});
}

TEST(HostBrowserCacheTest, AFileThatCannotGoKeepsItsEntry) {
  test::TestComputer computer;
  BrowserCache& cache = computer.Machine().Cache();
  const std::string file = kCache + "\\IE\\a.htm";
  computer.AddCacheEntry("https://a/", "IE\\a.htm");
  computer.AddCacheEntry("https://gone/", "IE\\gone.htm");
  computer.Remove(kCache + "\\IE\\gone.htm");
  EXPECT_EQ(cache.Remove("https://gone/"), Status::Done);

  {
    test::LockHolder holder(computer.Native(file), test::LockKind::Flock);
    EXPECT_NE(cache.Remove("https://a/"), Status::Done);
    EXPECT_TRUE(computer.Exists(file));
    EXPECT_EQ(computer.CacheKeys(), Texts{"https://a/"});
  }

  computer.SetAttributes(file, kReadOnly | kArchive);
  EXPECT_EQ(cache.Remove("https://a/"), Status::Done) << "read-only holds nothing back";
  EXPECT_FALSE(computer.Exists(file));
  EXPECT_EQ(computer.CacheKeys(), Texts{});
}

// The index is a text that anybody may have written.
TEST(HostBrowserCacheTest, NoEntryReachesOutOfTheCacheFolder) {
  test::TestComputer computer;
  const std::string outside = "C:\\Users\\User\\AppData\\Local\\Microsoft\\Windows\\precious.txt";
  computer.WriteFile(outside);
  computer.WriteFile("C:\\precious.txt");
  computer.WriteFile("C:\\Target\\inside.txt");
  computer.MakeFolder(kCache);
  computer.MakeLink(kCache + "\\way", "C:\\Target");
  computer.MakeLink(kCache + "\\link.htm", "C:\\precious.txt");
  computer.WriteFile(
      kIndex,
      "+https://1/\t..\\precious.txt\n+https://2/\tIE\\..\\..\\precious.txt\n"
      "+https://3/\tC:\\precious.txt\n+https://4/\t\\..\\precious.txt\n+https://5/\t../precious.txt\n"
      "+https://6/\tway\\inside.txt\n+https://7/\tlink.htm\n+https://8/\n");
  Texts keys = computer.CacheKeys();
  EXPECT_EQ(keys.size(), 8u);
  for (const std::string& key : keys) computer.Machine().Cache().Remove(key);
  EXPECT_TRUE(computer.Exists(outside));
  EXPECT_TRUE(computer.Exists("C:\\precious.txt"));
  EXPECT_TRUE(computer.Exists("C:\\Target\\inside.txt"));
  EXPECT_FALSE(computer.Exists(kCache + "\\link.htm")) << "a link goes as a link";
}

TEST(HostBrowserCacheTest, AnUnfinishedLineCountsForNothing) {
  test::TestComputer computer;
  computer.WriteFile(
      kIndex, "+https://a/\t\r\n+https://b/\t\n\njunk\n+https://b/\t\n-https://a/\n+https://c/\tIE\\c");
  EXPECT_EQ(computer.CacheKeys(), Texts{"https://b/"});
  computer.WriteFile(kIndex, "+https://a/\t\n+https://b/\t\n-https://b");
  EXPECT_EQ(computer.CacheKeys(), (Texts{"https://a/", "https://b/"}));
  EXPECT_EQ(computer.Machine().Cache().Remove("https://a/"), Status::Done);
  EXPECT_EQ(computer.ReadFile(kIndex), "+https://a/\t\n+https://b/\t\n-https://a/\n");
  EXPECT_EQ(computer.CacheKeys(), Texts{"https://b/"});
}

TEST(HostBrowserCacheTest, RemovesThousandsAndKeepsTheRest) {
  test::TestComputer computer;
  std::string index;
  constexpr int kEntries = 3000;
  for (int i = 0; i < kEntries; ++i) index += "+https://example.org/" + std::to_string(i) + "\t\n";
  computer.WriteFile(kIndex, index);
  Texts keys = computer.CacheKeys(), kept;
  ASSERT_EQ(keys.size(), static_cast<std::size_t>(kEntries));
  for (int i = 0; i < kEntries; ++i) {
    if (i % 500 == 499) {
      kept.push_back(keys[static_cast<std::size_t>(i)]);
      EXPECT_EQ(computer.CacheKeys().size(), static_cast<std::size_t>(kEntries - i + i / 500)) << i;
    } else {
      ASSERT_EQ(computer.Machine().Cache().Remove(keys[static_cast<std::size_t>(i)]), Status::Done) << i;
    }
  }
  EXPECT_EQ(computer.CacheKeys(), kept);
  EXPECT_EQ(computer.List(kCache), Texts{"entries.txt"});
  EXPECT_LT(computer.ReadFile(kIndex).size(), index.size()) << "the index is written anew as entries go";
  Texts again;
  EXPECT_EQ(computer.AnotherMachine()->Cache().List(again), Status::Done);
  EXPECT_EQ(again, kept);
}

}  // namespace
}  // namespace platform
