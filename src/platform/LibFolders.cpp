#include "platform/LibFolders.h"

#include "platform/Machine.h"

namespace platform {

std::string LibFolders::InternetCache() const {
  return CurrentMachine().Folder(KnownFolder::InternetCache);
}
std::string LibFolders::Cookies() const {
  return CurrentMachine().Folder(KnownFolder::Cookies);
}
std::string LibFolders::History() const {
  return CurrentMachine().Folder(KnownFolder::History);
}
std::string LibFolders::Recent() const {
  return CurrentMachine().Folder(KnownFolder::Recent);
}
std::string LibFolders::AppData() const {
  return CurrentMachine().Folder(KnownFolder::AppData);
}
std::string LibFolders::Temp() const {
  return CurrentMachine().Folder(KnownFolder::Temp);
}
std::string LibFolders::Windows() const {
  return CurrentMachine().Folder(KnownFolder::Windows);
}
std::string LibFolders::System() const {
  return CurrentMachine().Folder(KnownFolder::System);
}
std::string LibFolders::UserFolderA() const {
  return CurrentMachine().Folder(KnownFolder::StartMenu);
}
std::string LibFolders::UserFolderB() const {
  return CurrentMachine().Folder(KnownFolder::Desktop);
}
std::string LibFolders::AllUsersFolderA() const {
  return CurrentMachine().Folder(KnownFolder::CommonStartMenu);
}
std::string LibFolders::AllUsersFolderB() const {
  return CurrentMachine().Folder(KnownFolder::CommonDesktop);
}

}  // namespace platform
