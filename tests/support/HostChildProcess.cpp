#include <cerrno>
#include <csignal>
#include <exception>
#include <grp.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

#include "support/ChildProcess.h"

namespace test {

ChildProcess::ChildProcess(const std::function<std::string()>& body) {
  int ends[2];
  if (pipe(ends) != 0) throw std::runtime_error("no pipe");
  id_ = fork();
  if (id_ < 0) throw std::runtime_error("no process");
  if (id_ == 0) {
    close(ends[0]);
    std::string result;
    try {
      result = body();
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
  pipe_ = ends[0];
}

ChildProcess::~ChildProcess() {
  if (id_ > 0) {
    Kill();
    waitpid(id_, nullptr, 0);
  }
  if (pipe_ >= 0) close(pipe_);
}

void ChildProcess::Kill() {
  kill(id_, SIGKILL);
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
