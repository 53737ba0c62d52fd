#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

#include "platform/CountedList.h"
#include "platform/RuntimeError.h"

using platform::CountedList;

// Against a plain vector, in random steps.
TEST(CountedListOracleTest, BehavesLikeAPlainList) {
  std::mt19937 random(7);
  auto below = [&random](std::size_t limit) { return static_cast<int>(random() % limit); };
  for (int round = 0; round < 20; ++round) {
    CountedList list;
    std::vector<std::string> plain;
    std::uint32_t folder = 0;
    std::string path;
    for (int step = 0; step < 1500; ++step) {
      switch (below(round % 2 ? 6 : 5)) {
        case 0:
          path = "C:\\" + std::to_string(below(1000)) + "\\";
          folder = list.AddFolder(path);
          break;
        case 1:
          plain.push_back(std::string(static_cast<std::size_t>(below(40)), 'x'));
          list.Add(plain.back());
          break;
        case 2: {
          CountedList copy = list;
          EXPECT_EQ(copy.UpperBound(), list.UpperBound());
          if (plain.size() < 400) {
            list.Append(copy);
            for (int i = 0, n = copy.UpperBound(); i < n; ++i)
              plain.push_back(plain[static_cast<std::size_t>(i)]);
          }
          break;
        }
        case 5:
          for (int i = 0; i < 3 && !plain.empty(); ++i) {
            int at = below(plain.size());
            list.Remove(at);
            plain.erase(plain.begin() + at);
          }
          break;
        default:
          if (path.empty()) break;
          plain.push_back(path + std::to_string(step));
          list.AddIn(folder, std::to_string(step));
      }
      ASSERT_EQ(list.UpperBound(), static_cast<int>(plain.size()));
      if (!plain.empty()) {
        int at = below(plain.size());
        ASSERT_EQ(list[at], plain[static_cast<std::size_t>(at)]);
        ASSERT_EQ(std::string(list.FolderText(list.FolderOf(at))) + std::string(list.NameText(at)),
                  plain[static_cast<std::size_t>(at)]);
      }
    }
    for (int i = 0; i < list.UpperBound(); ++i) ASSERT_EQ(list[i], plain[static_cast<std::size_t>(i)]);
    EXPECT_EQ(list[list.UpperBound()], "");
    EXPECT_THROW(list[list.UpperBound() + 1], platform::RuntimeError);
    CountedList moved = std::move(list);
    list.Reset();
    list.Add("again");
    EXPECT_EQ(moved.UpperBound(), static_cast<int>(plain.size()));
    EXPECT_EQ(list[0], "again");
  }
}
