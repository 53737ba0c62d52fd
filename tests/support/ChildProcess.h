// Another process, for what two processes do to each other.
#pragma once

#include <functional>
#include <string>
#include <sys/types.h>

namespace test {

// Runs `body` in a forked process. It must not use what was open before the fork (a registry, say), and
// reports nothing to the test; what it throws or returns is its result.
class ChildProcess {
 public:
  // An empty text tells that all was well.
  explicit ChildProcess(const std::function<std::string()>& body);
  // The body tells by the function that it is given how far it has come.
  using Told = std::function<void()>;
  explicit ChildProcess(const std::function<std::string(const Told& told)>& body);
  // Kills it where it still runs.
  ~ChildProcess();
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  pid_t Id() const { return id_; }
  // Waits for its end. The result, or a text about how it died.
  std::string Result();
  void Kill();
  // Waits until the body has told; false where it ends without.
  bool HasTold();

 private:
  pid_t id_ = -1;
  int pipe_ = -1, told_ = -1;
};

// Gives up the rights of the superuser for the rest of this process, so that permission bits bind it. Does
// nothing where there are none to give up.
void BecomeNobody();

}  // namespace test
