#include <gtest/gtest.h>

#include "ViewTest.h"
#include "play/Input.h"
#include "view/ListPane.h"
#include "view/Native.h"

using play::driver::Click;
using play::driver::Find;
using play::driver::Press;
using play::driver::WaitFor;

namespace {

class List : public FormTest {
 protected:
  view::ListPane& Pane() { return *static_cast<view::ListPane*>(form.Window().ViewOf(form.list)); }
  void Fill(int rows) {
    form.list.Reserve(rows);
    for (int i = 1; i <= rows; ++i) {
      int row = form.list.AddRow((i % 2 ? "odd " : "even ") + std::to_string(i), 0);
      form.list.SetSubItem(row, 1, "C:\\folder\\");
    }
  }
  // Opens a form of twenty rows and notes what it hears from its list.
  void OpenAndHear() {
    Fill(20);
    form.list.Click = [this] { selected = form.list.SelectedIndex(); };
    form.list.ItemCheck = [this](int row) { ticked = row; };
    form.list.DblClick = [this] { opened = form.list.SelectedIndex(); };
    form.Open();
  }
  int selected = 0, ticked = 0, opened = 0;
};

void Focus() {
  Find("list")->SetFocus();
  // A part of the list takes it where the list isn't the system's own.
  WaitFor([] { return Find("list")->IsDescendant(wxWindow::FindFocus()); });
}

}  // namespace

TEST_F(List, AMillionRowsAreShownByAskingForThoseInSight) {
  Fill(1000000);
  form.Open();
  TheDesktop().Refresh(form);
  view::ListPane& pane = Pane();
  EXPECT_LT(pane.CellsAsked(), 20000u);
  form.list.EnsureVisible(1000000);
  form.list.Select(1000000);
  WaitFor([&] { return !pane.RowRect(1000000, false).IsEmpty(); });
  TheDesktop().Refresh(form);
  EXPECT_TRUE(Find("list")->GetScreenRect().Contains(pane.RowRect(1000000, false).GetPosition()));
  // Rows that go from anywhere are gone from the list too.
  for (int i = 0; i < 1000; ++i) form.list.RemoveRow(500);
  TheDesktop().Refresh(form);
  EXPECT_EQ(pane.RowsKnown(), 999000);
  EXPECT_LT(pane.CellsAsked(), 60000u);
  form.list.Clear();
  TheDesktop().Refresh(form);
  EXPECT_EQ(pane.RowsKnown(), 0);
}

TEST_F(List, ClicksSelectAndTick) {
  OpenAndHear();
  play::driver::ClickRow("list", 3);
  WaitFor([&] { return selected == 3; });
  EXPECT_EQ(form.list.CheckedCount(), 0);
  play::driver::ClickRow("list", 2, true);
  WaitFor([&] { return ticked == 2; });
  EXPECT_TRUE(form.list.Checked(2));
  EXPECT_EQ(form.list.CheckedCount(), 1);
  play::driver::DoubleClickRow("list", 4);
  WaitFor([&] { return opened == 4; });
}

TEST_F(List, WhatTheProgramTicksAndWritesIsDrawn) {
  Fill(20);
  form.Open();
  auto drawn = [&](bool check) {
    TheDesktop().Refresh(form);
    wxImage image = play::input::CaptureScreen(Pane().RowRect(2, check));
    return std::string(reinterpret_cast<const char*>(image.GetData()),
                       static_cast<std::size_t>(image.GetWidth() * image.GetHeight() * 3));
  };
  std::string box = drawn(true), text = drawn(false);
  form.list.CheckAll(true);
  std::string ticked = drawn(true);
  EXPECT_NE(ticked, box);
  form.list.SetSubItem(2, 0, "another");
  EXPECT_NE(drawn(false), text);
  form.list.SetChecked(2, false);
  EXPECT_EQ(drawn(true), box);
}

TEST_F(List, KeysMoveTickJumpOpenAndRemove) {
  int removed = 0;
  form.remove.Click = [&] { ++removed; };
  OpenAndHear();
  play::driver::ClickRow("list", 1);
  WaitFor([&] { return selected == 1; });
  Press(WXK_DOWN);
  WaitFor([&] { return selected == 2; });
  Press(WXK_SPACE);
  WaitFor([&] { return ticked == 2; });
  EXPECT_TRUE(form.list.Checked(2));
  Press(WXK_SPACE);
  WaitFor([&] { return !form.list.Checked(2); });
  play::driver::Type("odd 17");
  WaitFor([&] { return selected == 17; });
  Press(WXK_RETURN);
  WaitFor([&] { return opened == 17; });
  Press(WXK_DELETE);
  WaitFor([&] { return removed == 1; });
}

TEST_F(List, TheProgramsSelectionIsShownAndRaisesNothing) {
  Fill(5);
  form.list.Click = [&] { ++selected; };
  form.Open();
  form.list.Select(4);
  TheDesktop().Refresh(form);
  LetAllArrive(form.other);
  EXPECT_EQ(selected, 0);
  Focus();
  Press(WXK_UP);
  WaitFor([&] { return selected == 1; });
  EXPECT_EQ(form.list.SelectedIndex(), 3);
}

TEST_F(List, TheMenuOpensByMouseAndKeyAndGivesItsChoice) {
  Fill(5);
  controls::PopupMenu menu{"FileMenu", {{"Open", "", 'O'}, {"", "", '\0'}, {"Delete", "", 'D'}}};
  std::vector<std::string> choices;
  int downs = 0;
  form.list.MouseDown = [&](controls::MouseButton button) {
    EXPECT_EQ(button, controls::MouseButton::Right);
    ++downs;
    TheDesktop().ShowPopup(form, menu);
  };
  form.MenuClick = [&](std::string name, int position, std::string caption) {
    choices.push_back(name + " " + std::to_string(position) + " " + caption);
  };
  form.Open();
  auto choose = [](int entry) {
    play::driver::When(play::driver::MenuIsOpen, [entry] {
      for (int i = 0; i < entry; ++i) Press(WXK_DOWN);
      Press(WXK_RETURN);
    });
  };
  choose(2);
  play::driver::RightClickRow("list", 2);
  WaitFor([&] { return choices.size() == 1; });
  EXPECT_EQ(choices[0], "FileMenu 3 Delete");
  EXPECT_EQ(form.list.SelectedIndex(), 2);

  Focus();
  choose(1);
  Press(WXK_WINDOWS_MENU);
  WaitFor([&] { return choices.size() == 2; });
  EXPECT_EQ(choices[1], "FileMenu 1 Open");
}
