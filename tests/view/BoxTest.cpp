#include <filesystem>
#include <gtest/gtest.h>
#include <wx/textctrl.h>

#include "ViewTest.h"
#include "support/TestComputer.h"
#include "view/ChartBox.h"
#include "view/ContentViewer.h"
#include "view/Text.h"

using platform::BoxAnswer;
using platform::BoxButtons;
using platform::BoxIcon;
using play::driver::Click;
using play::driver::Find;
using play::driver::Press;
using play::driver::WaitFor;
using play::driver::When;

namespace {

const platform::Box kQuestion{BoxIcon::Exclamation, BoxButtons::YesNo, "Question",
                              "First line\r\nAre you sure?"};

BoxAnswer Ask(const std::function<void()>& answer, const platform::Box& box = kQuestion) {
  const char* button = box.buttons == BoxButtons::YesNo ? "No" : "OK";
  When(
      [button, still = play::driver::Stillness()]() mutable {
        wxWindow* found = Find(button);
        bool active = found && static_cast<wxTopLevelWindow*>(wxGetTopLevelParent(found))->IsActive();
        return still.Reached(active ? found : nullptr);
      },
      answer);
  return TheDesktop().MessageBox(box);
}

class Boxes : public OpenFormTest {};

}  // namespace

TEST_F(Boxes, AQuestionGoesOnOnlyOnYes) {
  EXPECT_EQ(Ask([] { Click("Yes"); }), BoxAnswer::Yes);
  EXPECT_EQ(Ask([] { Click("No"); }), BoxAnswer::No);
  EXPECT_EQ(Ask([] { Press(WXK_ESCAPE); }), BoxAnswer::No);
  EXPECT_EQ(Ask([] { Press(WXK_RETURN); }), BoxAnswer::No);
  EXPECT_EQ(Ask([] { wxGetTopLevelParent(Find("Yes"))->Close(); }), BoxAnswer::No);
  platform::Box plain{BoxIcon::Information, BoxButtons::Ok, "Told", "Done"};
  EXPECT_EQ(Ask([] { Press(WXK_ESCAPE); }, plain), BoxAnswer::Ok);
  EXPECT_EQ(Ask([] { Press(WXK_RETURN); }, plain), BoxAnswer::Ok);
}

TEST_F(Boxes, NothingOfTheProgramRunsBehindABox) {
  int ticks = 0, others = 0;
  form.timer.Tick = [&] { ++ticks; };
  form.timer.Interval = 1;
  form.timer.Enabled = true;
  form.other.Click = [&] { ++others; };
  TheDesktop().Refresh(form);
  Ask([&] {
    EXPECT_EQ(ticks, 0);
    Click("other");
    Press(WXK_ESCAPE);
  });
  EXPECT_EQ(others, 0);
  form.timer.Enabled = false;
}

TEST_F(Boxes, AnInputBoxGivesItsTextOrNothing) {
  auto ask = [](const std::function<void()>& answer) {
    When(
        [still = play::driver::Stillness()]() mutable {
          wxWindow* text = Find("Text");
          return still.Reached(text && text->HasFocus() ? text : nullptr);
        },
        answer);
    return TheDesktop().InputBox("Why?", "Reason", "Because");
  };
  EXPECT_EQ(ask([] { Press(WXK_RETURN); }), "Because");
  EXPECT_EQ(ask([] {
              play::driver::Type("new");
              Press(WXK_RETURN);
            }),
            "new");
  EXPECT_EQ(ask([] { Press(WXK_ESCAPE); }), "");
}

TEST_F(Boxes, PropertiesAndDocumentsTellWhatIsNotThere) {
  {
    test::TestComputer computer;
    platform::SetCurrentDesktop(&TheDesktop());
    computer.WriteFile("C:\\a.txt", "abc");
    EXPECT_EQ(TheDesktop().ShowProperties("C:\\gone.txt"), 0);
    When([] { return Find("Close") != nullptr; }, [] { Press(WXK_ESCAPE); });
    EXPECT_NE(TheDesktop().ShowProperties("C:\\a.txt"), 0);
    EXPECT_EQ(TheDesktop().OpenDocument("C:\\gone.txt"), 2);
    EXPECT_NE(TheDesktop().ViewContent("C:\\gone.txt"), 0);
  }
  platform::SetCurrentDesktop(&TheDesktop());
}

namespace {

// Files of a computer that is played, in windows that are real.
class Viewer : public testing::Test {
 protected:
  Viewer() { platform::SetCurrentDesktop(&TheDesktop()); }
  view::FilePages Pages(const std::string& content) {
    computer.WriteFile("C:\\content.txt", content);
    platform::Status status;
    return view::FilePages(computer.Files().Open("C:\\content.txt", platform::OpenMode::Read, status));
  }
  test::TestComputer computer;
};

std::string All(view::FilePages& pages) {
  std::string all;
  for (std::uint64_t page = 0; page < pages.Count(); ++page) all += view::FromWx(pages.Page(page));
  return all;
}

}  // namespace

TEST_F(Viewer, ThePagesTogetherAreTheFile) {
  std::string lines, oneLine;
  for (int i = 0; lines.size() < 5 * view::FilePages::kPage; ++i)
    lines += "line " + std::to_string(i) + " \xC3\xA9\r\n";
  while (oneLine.size() < 3 * view::FilePages::kPage)
    oneLine +=
        "\xE2\x82\xAC"
        "7";
  for (const std::string& content :
       {lines, oneLine, std::string(), std::string("short"), std::string(view::FilePages::kPage, 'x')}) {
    view::FilePages pages = Pages(content);
    EXPECT_FALSE(pages.Binary());
    EXPECT_EQ(All(pages), content);
  }
  view::FilePages pages = Pages(lines);
  for (std::uint64_t page = 1; page < pages.Count(); ++page)
    EXPECT_TRUE(pages.Page(page).StartsWith("line ")) << page;
}

TEST_F(Viewer, OtherBytesAreShownAsAnsiOrHexadecimal) {
  view::FilePages ansi = Pages("caf\xE9");
  EXPECT_EQ(view::FromWx(ansi.Page(0)), "caf\xC3\xA9");
  view::FilePages binary =
      Pages(std::string("MZ\0\x01"
                        "abcdefghijklmnop",
                        20));
  EXPECT_TRUE(binary.Binary());
  EXPECT_EQ(view::FromWx(binary.Page(0)),
            "0000000000  4D 5A 00 01 61 62 63 64  65 66 67 68 69 6A 6B 6C  MZ..abcdefghijkl\n"
            "0000000010  6D 6E 6F 70                                       mnop\n");
}

TEST_F(Viewer, OpensABigFileAtOnceAndTurnsItsPages) {
  DemoForm form;
  form.Open();
  computer.WriteFile("C:\\big.txt", "first\n");
  // Two GiB without a byte on the disk.
  std::filesystem::resize_file(computer.Native("C:\\big.txt"), std::uintmax_t{2} << 30);
  ASSERT_EQ(TheDesktop().ViewContent("C:\\big.txt"), 0);
  WaitFor([] {
    return play::driver::FindTop("C:\\big.txt") && play::driver::FindTop("C:\\big.txt")->IsActive();
  });
  EXPECT_TRUE(static_cast<wxTextCtrl*>(Find("Content"))->GetValue().Contains("first"));
  Click("Next");
  WaitFor([] { return static_cast<wxTextCtrl*>(Find("Content"))->GetValue().StartsWith("0000008000"); });
  Find("Content")->SetFocus();
  Press(WXK_ESCAPE);
  WaitFor([] { return Find("Content") == nullptr; });
}

TEST(Chart, TheAxisHasFewRoundSteps) {
  EXPECT_EQ(view::AxisStep(488384.55, 5), 100000);
  EXPECT_EQ(view::AxisStep(1, 5), 0.2);
  EXPECT_EQ(view::AxisStep(5, 5), 1);
  EXPECT_EQ(view::ReadableValue(488384.55), wxString::FromUTF8("488\xC2\xA0"
                                                               "384.55"));
  EXPECT_EQ(view::ReadableValue(500), "500");
}
