#include "jobs/Session.h"

#include "backup/BackupRestorePage.h"
#include "clean/Wire.h"
#include "core/OpenForms.h"
#include "core/m_SharedProcedures.h"
#include "lumaro/Wire.h"
#include "scan/Wire.h"
#include "settings/m_Registry.h"

namespace jobs {

// A fill that raises finds a whole object, which is taken down.
Session::Session(const std::function<void(frmMain&)>& fill) : Session() {
  fill(*form_);
}

Session::Session() {
  gAppRunning = std::make_unique<c_AppRunning>();
  gCleaningStatus = std::make_unique<c_CleaningStatus>();
  form_ = std::make_unique<frmMain>();
  core::SetMainForm(form_.get());
  scan::WireScan(*form_);
  backup::WireBackup(*form_);
  clean::WireClean(*form_);
  lumaro::WireLumaro(*form_);
}

Session::~Session() {
  core::DropAllForms();
  core::SetMainForm(nullptr);
  form_.reset();
  gCleaningStatus.reset();
  gAppRunning.reset();
}

void Session::SaveStatistics() {
  m_Registry::SaveCleaningStatus();
}

}  // namespace jobs
