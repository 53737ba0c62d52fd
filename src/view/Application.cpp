#include "view/Application.h"

#include <string>
#include <utility>
#include <wx/app.h>
#include <wx/log.h>

#include "view/Screen.h"

namespace view {

namespace {

class ViewApp : public wxApp {
 public:
  bool OnInit() override {
    SetExitOnFrameDelete(false);
    SetAppName("Brasmir");
    return true;
  }
};

}  // namespace

int RunApplication(int argc, char** argv, std::function<bool()> start, std::function<void()> endSession) {
  Screen* screen = Screen::Current();
  if (!screen) return 1;
  // The toolkit would read arguments of its own.
  int count = argc > 0 ? 1 : 0;
  wxApp::SetInstance(new ViewApp);
  if (!wxEntryStart(count, argv) || !wxTheApp || !wxTheApp->CallOnInit()) return 1;
  // What goes wrong in a picture file or the like is no message for the user.
  delete wxLog::SetActiveTarget(new wxLogStderr);
  screen->Begin(std::move(endSession));
  wxTheApp->CallAfter([screen, &start] { screen->Start(start); });
  wxTheApp->OnRun();
  screen->End();
  wxTheApp->OnExit();
  wxEntryCleanup();
  return 0;
}

}  // namespace view
