// What the scenarios of the whole program share: a sample computer, and what is looked at on its disk.
#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <string>

#include "play/Player.h"

namespace e2e {

// Tells a fault and goes on; the scenario fails at its end.
void Check(bool holds, const std::string& what);
int Failures();

// A sample computer in a temporary folder, gone at the end.
struct Sample {
  std::filesystem::path root, data;
  // `files` more in Temp than the sample has by itself.
  explicit Sample(int files = 0);
  ~Sample();
  Sample(const Sample&) = delete;
  Sample& operator=(const Sample&) = delete;

  std::filesystem::path Drive() const { return data / "drives/c:"; }
  std::filesystem::path Temp() const { return Drive() / "Users/User/AppData/Local/Temp"; }
  std::filesystem::path Profile() const { return Drive() / "Users/User"; }
  std::filesystem::path Cookies() const { return Profile() / "AppData/Local/Microsoft/Windows/INetCookies"; }
  std::filesystem::path Install() const { return Drive() / "Program Files/Tidorra"; }

  // The native place of a file on drive C:.
  std::filesystem::path Native(const std::string& path) const;
  // How many files lie in the recycle bin.
  int InBin() const;
  // Unpacks the one backup by programs that know archives and find it sound; where it lies then.
  std::filesystem::path UnpackedBackup() const;

  // Starts the program on this computer and plays on it; its exit code.
  int Run(std::function<void(play::Player&)> play);
  // The same in a process of its own, for another start before or after; its faults count here.
  void RunAside(std::function<void(play::Player&)> play);
  // A start without a player, whose main window may not be shown: `starting` is called before the start,
  // `started` after it.
  int Start(std::function<void()> starting, std::function<void()> started);
  // A value of the user's settings, as the store holds it while the program doesn't run.
  std::string Stored(const std::string& key, const std::string& name) const;
};

std::string ReadAll(const std::filesystem::path& path);

// What lies below a folder: relative path and size; links count as -1 and aren't entered.
std::map<std::string, long> Listing(const std::filesystem::path& folder);

// What no cleaning may touch, whatever the method; `system` is System32 as it was.
void CheckTheRestStands(const Sample& sample, const std::map<std::string, long>& system);

}  // namespace e2e
