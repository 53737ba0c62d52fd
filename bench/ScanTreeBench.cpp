// Listing and measuring a million files.
#include "Bench.h"
#include "platform/LibDirectory.h"
#include "platform/LibFile.h"
#include "platform/Listings.h"

using namespace platform;

int main() {
  bench::Computer computer;
  std::string root = computer.Tree(), native = bench::Quoted(computer.Native(root));

  CountedList files;
  bench::Compare(
      "ScanTree", 1.2, [&] { bench::Run("find " + native + " -type f > /dev/null"); },
      [&] {
        files.Reset();
        LibDriveScan().ScanTree(root, files);
      });
  bench::Memory("ScanTree-memory", 160, files.MemoryUsed(), files.UpperBound());

  std::string sizes = "find " + native + " -type f -printf '%s\\n' > /dev/null";
  bench::Compare(
      "GetSize-of-each", 1.2, [&] { bench::Run(sizes); },
      [&] {
        std::string path;
        for (int i = 0; i < files.UpperBound(); ++i) {
          files.Get(i, path);
          LibFile().GetSize(path);
        }
      },
      3);
  bench::Compare(
      "GetSize-of-folder", 1.2, [&] { bench::Run(sizes); }, [&] { LibDirectory().GetSize(root); }, 3);
}
