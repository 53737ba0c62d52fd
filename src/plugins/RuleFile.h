// What a rule file says, for whoever carries it out or shows it.
#pragma once

#include <cstdint>
#include <string>

#include "platform/CountedList.h"

namespace plugins {

// The sections of a file, in their order; also the numbers of their marks on the page.
enum class RuleSection { Files, Folders, Keys, Values };

struct RuleKey {
  std::uint32_t root;
  std::string rootName, subKey;
};

// Is handed each rule of a file, its tokens replaced. Rules of an unknown kind or root are passed over.
class RuleTaker {
 public:
  virtual ~RuleTaker() = default;
  // Again before each line of the section.
  virtual void Section(RuleSection) {}
  virtual void File(const std::string& path) = 0;
  virtual void FilesOf(const std::string& folder, bool subfolders) = 0;
  virtual void Folder(const std::string& folder) = 0;
  virtual void Key(const RuleKey& key) = 0;
  virtual void Value(const RuleKey& key, const std::string& name) = 0;
  virtual void ValuesOf(const RuleKey& key) = 0;
};

// Reads a file from top to bottom: ten lines, then four sections that an empty line ends. Raises for one that
// can't be read or breaks off; what stands before that has been handed over by then.
void ReadRules(const std::string& path, RuleTaker& taker);

// Whether a rule may clear the folder: whoever made a rule file doesn't know what a user keeps in folders of
// their own.
bool MayClear(const std::string& folder);
// The files that a rule for all files of a folder means; none of one that no rule may clear.
void ListFilesOf(const std::string& folder, bool subfolders, platform::CountedList& files);

}  // namespace plugins
