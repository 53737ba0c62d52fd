#include <cerrno>
#include <csignal>
#include <exception>
#include <grp.h>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/ChildProcess.h"

namespace test {

ChildProcess::ChildProcess(const std::function<std::string()>& body)
    : ChildProcess([&body](const Told&) { return body(); }) {}

ChildProcess::ChildProcess(const std::function<std::string(const Told& told)>& body) {
  int ends[2], told[2];
  if (pipe(ends) != 0 || pipe(told) != 0) throw std::runtime_error("no pipe");
  id_ = fork();
  if (id_ < 0) throw std::runtime_error("no process");
  if (id_ == 0) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    close(ends[0]);
    close(told[0]);
    std::string result;
    try {
      result = body([&told] {
        if (write(told[1], "x", 1) != 1) throw std::runtime_error("told nobody");
      });
    } catch (const std::exception& error) {
      result = std::string("raised ") + error.what();
    }
    std::size_t done = 0;
    while (done < result.size()) {
      ssize_t wrote = write(ends[1], result.data() + done, result.size() - done);
      if (wrote <= 0) break;
      done += static_cast<std::size_t>(wrote);
    }
    _exit(0);
  }
  close(ends[1]);
  close(told[1]);
  pipe_ = ends[0];
  told_ = told[0];
}

ChildProcess::~ChildProcess() {
  if (id_ > 0) {
    Kill();
    waitpid(id_, nullptr, 0);
  }
  close(pipe_);
  close(told_);
}

void ChildProcess::Kill() {
  kill(id_, SIGKILL);
}

bool ChildProcess::HasTold() {
  char word;
  return read(told_, &word, 1) == 1;
}

std::string ChildProcess::Result() {
  std::string result;
  char buffer[4096];
  ssize_t got;
  while ((got = read(pipe_, buffer, sizeof buffer)) > 0 || (got < 0 && errno == EINTR))
    if (got > 0) result.append(buffer, static_cast<std::size_t>(got));
  int status = 0;
  while (waitpid(id_, &status, 0) < 0 && errno == EINTR) {
  }
  id_ = -1;
  if (WIFSIGNALED(status)) return "killed by signal " + std::to_string(WTERMSIG(status));
  if (WEXITSTATUS(status) != 0) return result + " (exit status " + std::to_string(WEXITSTATUS(status)) + ")";
  return result;
}

void BecomeNobody() {
  constexpr unsigned kNobody = 65534;
  if (geteuid() != 0) return;
  if (setgroups(0, nullptr) != 0 || setgid(kNobody) != 0 || setuid(kNobody) != 0)
    throw std::runtime_error("the superuser's rights can't be given up");
}

}  // namespace test
