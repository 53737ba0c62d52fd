#include "backup/Workers.h"

#include <algorithm>
#include <chrono>

#include "platform/Desktop.h"

namespace backup {

namespace {
// The user sees a frame at least so often while nothing is ready.
constexpr std::chrono::milliseconds kPatience(10);
}  // namespace

Workers::Workers() {
  unsigned cores = std::clamp(std::thread::hardware_concurrency(), 1u, 16u);
  for (unsigned i = 0; i < cores; ++i) threads_.emplace_back([this] { Work(); });
}

Workers::~Workers() {
  {
    std::lock_guard lock(mutex_);
    end_ = true;
    waiting_.clear();
  }
  come_.notify_all();
  for (std::thread& thread : threads_) thread.join();
}

void Workers::Work() {
  std::unique_lock lock(mutex_);
  while (true) {
    come_.wait(lock, [this] { return end_ || !waiting_.empty(); });
    if (end_) return;
    Job* job = waiting_.front();
    waiting_.pop_front();
    job->state_ = Job::State::Taken;
    lock.unlock();
    job->Do();
    lock.lock();
    job->state_ = Job::State::Done;
    done_.notify_one();
  }
}

void Workers::Give(std::unique_ptr<Job> job) {
  weights_.push_back(job->Weight());
  weight_ += weights_.back();
  Job* given = job.get();
  jobs_.push_back(std::move(job));
  {
    std::lock_guard lock(mutex_);
    waiting_.push_back(given);
  }
  come_.notify_one();
}

std::unique_ptr<Job> Workers::Front() {
  std::unique_ptr<Job> job = std::move(jobs_.front());
  jobs_.pop_front();
  weight_ -= weights_.front();
  weights_.pop_front();
  return job;
}

std::unique_ptr<Job> Workers::Take() {
  if (jobs_.empty()) return nullptr;
  std::unique_lock lock(mutex_);
  auto ready = [this] { return jobs_.front()->state_ == Job::State::Done; };
  while (!done_.wait_for(lock, kPatience, ready)) {
    lock.unlock();
    platform::CurrentDesktop().Breathe();
    lock.lock();
  }
  lock.unlock();
  return Front();
}

std::unique_ptr<Job> Workers::TakeDone() {
  if (jobs_.empty()) return nullptr;
  {
    std::lock_guard lock(mutex_);
    if (jobs_.front()->state_ != Job::State::Done) return nullptr;
  }
  return Front();
}

}  // namespace backup
