// Random trees, backups, removals, restores and kills, held against a plain model that says which contents
// must lie where. What it asks: a file that nobody has ticked lies where it lay; a content that was to be
// removed with a backup, or to the bin, or that made room for another, is still somewhere; an archive is
// never damaged, and all that it holds comes back.
//
// Usage: model_check [--seconds N | --rounds N] [--seed N]
//
// A round follows from its seed alone; one that fails is told with its seed and its steps. Ends with 1 then.
#include <algorithm>
#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <mutex>
#include <random>
#include <set>
#include <string>
#include <sys/mman.h>
#include <vector>
#include <zip.h>

#include "backup/AbaleZip.h"
#include "core/m_SharedProcedures.h"
#include "removal/Remover.h"
#include "support/ChildProcess.h"
#include "support/Session.h"
#include "support/WatchedFiles.h"

namespace {

namespace fs = std::filesystem;
using settings::CleaningMethod;
using Ids = std::set<int>;

constexpr char kData[] = "C:\\Data";
constexpr char kOut[] = "C:\\Out";
constexpr int kNever = -1;

// Names that one system or another takes for the same, for its own or for none.
const char* const kNames[] = {"a.tmp",
                              "A.tmp",
                              "\xCE\xBB\xCF\x8C\xCF\x82.tmp",
                              "\xCE\xBB\xCF\x8C\xCF\x83.tmp",
                              "a (2).tmp",
                              "aux.tmp",
                              "log 12:30.tmp",
                              " blank .tmp ",
                              "\xED\xA0\x80.tmp",
                              "no extension",
                              "deep\\er\\b.tmp",
                              "deep\\B.tmp"};

struct Failure {
  std::string why;
};

// Counts over all rounds.
struct Figures {
  long rounds = 0, files = 0, kills = 0, removed = 0, kept = 0, restored = 0;
};

// What another program does while a run works: it writes a new content under a path.
struct Change {
  std::string path;
  int id;
  int before;  // the step of the backup, or with `late` the file of the removing, that it comes before
  bool late;
};

class Round {
 public:
  Round(test::TestComputer& computer, std::uint64_t seed, Figures& figures)
      : computer_(computer), random_(seed), figures_(figures) {}

  void Play() {
    for (const char* folder : {kData, kOut, "C:\\Backup", "C:\\$Recycle.Bin"}) computer_.Remove(folder);
    for (int files = Pick(3, 16); files > 0; --files) Write(SomePath(), NewContent());
    if (Chance(3)) LinkTwice();
    Check();
    for (int phases = Pick(1, 4); phases > 0; --phases) {
      switch (Pick(0, 5)) {
        case 0:
          Restore(Chance(2));
          break;
        case 1:
          Extract(Chance(2));
          break;
        case 2:
          Write(SomePath(), NewContent());
          break;
        default:
          Clean();
      }
      Check();
    }
    Restore(false);
    Check();
  }
  const std::string& Steps() const { return steps_; }

 private:
  // What the disk holds.
  struct Found {
    std::map<std::string, int> at;  // by native path
    Ids files, archived;
    std::vector<std::string> leftovers;  // of what a kill has ended
    std::set<std::string> exactNames;    // of the archives' entries
    std::set<std::string> names;         // the same without regard to case
  };

  int Pick(int from, int to) { return std::uniform_int_distribution<int>(from, to)(random_); }
  bool Chance(int oneIn) { return Pick(1, oneIn) == 1; }
  std::string SomePath() {
    return std::string(kData) + "\\part" + std::to_string(Pick(1, 2)) + "\\" +
           kNames[static_cast<std::size_t>(Pick(0, std::size(kNames) - 1))];
  }

  // Each content is one of a kind, of one of a few lengths, and each writing has a moment of its own.
  int NewContent() {
    static constexpr int kLengths[] = {24, 24, 24, 5'000, 70'000};
    std::string text = "#" + std::to_string(contents_.size()) + "#";
    const bool packs = Chance(2);
    for (int length = kLengths[Pick(0, 4)]; static_cast<int>(text.size()) < length;) {
      std::uint64_t noise = random_();
      text.append(packs ? "xxxxxxxx" : reinterpret_cast<const char*>(&noise), sizeof noise);
    }
    contents_.push_back(text);
    return static_cast<int>(contents_.size()) - 1;
  }
  const std::string& Content(int id) const { return contents_[static_cast<std::size_t>(id)]; }
  // The content that these bytes are, or kNever.
  int IdOf(const std::string& bytes) const {
    if (!bytes.starts_with('#')) return kNever;
    int id = std::atoi(bytes.c_str() + 1);
    return id >= 0 && id < static_cast<int>(contents_.size()) && bytes == Content(id) ? id : kNever;
  }

  std::string DosPath(const fs::path& native) {
    std::string path = native.string().substr(computer_.Native("C:").size());
    std::replace(path.begin(), path.end(), '/', '\\');
    return "C:" + path;
  }
  static std::string Folded(const std::string& path) {
    return platform::CurrentMachine().GetLocale().Fold(path);
  }

  // In one step, as careful programs write.
  void Put(const std::string& path, int id) {
    computer_.WriteFile("C:\\Elsewhere\\new", Content(id));
    fs::path native = computer_.Native(path);
    fs::create_directories(native.parent_path());
    fs::last_write_time(
        computer_.Native("C:\\Elsewhere\\new"),
        fs::file_time_type::clock::now() - std::chrono::hours(1) + std::chrono::milliseconds(id));
    fs::rename(computer_.Native("C:\\Elsewhere\\new"), native);
  }
  void Write(const std::string& path, int id) {
    MakeRoom(path);
    Put(path, id);
    steps_ += "; " + std::to_string(id) + " at " + path;
    lies_[path] = id;
    ++figures_.files;
  }
  // Another program takes the place of what lies there, which nobody then misses.
  void MakeRoom(const std::string& path) {
    Found found = Look();
    if (auto old = found.at.find(computer_.Native(path)); old != found.at.end())
      somewhere_.erase(old->second);
  }
  // One file gets a second name, which isn't among those that are ticked.
  void LinkTwice() {
    auto [path, id] = *lies_.begin();
    std::string second = std::string(kData) + "\\second name";
    computer_.MakeSecondName(path, second);
    lies_[second] = id;
    steps_ += "; " + path + " has a second name";
  }

  Found Look() {
    Found found;
    for (const auto& entry : fs::recursive_directory_iterator(computer_.Native("C:\\"))) {
      if (!entry.is_regular_file()) continue;
      if (entry.path().parent_path() == computer_.Native("C:\\Backup")) {
        if (entry.path().extension() == ".zip") LookInto(entry.path().string(), found);
        continue;
      }
      if (entry.path().extension() == ".brasmir") found.leftovers.push_back(DosPath(entry.path()));
      std::string bytes(entry.file_size(), '\0');
      std::ifstream(entry.path(), std::ios::binary)
          .read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
      int id = IdOf(bytes);
      if (id == kNever) continue;
      found.at[entry.path().string()] = id;
      found.files.insert(id);
    }
    return found;
  }
  void LookInto(const std::string& archive, Found& found) {
    int code = 0;
    std::unique_ptr<zip_t, decltype(&zip_discard)> zip(
        zip_open(archive.c_str(), ZIP_RDONLY | ZIP_CHECKCONS, &code), zip_discard);
    if (!zip) throw Failure{"an archive can't be opened: " + std::to_string(code)};
    for (zip_int64_t i = 0; i < zip_get_num_entries(zip.get(), 0); ++i) {
      auto place = static_cast<zip_uint64_t>(i);
      zip_stat_t about;
      if (zip_stat_index(zip.get(), place, ZIP_FL_ENC_RAW, &about) != 0)
        throw Failure{"an entry can't be looked at"};
      std::string bytes(about.size, '\0');
      std::unique_ptr<zip_file_t, decltype(&zip_fclose)> file(zip_fopen_index(zip.get(), place, 0),
                                                              zip_fclose);
      if (!file || zip_fread(file.get(), bytes.data(), about.size) != static_cast<zip_int64_t>(about.size))
        throw Failure{"an entry can't be read"};
      found.archived.insert(IdOf(bytes));
      std::string name = about.name;
      std::replace(name.begin(), name.end(), '/', '\\');
      found.names.insert(Folded(name));
      found.exactNames.insert(name);
    }
    if (found.archived.contains(kNever)) throw Failure{"an archive holds what no file ever was"};
  }

  void Check() {
    Found found = Look();
    for (const auto& [path, id] : lies_)
      if (auto at = found.at.find(computer_.Native(path)); at == found.at.end() || at->second != id)
        throw Failure{"content " + std::to_string(id) + " no longer lies at " + path};
    for (int id : somewhere_)
      if (!found.files.contains(id) && !found.archived.contains(id))
        throw Failure{"content " + std::to_string(id) + " is nowhere"};
  }
  // From now on it is enough if it is anywhere, an archive and the bin included.
  void MayMove(const std::string& path) {
    auto lies = lies_.find(path);
    if (lies == lies_.end()) return;
    somewhere_.insert(lies->second);
    lies_.erase(lies);
  }

  // Runs `act` to its end, or, with `kill`, in a process that dies before some step of it. True if it came to
  // its end. `act` is told of each step.
  bool Run(bool kill, int steps, const std::function<std::string(test::WatchedFiles&)>& act) {
    if (!kill) {
      test::WatchedFiles files(computer_.Machine());
      if (std::string why = act(files); !why.empty()) throw Failure{why};
      return true;
    }
    int last = Pick(0, steps);
    steps_ += ", killed before step " + std::to_string(last);
    test::ChildProcess child([&] {
      auto machine = computer_.AnotherMachine();
      test::WatchedFiles files(*machine);
      int done = 0;
      files.onStep = [&] {
        std::scoped_lock hold(lock_);
        if (done++ == last) raise(SIGKILL);
      };
      return act(files);
    });
    std::string result = child.Result();
    if (result.empty()) return true;
    if (result != "killed by signal 9") throw Failure{result};
    ++figures_.kills;
    return false;
  }

  void Prepare(backup::AbaleZip& zip) {
    zip.ZipFilename = "C:\\Backup\\" + std::to_string(archive_) + ".zip";
    zip.KeepPaths = true;
    zip.AbaZip_PrepareEntry = [](std::string& entry, const std::string&, const std::string& path) {
      entry = path;
    };
    zip.ConfirmForeign = [](double, const std::vector<std::string>&) { return false; };
  }

  void Clean() {
    static constexpr struct {
      CleaningMethod method;
      const char* name;
    } kMethods[] = {{CleaningMethod::Delete, "delete"},
                    {CleaningMethod::RecycleBin, "bin"},
                    {CleaningMethod::Erase, "erase"}};
    const auto& [method, name] = kMethods[Pick(0, 2)];
    bool backed = !Chance(4), kill = Chance(3);
    if (Chance(2)) ++archive_;
    std::vector<std::string> ticked;
    for (const auto& [path, id] : lies_)
      if (!path.ends_with("second name") && !Chance(3)) ticked.push_back(path);
    std::vector<Change> changes;
    std::set<std::string> changed;
    for (int count = Pick(0, 3); count > 0; --count) {
      bool any = Chance(3) || ticked.empty();
      std::string path =
          any ? SomePath() : ticked[static_cast<std::size_t>(Pick(0, static_cast<int>(ticked.size()) - 1))];
      if (changed.insert(path).second) changes.push_back({path, NewContent(), Pick(0, 12), Chance(2)});
    }
    steps_ += std::string("; ") + name + (backed ? " with" : " without") + " a backup";
    for (const std::string& path : ticked) steps_ += " " + path;

    const Found lay = Look();
    // Seen by the process that dies, too: how often each file was changed, and when.
    auto* made = static_cast<std::atomic<int>*>(
        mmap(nullptr, 4096, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
    auto make = [&](int now, bool late, int removed) {
      for (std::size_t i = 0; i < changes.size(); ++i)
        if (changes[i].before == now && changes[i].late == late && made[i] == 0) {
          Put(changes[i].path, changes[i].id);
          made[i] = removed + 1;
        }
    };
    Run(kill, static_cast<int>(ticked.size()) * 8 + 12, [&](test::WatchedFiles& files) -> std::string {
      removal::Remover remover(settings::Module::Brasmir);
      if (backed) {
        backup::AbaleZip zip;
        Prepare(zip);
        for (const std::string& path : ticked) zip.AddFileToProcess(path);
        int step = 0;
        files.onRead = [&](const std::string&, std::uint64_t) {
          std::scoped_lock hold(lock_);
          make(step++, false, 0);
          return platform::Status::Done;
        };
        long result = zip.Zip(&remover.BeginBackup().promise);
        files.onRead = nullptr;
        if (result != 0 && result != backup::AbaleZip::kLeftOut)
          return "the backup failed: " + zip.ErrorDescription(result);
      }
      for (std::size_t i = 0; i < ticked.size(); ++i) {
        make(static_cast<int>(i), true, 1);
        remover.Remove(ticked[i], method);
      }
      return {};
    });
    std::set<std::string> wanted(ticked.begin(), ticked.end());
    for (const std::string& path : ticked) {
      if (backed || method == CleaningMethod::RecycleBin) MayMove(path);
      lies_.erase(path);
    }
    for (std::size_t i = 0; i < changes.size(); ++i) {
      const std::string& path = changes[i].path;
      if (made[i] == 0) continue;
      steps_ += (made[i] == 1 ? ", meanwhile " : ", later ") + std::to_string(changes[i].id) + " at " + path;
      if (auto old = lay.at.find(computer_.Native(path)); old != lay.at.end()) somewhere_.erase(old->second);
      lies_.erase(path);
      if (!wanted.contains(path) || (backed && made[i] == 2))
        lies_[path] = changes[i].id;
      else if (backed || method == CleaningMethod::RecycleBin)
        somewhere_.insert(changes[i].id);
    }
    munmap(made, 4096);
    for (const std::string& path : ticked) ++(computer_.Exists(path) ? figures_.kept : figures_.removed);
  }

  void Restore(bool kill) { TakeOut(kill, ""); }
  void Extract(bool kill) { TakeOut(kill, kOut); }
  // All of the newest archive, to where it came from or into a folder.
  void TakeOut(bool kill, const std::string& folder) {
    if (!computer_.Exists("C:\\Backup\\" + std::to_string(archive_) + ".zip")) return;
    steps_ += folder.empty() ? "; restore" : "; extract";
    Found before = Look();
    Ids held;
    Found newest;
    LookInto(computer_.Native("C:\\Backup\\" + std::to_string(archive_) + ".zip"), newest);
    if (folder.empty())
      for (const auto& [path, id] : std::map(lies_))
        if (newest.names.contains(Folded(path))) MayMove(path);
    bool ended =
        Run(kill, static_cast<int>(newest.names.size()) * 12 + 4, [&](test::WatchedFiles&) -> std::string {
          backup::AbaleZip zip;
          Prepare(zip);
          zip.KeepPaths = folder.empty();
          zip.TargetFolder = folder;
          return zip.Unzip() == 0 ? "" : "not all came out: " + zip.ErrorDescription(526);
        });
    if (!ended) return;
    Found after = Look();
    for (int id : newest.archived)
      if (!after.files.contains(id))
        throw Failure{"content " + std::to_string(id) + " didn't come out of its archive"};
    // Another archive's leftovers are that one's to clear.
    auto leaf = [](const std::string& path) { return path.substr(path.rfind('\\') + 1); };
    std::set<std::string> targets;
    std::map<std::string, int> occurs;  // names that do so twice go elsewhere
    for (const std::string& name : newest.exactNames) {
      targets.insert(folder.empty() ? name : leaf(name));
      ++occurs[Folded(leaf(name))];
    }
    for (const std::string& leftover : after.leftovers) {
      std::string target = leftover.substr(0, leftover.size() - std::string(".XXXXXX.brasmir").size());
      bool cleared = folder.empty() ? targets.contains(target)
                                    : leftover.starts_with(folder) && targets.contains(leaf(target)) &&
                                          occurs[Folded(leaf(target))] == 1;
      if (cleared) throw Failure{"this was left: " + leftover};
    }
    figures_.restored += static_cast<long>(newest.archived.size());
  }

  test::TestComputer& computer_;
  std::mt19937_64 random_;
  Figures& figures_;
  std::string steps_;
  std::vector<std::string> contents_;  // by id
  std::map<std::string, int> lies_;    // what must lie where
  Ids somewhere_;                      // what must be anywhere
  int archive_ = 0;
  // Files are read and written by several threads; none is killed in the middle of a change.
  std::mutex lock_;
};

}  // namespace

int main(int count, char** arguments) {
  long seconds = 0, rounds = 0;
  std::uint64_t seed = 1;
  for (int i = 1; i + 1 < count; i += 2) {
    std::string option = arguments[i];
    long value = std::atol(arguments[i + 1]);
    if (option == "--seconds") seconds = value;
    if (option == "--rounds") rounds = value;
    if (option == "--seed") seed = static_cast<std::uint64_t>(value);
  }
  if (seconds == 0 && rounds == 0) rounds = 1;
  test::TestComputer computer;
  test::SessionObjects session;
  gRegistry->ErasePassesBrsm = "1";
  Figures figures;
  auto started = std::chrono::steady_clock::now();
  while (rounds > 0 ? figures.rounds < rounds
                    : std::chrono::steady_clock::now() - started < std::chrono::seconds(seconds)) {
    Round round(computer, seed, figures);
    try {
      round.Play();
    } catch (const Failure& failure) {
      std::printf("seed %llu: %s\n%s\n", static_cast<unsigned long long>(seed), failure.why.c_str(),
                  round.Steps().c_str());
      return 1;
    }
    ++figures.rounds;
    ++seed;
  }
  std::printf("%ld rounds, %ld files, %ld kills, %ld removed, %ld kept, %ld restored: nothing lost\n",
              figures.rounds, figures.files, figures.kills, figures.removed, figures.kept, figures.restored);
}
