// Storing two gigabytes in twenty thousand files, and restoring them, beside the usual ZIP programs.
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>

#include "Bench.h"
#include "backup/AbaleZip.h"
#include "platform/Listings.h"

namespace fs = std::filesystem;

namespace {

constexpr int kFiles = 20'000;
constexpr char kSource[] = "C:\\BackupSource";

// What a disk's rubbish is made of: text that packs to a third, pictures that don't pack at all, and blank
// pages.
void MakeSource(const std::string& root) {
  // A run that was stopped while it restored has left the source aside.
  if (std::string aside = root + "-aside"; fs::exists(aside + "/whole")) {
    fs::remove_all(root);
    fs::rename(aside, root);
  }
  if (fs::exists(root + "/whole")) return;
  std::fprintf(stderr, "making two gigabytes in %s\n", root.c_str());
  std::mt19937_64 random(11);
  std::string words, noise(1 << 20, '\0');
  const char* list[] = {"the ",      "cache ", "entry ", "of ", "temporary ",
                        "internet ", "\r\n",   "file ",  "0x",  "index "};
  while (words.size() < 4u << 20) {
    words += list[random() % 10];
    if (random() % 3 == 0) words += std::to_string(random() % 100'000);
  }
  for (char& c : noise) c = static_cast<char>(random());
  // Sizes from nothing to 214 KB, evenly spread.
  for (int i = 0; i < kFiles; ++i) {
    std::string folder = root + "/folder" + std::to_string(i / 200);
    if (i % 200 == 0) fs::create_directories(folder);
    std::size_t size = static_cast<std::size_t>(i * 7919LL % kFiles) * 215'000 / kFiles;
    std::string content;
    switch (i % 8) {
      case 0:
      case 1:
        content = noise.substr(random() % (noise.size() - size), size);
        break;
      case 2:
        content.assign(size, '\0');
        break;
      default:
        content = words.substr(random() % (words.size() - size), size);
    }
    std::string path = folder + "/garbage file " + std::to_string(i) + ".tmp";
    FILE* file = std::fopen(path.c_str(), "w");
    if (!file || std::fwrite(content.data(), 1, size, file) != size || std::fclose(file) != 0) std::exit(1);
  }
  std::fclose(std::fopen((root + "/whole").c_str(), "w"));
}

// Both archives are there; the source makes room for what is put back.
void CompareRestores(backup::AbaleZip& zip, const std::string& source, const std::string& folder) {
  const std::string out = folder + "/out";
  std::string aside = source + "-aside";
  fs::rename(source, aside);
  bench::Compare(
      "Restore", 1.0,
      [&] { bench::Run("unzip -q " + bench::Quoted(folder + "/ours.zip") + " -d " + bench::Quoted(out)); },
      [&] {
        zip.FilesToProcess = "";
        if (zip.Unzip() != 0) {
          std::fprintf(stderr, "%s\n", zip.ErrorDescription(526).c_str());
          std::exit(1);
        }
      },
      2,
      [&] {
        fs::remove_all(out);
        fs::remove_all(source);
        bench::Run("sync");
      });
  fs::remove_all(out);
  fs::remove_all(source);
  fs::rename(aside, source);
}

}  // namespace

int main() {
  bench::Computer computer;
  std::string source = computer.Native(kSource), folder = computer.Native("C:\\Archives");
  MakeSource(source);
  fs::create_directories(folder);
  std::string theirs = folder + "/theirs.zip";

  backup::AbaleZip zip;
  zip.ZipFilename = "C:\\Archives\\ours.zip";
  zip.KeepPaths = true;
  zip.AbaZip_PrepareEntry = [](std::string& entry, const std::string&, const std::string& path) {
    entry = path;
  };
  auto removeArchives = [&] {
    fs::remove(theirs);
    fs::remove(folder + "/ours.zip");
    bench::Run("sync");
  };
  auto fill = [&] {
    platform::CountedList files, folders;
    platform::ops::ListTree(kSource, files, folders);
    zip.FilesToProcess = "";
    for (int i = 0; i < files.UpperBound(); ++i) zip.AddFileToProcess(files[i]);
  };
  std::string theirZip = "zip -q -r " + bench::Quoted(theirs) + " " + bench::Quoted(source);
  bench::Compare(
      "Backup", 0.6, [&] { bench::Run(theirZip); },
      [&] {
        fill();
        if (zip.Zip() != 0) std::exit(1);
      },
      2, removeArchives);
  // What a run relies on: read back and checked.
  bench::Compare(
      "BackupAndCheck", 1.0,
      [&] {
        bench::Run(theirZip);
        bench::Run("unzip -tqq " + bench::Quoted(theirs));
      },
      [&] {
        fill();
        backup::BackupPromise promise;
        if (zip.Zip(&promise) == 0 && promise.Count() == kFiles + 1) return;
        std::fprintf(stderr, "%d files are promised, not %d\n", promise.Count(), kFiles + 1);
        std::exit(1);
      },
      2, removeArchives);
  CompareRestores(zip, source, folder);
}
