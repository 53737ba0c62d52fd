#include "lumaro/ManageCookies.h"

#include <string>
#include <vector>

#include "core/Boxes.h"
#include "core/ErrorReport.h"
#include "core/Text.h"
#include "core/m_SharedProcedures.h"
#include "pages/m_Controls.h"
#include "platform/Desktop.h"
#include "platform/LibFolders.h"
#include "platform/Listings.h"
#include "platform/Operations.h"
#include "platform/TextFile.h"
#include "scan/m_Excluded.h"

namespace lumaro {

namespace {

using core::Args;
using core::BoxIcon;
using core::Guarded;

constexpr int kCookiesPicture = 1;

core::Procedure Here(const char* procedure) {
  return {"frmManageCookies", procedure};
}

std::string CookiesFile() {
  return gRegistry->InstallDirectory + "Cookies.txt";
}

void LoadCookies(CookieManager& form) {
  Guarded(Here("LoadCookies"), Args(), [&] {
    std::string folder = platform::LibFolders().Cookies();
    if (folder.empty()) {
      core::Tell(BoxIcon::Critical, "Drive error...",
                 {"Retrieving the path to Cookie directory returned with error",
                  "Scanning Cookie directory will be terminated"});
      return;
    }
    platform::CountedList files;
    if (platform::ops::ListFiles(folder, files) != platform::Status::Done) {
      core::Tell(BoxIcon::Critical, "Drive error",
                 {"Scanning Cookie directory returned with error", "Unable to list cookies..."});
      return;
    }
    core::Part dat(".dat");
    m_Excluded::CookieLines kept = m_Excluded::LinesOf(form.Remembered);
    // Closing the window replaces the list: where it couldn't be read, that must not take the protection of
    // any cookie away.
    bool allStay = m_Excluded::CookiesToKeepAreUnknown(form.Remembered);
    form.lvwCookies.Reserve(files.UpperBound());
    for (int i = 0; i < files.UpperBound(); ++i) {
      std::string path = files[i];
      if (dat.In(path)) continue;
      int row = form.lvwCookies.AddRow(path, kCookiesPicture);
      form.lvwCookies.SetChecked(row, !allStay && !m_Excluded::ExcludedCookie(kept, path));
    }
  });
}

// Whether there is anything to remember.
bool SaveCookies(const CookieManager& form) {
  return Guarded(Here("SaveCookies"), Args(),
                 [&] { return form.lvwCookies.CheckedCount() < form.lvwCookies.Count(); });
}

void RememberCookies(const CookieManager& form) {
  Guarded(Here("RememberCookies"), Args(), [&] {
    const controls::ListView& list = form.lvwCookies;
    if (list.Count() == 0) return;
    std::vector<std::string> lines;
    for (int row = 1; row <= list.Count(); ++row)
      if (!list.Checked(row)) lines.emplace_back(list.Text(row));
    platform::WriteTextFile(CookiesFile(), lines);
  });
}

void ForgetCookies() {
  Guarded(Here("ForgetCookies"), Args(), [] { platform::ops::Empty(CookiesFile()); });
}

void Form_Load(CookieManager& form) {
  Guarded(Here("Form_Load"), Args(), [&] {
    form.skn.Picture = gRegistry->InstallDirectory + "Skin\\Zinc-blue2.bmp";
    form.skn.Enabled = true;
    m_Controls::SetFlatHeaders(form.lvwCookies);
    m_Excluded::LoadExcludedCookies(form.Remembered);
    LoadCookies(form);
  });
}

void Form_Activate() {
  Guarded(Here("Form_Activate"), Args(), [] { platform::CurrentDesktop().DoEvents(); });
}

void Form_Unload(const CookieManager& form) {
  Guarded(Here("Form_Unload"), Args(core::BuiltIn{}), [&] {
    if (SaveCookies(form))
      RememberCookies(form);
    else
      ForgetCookies();
  });
}

void lblClose_Click(CookieManager& form) {
  Guarded(Here("lblClose_Click"), Args(), [&] { core::CloseForm(form); });
}

void lvwCookies_DblClick(const CookieManager& form) {
  Guarded(Here("lvwCookies_DblClick"), Args(), [&] {
    int row = form.lvwCookies.SelectedIndex();
    if (row != 0) platform::ops::ViewContent(std::string(form.lvwCookies.Text(row)));
  });
}

void Wire(CookieManager& form) {
  form.Load = [&form] { Form_Load(form); };
  form.Activate = [] { Form_Activate(); };
  form.Unload = [&form](int&) { Form_Unload(form); };
  form.lblClose.Click = [&form] { lblClose_Click(form); };
  form.lvwCookies.DblClick = [&form] { lvwCookies_DblClick(form); };
}

}  // namespace

core::FormSlot<CookieManager>& ManageCookies() {
  static core::FormSlot<CookieManager> slot(Wire);
  return slot;
}

}  // namespace lumaro
