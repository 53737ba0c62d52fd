// Threads that work on the content of archives. For the ZIP control alone.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace backup {

// Work on bytes that the job holds itself: it touches no control and no file, and raises nothing.
class Job {
 public:
  virtual ~Job() = default;
  virtual void Do() noexcept = 0;
  // How many bytes it keeps in memory, about.
  virtual std::size_t Weight() const = 0;

 private:
  friend class Workers;
  enum class State { Waiting, Taken, Done } state_ = State::Waiting;
};

// As many threads as the computer has cores. Jobs are done by any of them and come back in the order in which
// they were given. At its end those that haven't been begun are dropped.
class Workers {
 public:
  Workers();
  ~Workers();
  Workers(const Workers&) = delete;
  Workers& operator=(const Workers&) = delete;

  void Give(std::unique_ptr<Job> job);
  // The job that was given first of those that haven't come back, done. Waits for it and lets the stop
  // control in meanwhile. Null if none is left.
  std::unique_ptr<Job> Take();
  // The same, but null if it isn't done yet.
  std::unique_ptr<Job> TakeDone();
  // So much is under way that the next one should be taken before more is given.
  bool Full() const { return weight_ >= kMost || jobs_.size() >= 64 * threads_.size(); }
  bool Empty() const { return jobs_.empty(); }

 private:
  static constexpr std::size_t kMost = 48 * 1024 * 1024;
  void Work();
  std::unique_ptr<Job> Front();

  // Of the thread that gives and takes.
  std::deque<std::unique_ptr<Job>> jobs_;
  std::size_t weight_ = 0;
  std::deque<std::size_t> weights_;

  std::mutex mutex_;  // for what follows, and the jobs' states
  std::condition_variable come_, done_;
  std::deque<Job*> waiting_;
  bool end_ = false;
  std::vector<std::thread> threads_;
};

}  // namespace backup
