// Archives that anybody may have written: listed, restored, extracted and added to. The first byte chooses.
#include "backup/AbaleZip.h"
#include "backup/ArchiveTools.h"
#include "fuzz/MemoryMachine.h"
#include "fuzz/SmallRegistry.h"
#include "platform/Guard.h"
#include "platform/PathText.h"
#include "platform/RuntimeError.h"

namespace fuzz {

namespace {

// The key of the archives' marks is made once.
class ArchiveMachine : public MemoryMachine {
 public:
  platform::RegistryStore& Registry() override {
    static SmallRegistry registry;
    return registry;
  }
};

constexpr char kArchive[] = "C:\\Backup\\a.zip";
enum Choice : std::uint8_t { List, Restore, RestoreChosen, Extract, Add, kChoices };

// What lies on the drive before, and must be there in the end, in its place or in the bin.
const std::pair<const char*, const char*> kMine[] = {{"C:\\Data\\a.txt", "mine"},
                                                     {"C:\\Data\\b.txt", "first"},
                                                     {"C:\\Out\\a.txt", "out"},
                                                     {"C:\\Windows\\system.ini", "system"}};

void Prepare(MemoryMachine& machine) {
  for (const auto& [path, content] : kMine) machine.Put(path, content);
  machine.PutLink("C:\\Data\\link");
}

void Check(const MemoryMachine& machine, Choice choice, const std::string& archive) {
  for (const auto& [path, content] : kMine) {
    // In its place, set aside there, or in the bin.
    std::string front = Folded(path);
    front.resize(front.rfind('.'));
    bool kept = false;
    for (const auto& [folded, node] : machine.Nodes())
      kept = kept || (folded.starts_with(front) && node.content && *node.content == content);
    for (const auto& [folded, recycled] : machine.Recycled())
      kept = kept || (folded.starts_with(front) && recycled == content);
    if (!kept) Fail(std::string(path) + " is lost");
  }
  for (const auto& [folded, node] : machine.Nodes()) {
    if (folded == "c:") continue;
    if (!platform::MayActOn(node.path)) Fail(node.path + " is no path");
    if (folded.starts_with("c:\\data\\link\\")) Fail(node.path + " lies behind a link");
    bool mine = folded.starts_with("c:\\out") || folded.starts_with("c:\\data") ||
                folded.starts_with("c:\\backup") || folded.starts_with("c:\\windows");
    if (choice != Restore && choice != RestoreChosen && !mine) Fail(node.path + " was made");
    if (choice == List && node.path.starts_with("C:\\Out\\") && folded != "c:\\out\\a.txt")
      Fail(node.path + " was made");
    if (choice == Add && folded.ends_with(".brasmir")) Fail(node.path + " was left behind");
  }
  if (choice != Add && choice != Restore && choice != RestoreChosen &&
      *machine.Nodes().at("c:\\backup\\a.zip").content != archive)
    Fail("the archive was changed");
}

}  // namespace

void Try(std::span<const std::uint8_t> bytes) {
  if (bytes.empty()) return;
  auto choice = static_cast<Choice>(bytes[0] % kChoices);
  std::string archive(bytes.begin() + 1, bytes.end());
  ArchiveMachine machine;
  Prepare(machine);
  machine.Put(kArchive, archive);

  backup::AbaleZip zip;
  std::vector<std::string> names;
  zip.ZipFilename = kArchive;
  zip.KeepPaths = choice != Extract;
  zip.AbaZip_PrepareEntry = [](std::string& entry, const std::string&, const std::string& path) {
    entry = path;
  };
  zip.ConfirmForeign = [](double, const std::vector<std::string>&) { return true; };
  zip.AbaZip_ListingFile = [&](const std::string& path, auto&&...) { names.push_back(path); };
  switch (choice) {
    case RestoreChosen:
      zip.ListContents();
      for (std::size_t i = 0; i < names.size(); i += 2) zip.AddFileToProcess(names[i]);
      if (!names.empty()) zip.AddFileToProcess("C:\\not\\in it");
      zip.Unzip();
      break;
    case Restore:
      zip.Unzip();
      break;
    case Extract:
      zip.TargetFolder = "C:\\Out";
      zip.Unzip();
      break;
    case Add:
      zip.AddFileToProcess("C:\\Data\\a.txt");
      zip.AddFileToProcess("C:\\Data\\b.txt");
      try {
        if (zip.Zip() == 0 && zip.ListContents() == 526) Fail("what was stored can't be read");
      } catch (const platform::RuntimeError&) {
        if (*machine.Nodes().at("c:\\backup\\a.zip").content != archive)
          Fail("a failure has changed the archive");
      }
      break;
    default:
      zip.ListContents();
  }
  Check(machine, choice, archive);
}

std::vector<std::string> Seeds() {
  std::vector<std::string> archives;
  {
    ArchiveMachine machine;
    Prepare(machine);
    machine.Put("C:\\Data\\sub\\\xC3\xA4.txt", std::string(3000, 'z'));
    machine.Put("C:\\Data\\sub\\raw\xFF", "raw");
    backup::AbaleZip zip;
    zip.ZipFilename = kArchive;
    zip.AbaZip_PrepareEntry = [](std::string& entry, const std::string&, const std::string& path) {
      entry = path;
    };
    for (int round = 0; round < 2; ++round) {
      for (const auto& [folded, node] : machine.Nodes())
        if (node.kind == platform::EntryKind::File && folded != "c:\\backup\\a.zip")
          zip.AddFileToProcess(node.path);
      zip.Zip();
      zip.FilesToProcess = "";
      archives.push_back(*machine.Nodes().at("c:\\backup\\a.zip").content);
    }
  }
  archives.push_back(
      test::MakeZip({{.name = "C:/Data/a.txt", .content = "other"},
                     {.name = "C:/Data/link/x", .content = "behind a link"},
                     {.name = "../up", .content = "up"},
                     {.name = "sub/a.txt", .content = "twice"},
                     {.name = "dir/", .content = ""},
                     {.name = "link", .content = "C:/", .system = 3, .attributes = 0120777u << 16}}));
  archives.push_back(test::MakeZip({{.name = "C:/b", .content = "more than it says", .declaredSize = 3},
                                    {.name = "C:/c", .content = "", .sharedWith = 0}}));
  archives.push_back(test::MakeZip({}));
  std::vector<std::string> seeds;
  for (const std::string& archive : archives)
    for (char choice = 0; choice < kChoices; ++choice) seeds.push_back(choice + archive);
  return seeds;
}

}  // namespace fuzz
