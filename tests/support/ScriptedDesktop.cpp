#include "support/ScriptedDesktop.h"

#include <algorithm>

namespace test {

using platform::Box;
using platform::BoxAnswer;
using platform::BoxButtons;
using platform::BoxIcon;

namespace {

constexpr std::size_t kRefreshesKept = 100'000;

std::string RecordOf(const Box& box) {
  std::string kind = box.icon == BoxIcon::Critical      ? "critical"
                     : box.icon == BoxIcon::Exclamation ? "exclamation"
                     : box.icon == BoxIcon::Information ? "information"
                                                        : "none";
  if (box.buttons == BoxButtons::YesNo) kind += '?';
  return kind + "|" + box.title + "|" + box.text;
}

}  // namespace

void ScriptedDesktop::Clear() {
  answers_.clear();
  rules_.clear();
  texts_.clear();
  folders_.clear();
  files_.clear();
  boxes.clear();
  unexpected.clear();
  opened.clear();
  pointers.clear();
  refreshed.clear();
  sleeps.clear();
  windows.clear();
  popups.clear();
  resolutions.clear();
  doEvents = breathes = 0;
}

int ScriptedDesktop::CountBoxes(const std::string& part) const {
  return static_cast<int>(std::count_if(boxes.begin(), boxes.end(), [&](const std::string& record) {
    return record.find(part) != std::string::npos;
  }));
}

bool ScriptedDesktop::WasRefreshed(const std::string& name) const {
  return std::find(refreshed.begin(), refreshed.end(), name) != refreshed.end();
}

BoxAnswer ScriptedDesktop::MessageBox(const Box& box) {
  std::string record = RecordOf(box);
  boxes.push_back(record);
  if (onBox) onBox(record);
  if (box.buttons == BoxButtons::Ok) return BoxAnswer::Ok;
  if (!answers_.empty()) {
    BoxAnswer answer = answers_.front();
    answers_.pop_front();
    return answer;
  }
  for (const Rule& rule : rules_)
    if (record.find(rule.part) != std::string::npos) return rule.answer;
  unexpected.push_back(record);
  return BoxAnswer::No;
}

std::string ScriptedDesktop::Take(std::deque<std::string>& script, const std::string& what) {
  if (script.empty()) {
    unexpected.push_back(what);
    return {};
  }
  std::string text = script.front();
  script.pop_front();
  return text;
}

std::string ScriptedDesktop::InputBox(const std::string& prompt, const std::string& title,
                                      const std::string& defaultText) {
  std::string record = "input|" + title + "|" + prompt + "|" + defaultText;
  boxes.push_back(record);
  if (onBox) onBox(record);
  return Take(texts_, record);
}

std::string ScriptedDesktop::BrowseForFolder() {
  return Take(folders_, "folder picker");
}
std::string ScriptedDesktop::BrowseForFile() {
  return Take(files_, "file picker");
}

long ScriptedDesktop::OpenDocument(const std::string& path) {
  opened.push_back("document " + path);
  return openDocumentResult;
}

long ScriptedDesktop::ViewContent(const std::string& path) {
  opened.push_back("content " + path);
  return viewContentResult;
}

long ScriptedDesktop::OpenFolder(const std::string& path) {
  opened.push_back("folder " + path);
  return openFolderResult;
}

long ScriptedDesktop::ShowProperties(const std::string& path) {
  opened.push_back("properties " + path);
  return propertiesResult;
}

void ScriptedDesktop::DoEvents() {
  ++doEvents;
  if (onDoEvents) onDoEvents(doEvents);
}

void ScriptedDesktop::Breathe() {
  ++breathes;
  if (onBreathe) onBreathe(breathes);
}

void ScriptedDesktop::NoteRefresh(const std::string& name) {
  if (refreshed.size() == kRefreshesKept) refreshed.pop_front();
  refreshed.push_back(name);
}

void ScriptedDesktop::Refresh(controls::Control& control) {
  NoteRefresh(control.Name());
}
void ScriptedDesktop::Refresh(controls::Form& form) {
  NoteRefresh(form.Name());
}

void ScriptedDesktop::Sleep(int milliseconds) {
  sleeps.push_back(milliseconds);
  if (onSleep) onSleep(milliseconds);
}

void ScriptedDesktop::SetPointer(platform::Pointer newPointer) {
  pointer = newPointer;
  pointers.push_back(newPointer);
}

void ScriptedDesktop::ShowPopup(controls::Form& form, const controls::PopupMenu& menu) {
  popups.push_back(form.Name() + "." + menu.Name);
}

long ScriptedDesktop::SetScreenResolution(int width, int height) {
  resolutions.push_back({width, height});
  return setResolutionResult;
}

void ScriptedDesktop::Show(controls::Form& form) {
  windows.push_back("show " + form.Name());
  if (raiseActivate) form.Activate();
}

void ScriptedDesktop::Hide(controls::Form& form) {
  windows.push_back("hide " + form.Name());
}

void ScriptedDesktop::Activate(controls::Form& form) {
  windows.push_back("activate " + form.Name());
  if (raiseActivate) form.Activate();
}

void ScriptedDesktop::Minimise(controls::Form& form) {
  windows.push_back("minimise " + form.Name());
}

void ScriptedDesktop::Move(controls::Form& form) {
  windows.push_back("move " + form.Name());
}
void ScriptedDesktop::Forget(controls::Form& form) {
  windows.push_back("forget " + form.Name());
}

bool ScriptedDesktop::AddTrayIcon(controls::Form&, const std::string& picture, const std::string& tip) {
  windows.push_back("tray " + picture + "|" + tip);
  return trayIsThere;
}

void ScriptedDesktop::Quit() {
  windows.push_back("quit");
}

}  // namespace test
