#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "controls/Form.h"
#include "controls/ListView.h"

namespace {

using controls::ListView;

struct Row {
  std::string text, path, size;
  bool checked = false;
  controls::Color color = 0;
  int icon = 0;
  int id = 0;
};

// The list told in the plainest way, every answer by a walk.
struct Model {
  std::vector<Row> rows;
  int selected = 0;  // id

  template <class Test>
  int First(Test test) const {
    auto found = std::find_if(rows.begin(), rows.end(), test);
    return found == rows.end() ? 0 : static_cast<int>(found - rows.begin()) + 1;
  }
};

class ListViewTest : public testing::Test {
 protected:
  ListViewTest() {
    list.Columns = {{"File"}, {"Path"}, {"Size"}};
    list.CheckBoxes = true;
  }

  void ExpectLike(const Model& model) {
    ASSERT_EQ(list.Count(), static_cast<int>(model.rows.size()));
    int checked = 0;
    for (int row = 1; row <= list.Count(); ++row) {
      const Row& expected = model.rows[static_cast<std::size_t>(row) - 1];
      ASSERT_EQ(list.Text(row), expected.text) << "row " << row;
      ASSERT_EQ(list.SubItem(row, 1), expected.path) << "row " << row;
      ASSERT_EQ(list.SubItem(row, 2), expected.size) << "row " << row;
      ASSERT_EQ(list.Checked(row), expected.checked) << "row " << row;
      ASSERT_EQ(list.ForeColor(row), expected.color) << "row " << row;
      ASSERT_EQ(list.SmallIcon(row), expected.icon) << "row " << row;
      if (expected.checked) ++checked;
    }
    ASSERT_EQ(list.CheckedCount(), checked);
    ASSERT_EQ(list.SelectedIndex(), model.First([&](const Row& row) { return row.id == model.selected; }));
    std::vector<int> visited;
    list.ForEach([&](int row) { visited.push_back(row); });
    ASSERT_EQ(static_cast<int>(visited.size()), list.Count());
    for (int row = 1; row <= list.Count(); ++row) ASSERT_EQ(visited[static_cast<std::size_t>(row) - 1], row);
  }

  ListView list{"lvwTest"};
};

// Few different texts, so that rows share names and paths and a find has to choose the first.
std::string SomeText(std::mt19937& random) {
  return "f" + std::to_string(random() % 12);
}
std::string SomePath(std::mt19937& random) {
  return "C:\\d" + std::to_string(random() % 6) + "\\";
}

TEST_F(ListViewTest, BehavesLikeThePlainListUnderAnySequence) {
  for (unsigned seed = 1; seed <= 12; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    list.Clear();
    Model model;
    int nextId = 1;
    for (int step = 0; step < 3000; ++step) {
      // The list swings between long and nearly empty, so that removed rows are squeezed out several times.
      bool growing = (step / 500) % 2 == 0;
      unsigned what = random() % 20;
      int row = 0;
      auto pick = [&]() -> Row& {
        std::size_t at = random() % model.rows.size();
        row = static_cast<int>(at) + 1;
        return model.rows[at];
      };
      if (model.rows.empty() || (growing ? what < 12 : what < 2)) {
        Row made{SomeText(random),   SomePath(random), std::to_string(random() % 100), false, 0,
                 int(random() % 12), nextId++};
        ASSERT_EQ(row = list.AddRow(made.text, made.icon), static_cast<int>(model.rows.size()) + 1);
        list.SetSubItem(row, 1, made.path);
        list.SetSubItem(row, 2, made.size);
        model.rows.push_back(made);
      } else if (growing ? what < 13 : what < 14) {
        pick();
        list.RemoveRow(row);
        model.rows.erase(model.rows.begin() + row - 1);
      } else if (what == 14) {
        std::string& text = pick().text = SomeText(random);
        list.SetText(row, text);
      } else if (what == 15) {
        std::string& path = pick().path = SomePath(random);
        list.SetSubItem(row, 1, path);
      } else if (what == 16) {
        Row& picked = pick();
        list.SetChecked(row, picked.checked = random() % 2 == 0);
        list.SetForeColor(row, picked.color = random() % 3);
      } else if (what == 17) {
        model.selected = pick().id;
        list.Select(row);
      } else if (what == 18) {
        std::string path = SomePath(random) + SomeText(random);
        ASSERT_EQ(list.FindPath(path),
                  model.First([&](const Row& row) { return row.path + row.text == path; }));
      } else {
        std::string text = SomeText(random);
        ASSERT_EQ(list.FindText(text), model.First([&](const Row& row) { return row.text == text; }));
      }
      if (step % 1000 == 700) {
        bool all = random() % 2 == 0;
        list.CheckAll(all);
        for (Row& row : model.rows) row.checked = all;
      }
      if (step % 50 == 0) {
        ExpectLike(model);
        if (HasFatalFailure()) FAIL() << "step " << step;
      }
    }
    ExpectLike(model);
  }
}

TEST_F(ListViewTest, TakesItsOwnTextsAsNewOnes) {
  list.AddRow("a text that is too long for any small buffer inside a string", 1);
  for (int i = 0; i < 200; ++i) {
    list.AddRow(list.Text(1), 1);
    list.SetSubItem(list.Count(), 1, list.Text(list.Count() - 1));
    list.SetText(list.Count(), list.SubItem(list.Count(), 1));
  }
  for (int row = 2; row <= list.Count(); ++row) {
    EXPECT_EQ(list.Text(row), "a text that is too long for any small buffer inside a string");
    EXPECT_EQ(list.SubItem(row, 1), list.Text(1));
  }
}

TEST_F(ListViewTest, RefusesRowsThatAreNotThere) {
  EXPECT_THROW(list.Text(1), std::out_of_range);
  list.AddRow("only", 1);
  EXPECT_THROW(list.Text(0), std::out_of_range);
  EXPECT_THROW(list.RemoveRow(2), std::out_of_range);
  EXPECT_THROW(list.Select(2), std::out_of_range);
  EXPECT_EQ(list.SubItem(1, 7), "");
  list.SetSubItem(1, 7, "nowhere");
  EXPECT_EQ(list.Text(1), "only");
}

TEST_F(ListViewTest, FindsAPathAcrossTheBorderOfItsTwoCells) {
  list.AddRow("c.txt", 2);
  list.SetSubItem(1, 1, "C:\\a\\b");
  list.AddRow("b\\c.txt", 2);
  list.SetSubItem(2, 1, "C:\\a\\");
  EXPECT_EQ(list.FindPath("C:\\a\\bc.txt"), 1);
  EXPECT_EQ(list.FindPath("C:\\a\\b\\c.txt"), 2);
  EXPECT_EQ(list.FindPath("c:\\a\\b\\c.txt"), 0) << "paths are compared exactly";
  EXPECT_EQ(list.FindPath(""), 0);
}

}  // namespace
