// What must hold on every screen.
#include <cctype>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "forms/frmBackupFileInformation.h"
#include "forms/frmCleanOnStartup.h"
#include "forms/frmDiskSpaceInformation.h"
#include "forms/frmExcludedZeroByteFilesFileFilters.h"
#include "forms/frmMain.h"
#include "forms/frmManageCookies.h"
#include "forms/frmPlugInMaker.h"
#include "forms/frmUserInformation.h"

namespace {

using namespace controls;

using Type = Layout::Type;

template <class... Forms>
std::vector<std::unique_ptr<Form>> Made() {
  std::vector<std::unique_ptr<Form>> forms;
  (forms.push_back(std::make_unique<Forms>()), ...);
  return forms;
}

std::vector<std::unique_ptr<Form>> AllForms() {
  return Made<frmMain, frmUserInformation, frmExcludedZeroByteFilesFileFilters, frmManageCookies,
              frmCleanOnStartup, frmBackupFileInformation, frmPlugInMaker, frmDiskSpaceInformation>();
}

// Every node of the layout with what it lies in, outermost first.
template <class Visit>
void Walk(const Layout& layout, std::vector<const Layout*>& above, Visit visit) {
  visit(layout, above);
  above.push_back(&layout);
  for (const Layout& child : layout.children) Walk(child, above, visit);
  above.pop_back();
}

template <class Visit>
void Walk(const Form& form, Visit visit) {
  std::vector<const Layout*> above;
  Walk(form.GetLayout(), above, visit);
}

template <class T>
std::vector<T*> ControlsOf(const Form& form, Kind kind) {
  std::vector<T*> found;
  for (Control* control : form.Controls())
    if (control->GetKind() == kind) found.push_back(static_cast<T*>(control));
  return found;
}

bool TakesFocus(const Control& control) {
  switch (control.GetKind()) {
    case Kind::Label: {
      LabelStyle style = static_cast<const Label&>(control).Style;
      return style == LabelStyle::Link || style == LabelStyle::MenuEntry;
    }
    case Kind::Button:
    case Kind::CheckBox:
    case Kind::TextBox:
    case Kind::ComboBox:
    case Kind::SpinBox:
    case Kind::ListView:
      return true;
    default:
      return false;
  }
}

// The frame of a stack that a control lies in; null for what stays while the pages change.
const Control* PageOf(const Control& control, const std::set<const Control*>& pages) {
  for (const Control* c = &control; c; c = c->Parent())
    if (pages.count(c)) return c;
  return nullptr;
}

std::set<const Control*> PagesOf(const Form& form) {
  std::set<const Control*> pages;
  Walk(form, [&](const Layout& layout, const std::vector<const Layout*>& above) {
    if (layout.control && !above.empty() && above.back()->type == Type::Stack) pages.insert(layout.control);
  });
  return pages;
}

// A control that is declared but left out of the layout never comes to the screen, and nothing else would
// tell.
TEST(ScreensTest, ShowEveryControlThatTheirHeadersDeclare) {
  std::map<std::string, const Form*> byName;
  auto forms = AllForms();
  for (const auto& form : forms) byName[form->Name()] = form.get();
  std::map<const Form*, std::size_t> declared;
  for (const auto& entry : std::filesystem::directory_iterator(BRASMIR_ROOT "/src/forms")) {
    if (entry.path().extension() != ".h") continue;
    std::ifstream file(entry.path());
    std::string text{std::istreambuf_iterator<char>(file), {}};
    auto own = byName.find(entry.path().stem().string());
    const Form* form = own == byName.end() ? byName.at("frmMain") : own->second;
    for (std::size_t at = text.find("CONTROL"); at != std::string::npos; at = text.find("CONTROL", at + 1)) {
      std::size_t open = text.find('(', at), close = text.find(')', open);
      std::istringstream words(text.substr(open + 1, close - open - 1));
      std::string type, name, index;
      std::getline(words, type, ',');
      std::getline(words >> std::ws, name, ',');
      std::vector<std::string> names;
      // An index that has a name of its own is counted alone.
      std::size_t named = 0;
      while (std::getline(words >> std::ws, index, ','))
        if (std::isdigit(static_cast<unsigned char>(index[0])))
          names.push_back(name + "(" + index + ")");
        else
          ++named;
      if (names.empty() && named == 0) names.push_back(name);
      declared[form] += names.size() + named;
      for (const std::string& each : names)
        EXPECT_NE(form->Find(each), nullptr) << form->Name() << " " << each;
    }
  }
  for (const auto& form : forms) EXPECT_EQ(form->Controls().size(), declared[form.get()]) << form->Name();
}

TEST(ScreensTest, NameEverythingThatTakesTheFocus) {
  for (const auto& form : AllForms())
    for (const Control* control : form->Controls()) {
      EXPECT_FALSE(TakesFocus(*control) && control->Caption.Get().empty() && control->ToolTip.Get().empty() &&
                   control->AccessibleName.empty())
          << form->Name() << " " << control->Name();
    }
}

TEST(ScreensTest, KeepMnemonicsInTheirCaptionsAndApartOnEachPage) {
  for (const auto& form : AllForms()) {
    std::set<const Control*> pages = PagesOf(*form);
    std::map<const Control*, std::map<char, std::string>> letters;  // by page
    for (const Control* control : form->Controls()) {
      char letter = control->Mnemonic;
      if (!letter) continue;
      EXPECT_NE(control->Caption.Get().find(letter), std::string::npos) << control->Name();
      char lower = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
      auto [it, fresh] = letters[PageOf(*control, pages)].emplace(lower, control->Name());
      EXPECT_TRUE(fresh) << form->Name() << ": " << letter << " reaches " << control->Name() << " and "
                         << it->second;
    }
    for (const auto& [page, own] : letters) {
      if (!page) continue;
      for (const auto& [letter, name] : letters[nullptr])
        EXPECT_FALSE(own.count(letter)) << name << " and " << (own.count(letter) ? own.at(letter) : "");
    }
  }
}

TEST(ScreensTest, HoldNoAmpersandInAnyText) {
  for (const auto& form : AllForms()) {
    std::string all;
    for (const Control* control : form->Controls()) all += control->Caption.Get() + control->ToolTip.Get();
    Walk(*form, [&](const Layout& layout, const auto&) { all += layout.text; });
    EXPECT_EQ(all.find('&'), std::string::npos) << form->Name() << all.substr(all.find('&'), 30);
  }
}

TEST(ScreensTest, NeverPressAButtonByItselfThatRemoves) {
  frmMain form;
  EXPECT_EQ(form.lvwFilesResultsBrasmir.DeletePresses, nullptr);
  for (Button* button :
       {&form.cmdDeleteResultsBrasmir, &form.cmdCleanUpScanComputerLumaro, &form.cmdRunPlugIns,
        &form.cmdRemovePlugIn, &form.cmdDeleteBackupBrasmir, &form.cmdRestoreBackupBrasmir,
        &form.cmdRemoveFileFiltersBrasmir, &form.cmdRemoveDirectorieExcludeBrasmir,
        &form.cmdRemoveFileExcludeBrasmir, &form.cmdRemoveUserDefinedFoldersLumaro}) {
    EXPECT_FALSE(button->Default.Get()) << button->Name();
    for (const TextBox* box : ControlsOf<TextBox>(form, Kind::TextBox)) EXPECT_NE(box->EnterPresses, button);
  }
}

TEST(ScreensTest, LetPagesShrinkByTheirListsOrSprings) {
  for (const auto& form : AllForms()) {
    std::set<const Control*> pages = PagesOf(*form);
    std::map<const Control*, int> giving;
    Walk(*form, [&](const Layout& layout, const std::vector<const Layout*>& above) {
      if (layout.stretch == 0 || above.empty() || above.back()->type != Type::Column) return;
      if (layout.type != Type::Item && layout.type != Type::Space) return;
      for (auto outer = above.rbegin(); outer != above.rend(); ++outer)
        if ((*outer)->control && pages.count((*outer)->control)) {
          ++giving[(*outer)->control];
          break;
        }
    });
    for (const Control* page : pages) EXPECT_GE(giving[page], 1) << page->Name();
  }
}

TEST(ScreensTest, HaveEveryPictureThatTheyName) {
  std::set<std::string> names;
  for (const auto& form : AllForms()) {
    Walk(*form, [&](const Layout& layout, const auto&) {
      if (layout.type == Type::Image) names.insert(layout.text);
    });
    for (const Label* label : ControlsOf<Label>(*form, Kind::Label)) names.insert(label->Picture);
    for (const Button* button : ControlsOf<Button>(*form, Kind::Button)) names.insert(button->Picture);
    for (const Picture* picture : ControlsOf<Picture>(*form, Kind::Picture)) {
      EXPECT_FALSE(picture->Image.Get().empty()) << picture->Name();
      names.insert(picture->Image);
    }
    for (const ListView* list : ControlsOf<ListView>(*form, Kind::ListView))
      names.insert(list->SmallIcons.begin(), list->SmallIcons.end());
  }
  const auto& menu = forms::MenuIcons();
  EXPECT_EQ(menu.size(), 10u);
  EXPECT_EQ(forms::ControlIcons().size(), static_cast<std::size_t>(forms::IconFinish));
  names.insert(menu.begin(), menu.end());
  names.erase("");
  for (const std::string& name : names)
    EXPECT_TRUE(std::filesystem::exists(std::string(BRASMIR_ROOT "/packaging/pictures/") + name + ".svg"))
        << name;
}

// Filling a screen from a state that its handlers would never leave goes wrong quietly, so the design starts
// in the state that goes with unticked boxes and with no run.
TEST(ScreensTest, StartAtRest) {
  frmMain form;
  for (const auto& each : AllForms())
    for (const ProgressBar* bar : ControlsOf<ProgressBar>(*each, Kind::ProgressBar))
      EXPECT_FALSE(bar->Visible.Get()) << bar->Name();
  for (const Picture* picture : ControlsOf<Picture>(form, Kind::Picture))
    EXPECT_FALSE(picture->Visible.Get()) << picture->Name();
  for (const Label* label : {&form.lblScanComputerProcentBrasmir, &form.lblScanComputerProcentLumaro,
                             &form.lblRebootScanComputerLumaro})
    EXPECT_FALSE(label->Visible.Get()) << label->Name();
  std::set<std::string> disabled;
  for (const Control* control : form.Controls()) {
    if (!control->Enabled.Get()) disabled.insert(control->Name());
    if (control->GetKind() == Kind::CheckBox) {
      EXPECT_EQ(static_cast<const CheckBox*>(control)->Value, 0) << control->Name();
      EXPECT_FALSE(static_cast<const CheckBox*>(control)->Assigned()) << control->Name();
    }
  }
  EXPECT_EQ(disabled,
            (std::set<std::string>{"chkEraseIndexDatOnRebootOptionsLumaro", "cmdCleanUpScanComputerLumaro",
                                   "cmdStartSchedule", "cmdViewResultsScanComputerBrasmir",
                                   "lblExcludeZeroByteFilesFileFiltersBrasmir"}));
  EXPECT_FALSE(form.ScanHasRun);
}

}  // namespace
