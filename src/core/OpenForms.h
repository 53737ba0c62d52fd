// The collection of loaded forms, and a form's way from loading to its end.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "controls/Form.h"

struct frmMain;

namespace core {

// The loaded forms in the order of their loading.
const std::vector<controls::Form*>& OpenForms();
bool IsLoaded(const controls::Form& form);

// Takes the form into the collection and raises its Load. `released` runs when the form is dropped, before it
// is destroyed.
void LoadForm(std::unique_ptr<controls::Form> form, std::function<void()> released);

// Shows a loaded form (not modal). Its Activate comes from the desktop when the window becomes the active
// one.
void ShowForm(controls::Form& form);
void HideForm(controls::Form& form);

// A close request: QueryUnload, then Unload, each of which may refuse. An accepted close hides the form,
// takes it out of the collection and destroys it once no handler is on the stack; with the last form the
// message loop ends. `unloadMode` is 0 for the user or the program and 2 for the end of the session. The main
// form's Unload, which releases the session, waits until no run and no handler is on the stack. True if the
// form has closed or will.
bool CloseForm(controls::Form& form, int unloadMode = 0);

// Drops all forms without asking: for the end of a test.
void DropAllForms();

// The one instance of a secondary form: made, wired and loaded on first use, gone with its unload.
template <class T>
class FormSlot {
 public:
  explicit FormSlot(void (*wire)(T&)) : wire_(wire) {}
  // The loaded form, made if there is none.
  T& Get() {
    if (!form_) {
      auto made = std::make_unique<T>();
      form_ = made.get();
      wire_(*form_);
      LoadForm(std::move(made), [this] { form_ = nullptr; });
    }
    return *form_;
  }
  // Null while it isn't loaded.
  T* Loaded() const { return form_; }

 private:
  void (*wire_)(T&);
  T* form_ = nullptr;
};

// The main window, for those who aren't handed it. Set by whoever makes it.
frmMain& MainForm();
bool HasMainForm();
void SetMainForm(frmMain* form);

}  // namespace core
