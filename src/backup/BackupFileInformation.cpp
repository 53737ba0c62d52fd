#include "backup/BackupFileInformation.h"

#include "backup/ZipControls.h"
#include "backup/m_BackupRestore.h"
#include "core/Boxes.h"
#include "core/ErrorReport.h"
#include "core/Numbers.h"
#include "core/Text.h"
#include "core/m_SharedProcedures.h"
#include "pages/m_Controls.h"
#include "platform/Desktop.h"
#include "platform/LibPath.h"
#include "platform/Machine.h"

namespace backup {

using core::Args;
using core::Guarded;
using core::Procedure;

namespace {

constexpr char kForm[] = "frmBackupFileInformation";
constexpr int kFileIcon = 1;
constexpr controls::Color kFound = controls::Rgb(0, 0, 255);

// As a date turns into text: without the time where that is midnight.
std::string DateText(AbaleZip::Date moment) {
  if (!moment) return {};
  platform::Machine& machine = platform::CurrentMachine();
  platform::DateTime date = machine.GetClock().ToLocal(*moment);
  std::string text = machine.GetLocale().ShortDate(date);
  if (date.hour != 0 || date.minute != 0 || date.second != 0)
    text.append(" ").append(machine.GetLocale().LongTime(date));
  return text;
}

void Form_Load(frmBackupFileInformation& form) {
  Guarded(Procedure{kForm, "Form_Load"}, Args(), [&] {
    form.skn.Picture = gRegistry->InstallDirectory + "Skin\\Zinc-blue2.bmp";
    form.skn.Enabled = true;
    m_Controls::SetFlatHeaders(form.lvwZipFileInformation);
  });
}

void lblSearch_Click(frmBackupFileInformation& form) {
  Guarded(Procedure{kForm, "lblSearch_Click"}, Args(), [&] {
    controls::ListView& rows = form.lvwZipFileInformation;
    double count = 0;
    auto show = [&] { form.lblSearchFound.Caption = "Found: " + core::NumberText(count) + " File(s)"; };
    show();
    core::Part wanted(form.txtSearchFileName.Text.Get());
    platform::LibPath path;
    for (int row = 1; row <= rows.Count(); ++row) {
      platform::CurrentDesktop().Breathe();
      std::string name = path.GetFileName(rows.Text(row));
      bool found = wanted.Empty() || wanted.In(name);
      rows.SetForeColor(row, found ? kFound : 0);
      if (!found) continue;
      rows.Select(row);
      rows.EnsureVisible(row);
      ++count;
      show();
    }
  });
}

void lblRestore_Click(frmBackupFileInformation& form) {
  Guarded(Procedure{kForm, "lblRestore_Click"}, Args(), [&] {
    core::Hourglass hourglass;
    m_BackupRestore::RestoreSelectedFiles(form);
  });
}

void lblClose_Click(frmBackupFileInformation& form) {
  Guarded(Procedure{kForm, "lblClose_Click"}, Args(), [&] { core::CloseForm(form); });
}

}  // namespace

void WireBackupFileInformation(frmBackupFileInformation& form) {
  form.Load = [&form] { Form_Load(form); };
  form.lblSearch.Click = [&form] { lblSearch_Click(form); };
  form.lblRestore.Click = [&form] { lblRestore_Click(form); };
  form.lblClose.Click = [&form] { lblClose_Click(form); };
}

void AbaZip_ListingFile(const std::string& sFilename, const std::string&, double size, double compressed,
                        long ratio, long, std::uint32_t, AbaleZip::Date modified, AbaleZip::Date accessed,
                        AbaleZip::Date created) {
  frmBackupFileInformation* form = BackupFileInformation().Loaded();
  if (!form) return;
  controls::ListView& rows = form->lvwZipFileInformation;
  int row = rows.AddRow(sFilename, kFileIcon);
  // This event reports no failure: it goes on with its next statement.
  auto set = [&](int column, auto text) {
    try {
      rows.SetSubItem(row, column, text());
    } catch (const std::exception&) {
    }
  };
  set(1, [&] { return core::NumberText(size); });
  set(2, [&] { return core::NumberText(compressed); });
  set(3, [&] { return core::NumberText(static_cast<double>(ratio)); });
  set(4, [&] { return DateText(modified); });
  set(5, [&] { return DateText(accessed); });
  set(6, [&] { return DateText(created); });
}

}  // namespace backup
