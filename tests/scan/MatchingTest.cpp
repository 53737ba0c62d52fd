// Exclusions and filters: the prepared searches against the plain rules.

#include <cctype>
#include <random>

#include "core/Text.h"
#include "platform/WriteBeside.h"
#include "scan/Exclusions.h"
#include "scan/FilterSet.h"
#include "scan/ScanFixture.h"
#include "scan/m_Excluded.h"
#include "support/Session.h"

namespace test {
namespace {

class MatchingTest : public ScanTest {
 protected:
  // Few letters, so that texts often hold each other; some that only fold beyond ASCII.
  std::string RandomText(std::size_t longest, bool withBackslash) {
#ifdef _WIN32
    static const std::string kNoLetter = "\xED\xA0\x80";  // a half of a pair, as a name may hold there
#else
    static const std::string kNoLetter = "\xFF";
#endif
    static const Strings kLetters = {"a", "A",       "b", "B", ".", "~", "ä", "Ä", "ж", "Ж", "\xE2\x84\xAA",
                                     "k", kNoLetter, "\\"};
    std::size_t length = random() % (longest + 1);
    std::string text;
    for (std::size_t i = 0; i < length; ++i)
      text += kLetters[random() % (kLetters.size() - (withBackslash ? 0 : 1))];
    return text;
  }

  std::mt19937 random{20260331};
};

TEST_F(MatchingTest, ExclusionsAreTextsToLookForAnywhereInThePath) {
  int covered = 0;
  for (int round = 0; round < 300; ++round) {
    Strings directories, files;
    for (unsigned i = 0; i < 1 + random() % 3; ++i) directories.push_back("\\" + RandomText(4, true));
    for (unsigned i = 0; i < random() % 3; ++i) files.push_back(RandomText(5, true) + "b");
    scan::Exclusions exclusions(ListOf(directories), ListOf(files));

    platform::CountedList list;
    Strings paths;
    for (int f = 0; f < 4; ++f) {
      std::string folder = "C:\\" + RandomText(4, false) + "\\" + RandomText(4, false) + "\\";
      std::uint32_t number = list.AddFolder(folder);
      for (int i = 0; i < 4; ++i) {
        std::string name = "x" + RandomText(5, false);
        list.AddIn(number, name);
        paths.push_back(folder + name);
      }
    }
    for (int i = 0; i < list.UpperBound(); ++i) {
      bool expected = false;
      for (const Strings* entries : {&directories, &files})
        for (const std::string& entry : *entries) expected = expected || core::Contains(paths[i], entry);
      covered += expected;
      EXPECT_EQ(exclusions.Cover(scan::FoundFile(list, i)), expected) << paths[i];
      EXPECT_EQ(exclusions.Cover(scan::FoundFile(paths[i])), expected) << paths[i];
    }
  }
  EXPECT_GT(covered, 500);
  EXPECT_LT(covered, 4300);
}

TEST_F(MatchingTest, ThousandsOfLongEntriesAreToldApart) {
  Strings entries;
  for (int i = 0; i < 1000; ++i) {
    std::string entry = "\\";
    for (int k = 0; k < 50; ++k) entry += static_cast<char>('a' + random() % 26);
    entries.push_back(entry);
  }
  scan::Exclusions exclusions(ListOf(entries));
  for (const std::string& entry : entries) {
    std::string upper = entry, missed = entry;
    for (char& c : upper) c = static_cast<char>(std::toupper(c));
    const std::string holds = "C:\\begin" + entry.substr(0, 30) + upper;
    EXPECT_TRUE(exclusions.Cover(scan::FoundFile(holds)));
    missed[50] = '_';
    const std::string misses = "C:" + entry.substr(0, 40) + missed + entry.substr(5);
    EXPECT_FALSE(exclusions.Cover(scan::FoundFile(misses)));
  }
}

TEST_F(MatchingTest, AnEntryMaySpanFolderAndNameAndAnEmptyOneCoversEverything) {
  platform::CountedList list = ListOf({"C:\\Data\\Old\\thing.txt", "C:\\Data\\Older\\thing.txt"});
  scan::Exclusions spanning(ListOf({}), ListOf({"OLD\\thi"}));
  EXPECT_TRUE(spanning.Cover(scan::FoundFile(list, 0)));
  EXPECT_FALSE(spanning.Cover(scan::FoundFile(list, 1)));
  scan::Exclusions backslash(ListOf({"\\"}), {});
  EXPECT_TRUE(backslash.Cover(scan::FoundFile(list, 1)));
  scan::Exclusions empty(ListOf({""}), {});
  EXPECT_TRUE(empty.Cover(scan::FoundFile(list, 1)));
  EXPECT_FALSE(empty.Cover(scan::FoundFile(std::string_view())));
  EXPECT_FALSE(scan::Exclusions(ListOf({})).Cover(scan::FoundFile(list, 0)));
}

TEST_F(MatchingTest, FiltersMatchAsTold) {
  struct Case {
    const char* filter;
    Strings matched, others;
  };
  const Case cases[] = {
      {".tmp", {"a.TMP", "a.tmp2", ".tmp", "b.xtmp"}, {"tmp.txt", "tmp", "a.t.mp"}},
      {"a.log", {"A.LOG"}, {"b.log", "aa.log", "a.log2"}},
      {".b", {"x.bak", "x.db", "x.B"}, {"b.txt", "b"}},
      {"~", {"~x", "a.t~p", "x~"}, {"a.txt"}},
      {"cache", {"Cache.db", "mycache", "a.caches"}, {"cach.e"}},
      {"*.tmp", {"*.tmp"}, {"a.tmp", "tmp"}},
      {".", {"a.b", ".x"}, {"plain", "ends."}},
      {"ä.ö", {"Ä.Ö"}, {"x.Ö", "x.o"}},
      {".ö", {"x.Ö", "x.aöb"}, {"Ö.x"}},
      {"жук", {"Жук.txt"}, {"жу"}},
      {"", {}, {"a", "a.b"}},
  };
  for (const Case& test : cases) {
    scan::FilterSet alone(ListOf({test.filter}));
    for (const Strings* names : {&test.matched, &test.others}) {
      for (const std::string& name : *names) {
        std::vector<int> hits;
        alone.Match(name, hits);
        bool expected = names == &test.matched;
        EXPECT_EQ(!hits.empty(), expected) << test.filter << " on " << name;
        EXPECT_EQ(scan::FilterSet::Matches(test.filter, name, scan::ExtensionOf(name)), expected)
            << test.filter << " on " << name;
      }
    }
  }
}

TEST_F(MatchingTest, ManyFiltersMatchInStoredOrderAsEachDoesAlone) {
  int matched = 0;
  for (int round = 0; round < 300; ++round) {
    Strings filters;
    for (int i = 0; i < 12; ++i) filters.push_back(RandomText(4, false));
    scan::FilterSet all(ListOf(filters));
    for (int i = 0; i < 20; ++i) {
      std::string name = "x" + RandomText(6, false);
      std::vector<int> expected, hits = {77};
      for (int filter = 0; filter < 12; ++filter)
        if (scan::FilterSet::Matches(filters[filter], name, scan::ExtensionOf(name)))
          expected.push_back(filter);
      all.Match(name, hits);
      EXPECT_EQ(hits, expected) << name;
      matched += static_cast<int>(expected.size());
    }
  }
  EXPECT_GT(matched, 3000);
}

TEST_F(MatchingTest, OnlyTheFourReadOnlyWordsAreSkippedWhenWanted) {
  scan::Exclusions none(ListOf({}));
  const struct {
    std::uint32_t word;
    bool skipped;
  } words[] = {{1, true},   {3, true},  {33, true},  {35, true},
               {37, false}, {5, false}, {32, false}, {2, false}};
  for (auto [word, skipped] : words) {
    std::string path = "C:\\Data\\" + std::to_string(word) + ".txt";
    computer.WriteFile(path);
    computer.SetAttributes(path, word);
    scan::FoundFile file(path);
    gRegistry->SkipReadOnlyFilesBrsm = gRegistry->skipReadOnlyfilesLmro = "0";
    EXPECT_FALSE(m_Excluded::IsExcludedSettingBrsm(none, file));
    gRegistry->SkipReadOnlyFilesBrsm = "1";
    EXPECT_EQ(m_Excluded::IsExcludedSettingBrsm(none, file), skipped) << word;
    EXPECT_FALSE(m_Excluded::IsExcludedSettingLmro(none, file)) << word;
    EXPECT_FALSE(m_Excluded::IsExcludedBrokenShortcutsBrsm(none, file)) << word;
    gRegistry->skipReadOnlyfilesLmro = "1";
    EXPECT_EQ(m_Excluded::IsExcludedSettingLmro(none, file), skipped) << word;
    computer.SetAttributes(path, 32);
  }
}

// What is being written, or was when its writer was killed, is nobody's garbage.
TEST_F(MatchingTest, NoFilterOfAFirstStartFindsATemporaryFile) {
  std::string settings = PackagedFile("first-time-settings.txt");
  std::size_t at = settings.find("\\File Filters + "), end = settings.find("\n[", at);
  ASSERT_NE(at, settings.npos);
  Strings filters;
  while ((at = settings.find("\n\"", at)) < end) {
    at += 2;
    filters.push_back(settings.substr(at, settings.find('"', at) - at));
  }
  ASSERT_GT(filters.size(), 20u);
  scan::FilterSet set(ListOf(filters));
  computer.MakeFolder("C:\\Data");
  for (const char* name : {"a.txt", "a.tmp", "thumbs.db", "~$letter.doc", "a.~mp", "notes~"}) {
    platform::WriteBeside beside(computer.Files(), std::string("C:\\Data\\") + name);
    ASSERT_EQ(beside.State(), platform::Status::Done);
    std::vector<int> hits;
    set.Match(beside.Path().substr(8), hits);
    for (int hit : hits) ADD_FAILURE() << set.Filter(hit) << " finds " << beside.Path();
  }
}

}  // namespace
}  // namespace test
