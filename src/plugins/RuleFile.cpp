#include "plugins/RuleFile.h"

#include "core/m_SharedProcedures.h"
#include "platform/Guard.h"
#include "platform/LibFolders.h"
#include "platform/LibPath.h"
#include "platform/Listings.h"
#include "platform/TextFile.h"
#include "plugins/PlugInRules.h"
#include "settings/m_RegistryLists.h"

namespace plugins {

namespace {

class Reader {
 public:
  Reader(const std::string& path, RuleTaker& taker) : file_(path, m_Registry::kLargestPlugIn), taker_(taker) {
    platform::LibFolders folders;
    platform::LibPath paths;
    tokens_ = {paths.AddBackslash(folders.System()), paths.AddBackslash(folders.Windows()),
               gRegistry->PathProgramFiles};
  }

  void Read() {
    for (int line = 0; line < 10; ++line) file_.ReadLine();
    Section(RuleSection::Files, &Reader::FileRule);
    file_.ReadLine();
    Section(RuleSection::Folders, &Reader::FolderRule);
    file_.ReadLine();
    Section(RuleSection::Keys, &Reader::KeyRule);
    // The last section alone ends at an empty line in its head's place too, and at the file's end.
    std::string line = file_.ReadLine();
    while (!file_.AtEnd() && !line.empty()) {
      taker_.Section(RuleSection::Values);
      line = file_.ReadLine();
      if (!line.empty()) ValueRule(line);
    }
  }

 private:
  void Section(RuleSection section, void (Reader::*rule)(const std::string&)) {
    for (;;) {
      taker_.Section(section);
      std::string line = file_.ReadLine();
      if (line.empty()) return;
      (this->*rule)(line);
    }
  }

  void FileRule(const std::string& line) {
    std::string_view rest = line;
    std::string_view kind = TakeField(rest);
    std::string path = ExpandTokens(std::string(rest), tokens_);
    if (kind == kSingleFile)
      taker_.File(path);
    else if (kind == kAllFiles || kind == kAllFilesSub)
      taker_.FilesOf(path, kind == kAllFilesSub);
  }

  void FolderRule(const std::string& line) { taker_.Folder(ExpandTokens(line, tokens_)); }

  void KeyRule(const std::string& line) {
    std::string_view subKey = line;
    std::string_view rootName = TakeField(subKey);
    if (auto root = RootKey(rootName)) taker_.Key({*root, std::string(rootName), std::string(subKey)});
  }

  void ValueRule(const std::string& line) {
    std::string_view rest = line;
    std::string_view kind = TakeField(rest);
    std::string_view rootName = TakeField(rest);
    auto root = RootKey(rootName);
    if (kind == kSingleValue) {
      std::string_view subKey = TakeField(rest);
      if (root) taker_.Value({*root, std::string(rootName), std::string(subKey)}, std::string(rest));
    } else if (kind == kAllValues && root) {
      taker_.ValuesOf({*root, std::string(rootName), std::string(rest)});
    }
  }

  platform::TextReader file_;
  RuleTaker& taker_;
  TokenFolders tokens_;
};

}  // namespace

void ReadRules(const std::string& path, RuleTaker& taker) {
  Reader(path, taker).Read();
}

bool MayClear(const std::string& folder) {
  return platform::MayClear(folder).clearing == platform::Clearing::Allowed;
}

void ListFilesOf(const std::string& folder, bool subfolders, platform::CountedList& files) {
  if (!MayClear(folder)) return;
  platform::CountedList folders;
  if (subfolders)
    platform::ops::ListTree(folder, files, folders);
  else
    platform::ops::ListFolder(folder, files);
}

}  // namespace plugins
