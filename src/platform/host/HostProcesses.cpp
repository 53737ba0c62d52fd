#include "platform/host/HostProcesses.h"

#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

extern char** environ;

namespace platform {

namespace {

std::string NameOf(std::string_view path) {
  return std::string(path.substr(path.rfind('/') + 1));
}
std::string FolderOf(std::string_view path) {
  std::size_t slash = path.rfind('/');
  return std::string(path.substr(0, slash == 0 ? 1 : slash));
}

std::string RealPath(const std::string& path) {
  char resolved[PATH_MAX];
  return !path.empty() && realpath(path.c_str(), resolved) ? resolved : std::string();
}

// The program behind a process; empty if it can't be learned.
std::string ProgramOf(const std::string& process) {
  char path[PATH_MAX];
  ssize_t length = readlink(("/proc/" + process + "/exe").c_str(), path, sizeof path);
  return length <= 0 || length == sizeof path ? std::string()
                                              : std::string(path, static_cast<std::size_t>(length));
}

// The environment for a program of the family, which finds its data by XDG_DATA_HOME.
std::vector<std::string> Environment(const std::string& dataFolder) {
  constexpr std::string_view kVariable = "XDG_DATA_HOME=";
  std::vector<std::string> variables;
  bool tells = NameOf(dataFolder) == "brasmir";
  for (char** variable = environ; variable && *variable; ++variable)
    if (!tells || !std::string_view(*variable).starts_with(kVariable)) variables.emplace_back(*variable);
  if (tells) variables.push_back(std::string(kVariable) + FolderOf(dataFolder));
  return variables;
}

struct flock WholeFile(short type) {
  struct flock lock {};
  lock.l_type = type;
  lock.l_whence = SEEK_SET;
  return lock;
}

// Somebody else than the owner of this open file holds a lock on it.
bool IsHeld(int file) {
  struct flock lock = WholeFile(F_WRLCK);
  return fcntl(file, F_OFD_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
}

}  // namespace

HostProcesses::~HostProcesses() {
  for (const auto& [name, file] : claims_)
    if (file >= 0) close(file);
}

std::string HostProcesses::Executable(std::string_view name) const {
  std::string folded = locale_.Fold(name);
  if (folded.ends_with(".exe")) folded.resize(folded.size() - 4);
  for (const char* program : {"Chronel", "Kelvish"})
    if (!programs_.empty() && folded == locale_.Fold(program)) return programs_ + "/" + program;
  return {};
}

bool HostProcesses::Start(std::string_view program) {
  std::string native = Executable(program.substr(program.rfind('\\') + 1));
  if (native.empty() || access(native.c_str(), X_OK) != 0) return false;

  std::vector<std::string> variables = Environment(dataFolder_);
  std::vector<char*> environment;
  for (std::string& variable : variables) environment.push_back(variable.data());
  environment.push_back(nullptr);
  char* arguments[] = {native.data(), nullptr};

  // Closed by a good exec; carries the error of a failed one.
  int report[2];
  if (pipe2(report, O_CLOEXEC) != 0) return false;
  pid_t child = fork();
  if (child == 0) {
    // A second fork, so that the program is nobody's child here and leaves no zombie behind.
    setsid();
    pid_t grandchild = fork();
    if (grandchild > 0) _exit(0);
    int error = errno;
    if (grandchild == 0) {
      sigset_t none;
      sigemptyset(&none);
      sigprocmask(SIG_SETMASK, &none, nullptr);
      for (int number : {SIGPIPE, SIGTERM, SIGINT, SIGHUP, SIGCHLD}) signal(number, SIG_DFL);
      int nothing = open("/dev/null", O_RDWR);
      if (nothing >= 0) {
        dup2(nothing, 0);
        dup2(nothing, 1);
        dup2(nothing, 2);
        if (nothing > 2) close(nothing);
      }
      if (chdir(dataFolder_.c_str()) == 0) execve(native.c_str(), arguments, environment.data());
      error = errno;
    }
    [[maybe_unused]] ssize_t told = write(report[1], &error, sizeof error);
    _exit(127);
  }
  close(report[1]);
  bool started = false;
  if (child > 0) {
    int status;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    int error;
    ssize_t told;
    while ((told = read(report[0], &error, sizeof error)) < 0 && errno == EINTR) {
    }
    started = told == 0;
  }
  close(report[0]);
  return started;
}

int HostProcesses::CloseByName(std::string_view name, std::string_view /*folder*/) {
  const std::string wanted = RealPath(Executable(name)), place = RealPath(dataFolder_);
  if (wanted.empty() || place.empty()) return 0;
  // Another computer that is played on this machine has its own ones.
  auto isMeant = [&](const std::string& process) {
    return ProgramOf(process) == wanted && RealPath("/proc/" + process + "/cwd") == place;
  };

  int told = 0;
  DIR* processes = opendir("/proc");
  if (!processes) return 0;
  while (const dirent* entry = readdir(processes)) {
    std::string process = entry->d_name;
    if (process.find_first_not_of("0123456789") != std::string::npos) continue;
    auto id = static_cast<pid_t>(std::strtol(process.c_str(), nullptr, 10));
    struct stat owner;
    if (id == getpid() || stat(("/proc/" + process).c_str(), &owner) != 0 || owner.st_uid != geteuid())
      continue;
    if (!isMeant(process)) continue;
    // A handle on the process, looked at again: from here on its number can't come to stand for another one.
    int handle = static_cast<int>(syscall(SYS_pidfd_open, id, 0));
    if (handle >= 0) {
      if (isMeant(process) && syscall(SYS_pidfd_send_signal, handle, SIGTERM, nullptr, 0) == 0) ++told;
      close(handle);
    } else if (errno == ENOSYS || errno == EPERM) {
      if (kill(id, SIGTERM) == 0) ++told;
    }
  }
  closedir(processes);
  return told;
}

std::string HostProcesses::LockFile(std::string_view name) const {
  if (name.empty() || name.find('/') != std::string_view::npos || name.find('\0') != std::string_view::npos)
    return {};
  return dataFolder_ + "/" + std::string(name) + ".lock";
}

bool HostProcesses::ClaimInstance(std::string_view name) {
  if (claims_.find(name) != claims_.end()) return true;
  std::string path = LockFile(name);
  if (path.empty()) return false;

  // Locks of the open file description: they aren't dropped when another file on the same is closed, as those
  // of the process would be.
  bool writable = true;
  int file = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
  if (file < 0) {
    writable = false;
    file = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
    if (file < 0) return true;
  }
  struct flock lock = WholeFile(writable ? F_WRLCK : F_RDLCK);
  bool held = !writable && IsHeld(file);
  if (!held && fcntl(file, F_OFD_SETLK, &lock) != 0) held = errno == EAGAIN || errno == EACCES;
  if (held) {
    close(file);
    return false;
  }
  claims_.emplace(name, file);
  return true;
}

void HostProcesses::ReleaseInstance(std::string_view name) {
  auto claim = claims_.find(name);
  if (claim == claims_.end()) return;
  close(claim->second);
  claims_.erase(claim);
}

bool HostProcesses::InstanceRuns(std::string_view name) {
  if (claims_.find(name) != claims_.end()) return true;
  std::string path = LockFile(name);
  if (path.empty()) return false;
  int file = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
  if (file < 0) return false;
  bool held = IsHeld(file);
  close(file);
  return held;
}

}  // namespace platform
