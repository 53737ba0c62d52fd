#include "core/OpenForms.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "core/Run.h"
#include "forms/frmMain.h"
#include "platform/Desktop.h"

namespace core {

namespace {

struct Loaded {
  std::unique_ptr<controls::Form> form;
  std::function<void()> released;
};

std::vector<Loaded> loaded;
std::vector<controls::Form*> order;
std::vector<std::unique_ptr<controls::Form>> closed;
frmMain* mainForm = nullptr;
// The main form, once its close has been accepted and until nothing that uses the session is on the stack.
controls::Form* closing = nullptr;

void AtRest();

void DestroyClosed() {
  auto gone = std::move(closed);
  closed.clear();
}

void Release(controls::Form& form) {
  auto found = std::find_if(loaded.begin(), loaded.end(),
                            [&](const Loaded& entry) { return entry.form.get() == &form; });
  if (found == loaded.end()) return;
  Loaded entry = std::move(*found);
  loaded.erase(found);
  std::erase(order, &form);
  form.Visible = false;
  platform::CurrentDesktop().Hide(form);
  platform::CurrentDesktop().Forget(form);
  if (entry.released) entry.released();
  closed.push_back(std::move(entry.form));
  if (controls::EventDepth::Resting())
    DestroyClosed();
  else
    controls::EventDepth::AtRest = AtRest;
  if (order.empty()) platform::CurrentDesktop().Quit();
}

void Unload(controls::Form& form) {
  if (!IsLoaded(form)) return;
  int cancel = 0;
  form.Unload(cancel);
  if (cancel == 0) Release(form);
}

void AtRest() {
  if (controls::Form* form = std::exchange(closing, nullptr)) Unload(*form);
  DestroyClosed();
}

}  // namespace

const std::vector<controls::Form*>& OpenForms() {
  return order;
}

bool IsLoaded(const controls::Form& form) {
  return std::find(order.begin(), order.end(), &form) != order.end();
}

void LoadForm(std::unique_ptr<controls::Form> form, std::function<void()> released) {
  controls::Form& entered = *form;
  loaded.push_back({std::move(form), std::move(released)});
  order.push_back(&entered);
  entered.Load();
}

void ShowForm(controls::Form& form) {
  form.Visible = true;
  platform::CurrentDesktop().Show(form);
}

void HideForm(controls::Form& form) {
  form.Visible = false;
  platform::CurrentDesktop().Hide(form);
}

bool CloseForm(controls::Form& form, int unloadMode) {
  if (!IsLoaded(form)) return false;
  // Holds the form's destruction back until this has returned.
  controls::EventDepth depth;
  int cancel = 0;
  form.QueryUnload(cancel, unloadMode);
  if (cancel != 0) return false;
  if (&form != mainForm) {
    Unload(form);
    return true;
  }
  Run::Afterwards([&form] {
    controls::EventDepth until;
    closing = &form;
    controls::EventDepth::AtRest = AtRest;
  });
  return true;
}

void DropAllForms() {
  while (!loaded.empty()) {
    Loaded entry = std::move(loaded.back());
    loaded.pop_back();
    std::erase(order, entry.form.get());
    platform::CurrentDesktop().Forget(*entry.form);
    if (entry.released) entry.released();
  }
  closing = nullptr;
  DestroyClosed();
}

frmMain& MainForm() {
  if (!mainForm) throw std::logic_error("the main window isn't there");
  return *mainForm;
}
bool HasMainForm() {
  return mainForm != nullptr;
}
void SetMainForm(frmMain* form) {
  mainForm = form;
}

}  // namespace core
