// A computer with a ZIP control that stores under full paths, as the main window's does.
#pragma once

#include <gtest/gtest.h>
#include <map>
#include <string>
#include <vector>

#include "backup/AbaleZip.h"
#include "backup/ArchiveTools.h"
#include "support/TestComputer.h"

namespace test {

class ZipTest : public testing::Test {
 protected:
  ZipTest() {
    zip.ZipFilename = kArchive;
    zip.KeepPaths = true;
    zip.AbaZip_PrepareEntry = [](std::string& entry, const std::string&, const std::string& path) {
      entry = path;
    };
    zip.ConfirmForeign = [this](double count, const std::vector<std::string>&) {
      foreign = count;
      return true;
    };
    zip.AbaZip_ListingFile = [this](const std::string& path, const std::string&, double size, double, long,
                                    long, auto, auto modified, auto, auto) {
      listed[path] = static_cast<std::int64_t>(size);
      dates[path] = modified.value_or(0);
    };
  }

  long Store(const std::vector<std::string>& paths) {
    zip.FilesToProcess = "";
    for (const std::string& path : paths) zip.AddFileToProcess(path);
    long result = zip.Zip();
    zip.FilesToProcess = "";
    return result;
  }
  long Store(const std::vector<std::string>& paths, backup::BackupPromise& promise) {
    for (const std::string& path : paths) zip.AddFileToProcess(path);
    long result = zip.Zip(&promise);
    zip.FilesToProcess = "";
    return result;
  }
  bool Holds(const backup::BackupPromise& promise, const std::string& path) {
    return promise.Holds(path, computer.Files().Look(path));
  }
  // All of the archive, or the entries given.
  long Restore(const std::vector<std::string>& paths = {}) {
    zip.KeepPaths = true;
    zip.TargetFolder.clear();
    zip.FilesToProcess = "";
    for (const std::string& path : paths) zip.AddFileToProcess(path);
    return zip.Unzip();
  }
  long Extract(const std::string& folder) {
    zip.KeepPaths = false;
    zip.TargetFolder = folder;
    zip.FilesToProcess = "";
    return zip.Unzip();
  }
  // The paths in the archive, sorted; "failed" and the code if it can't be listed.
  std::vector<std::string> List() {
    listed.clear();
    long result = zip.ListContents();
    if (result != 0) return {"failed " + std::to_string(result)};
    std::vector<std::string> paths;
    for (const auto& [path, size] : listed) paths.push_back(path);
    return paths;
  }
  std::string Why() { return zip.ErrorDescription(526); }
  // What other programs say of the archive; there are none on the tests' Windows computer.
  void ExpectSound([[maybe_unused]] const std::string& entry = {}) {
#ifndef _WIN32
    std::string archive = Quoted(computer.Native(kArchive));
    EXPECT_TRUE(RunProgram("unzip -tqq " + archive + (entry.empty() ? "" : " " + entry)).ends_with("\n0"));
    if (!entry.empty()) return;
    EXPECT_TRUE(RunProgram("7z t -bso0 -bsp0 " + archive).ends_with("\n0"));
    const char* python =
        "python3 -c 'import sys, zipfile; sys.exit(zipfile.ZipFile(sys.argv[1]).testzip() and 1)' ";
    EXPECT_TRUE(RunProgram(python + archive).ends_with("\n0"));
#endif
  }
  // Files of the archive's folder, to see that nothing is left beside it.
  std::vector<std::string> BackupFolder() {
    return computer.List("C:\\Backup");
  }
  int InBin() {
    return computer.InBin();
  }

  static constexpr char kArchive[] = "C:\\Backup\\Backup Brasmir 11.17.2026 22.46.09.zip";
  TestComputer computer;
  backup::AbaleZip zip;
  double foreign = 0;  // how many entries the last confirmation was about
  std::map<std::string, std::int64_t> listed;
  std::map<std::string, platform::Moment> dates;
};

// Text that packs, but not to nothing.
inline std::string Words(std::size_t size, unsigned seed = 1) {
  std::string text;
  text.reserve(size + 16);
  while (text.size() < size) {
    seed = seed * 1664525u + 1013904223u;
    text += std::to_string(seed >> 20);
    text += ' ';
  }
  text.resize(size);
  return text;
}

}  // namespace test
