// Files of settings that anybody may have written: refused, or read and written like any other.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "fuzz/Fuzz.h"
#include "platform/RuntimeError.h"
#include "platform/host/HostRegistry.h"

namespace fuzz {

namespace {

using namespace platform;

// A folder that lives as long as the process.
struct Folder {
  Folder() {
    if (!mkdtemp(path.data())) Fail("no folder");
  }
  ~Folder() { std::filesystem::remove_all(path); }
  std::string path = (std::filesystem::temp_directory_path() / "fuzz-store-XXXXXX").string();
  std::string File() const { return path + "/registry.sqlite"; }
};

std::string GoodStore(const std::string& key, int values) {
  Folder folder;
  {
    HostRegistry store(folder.File(), false);
    store.Begin();
    for (int i = 0; i < values; ++i)
      store.Write(kCurrentUser, key, std::to_string(i), {ValueType::String, std::string(20, 'x'), 0});
    if (store.End() != 0) Fail("no seed");
  }
  std::ifstream in(folder.File(), std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

}  // namespace

void Try(std::span<const std::uint8_t> bytes) {
  static Folder folder;
  for (const auto& entry : std::filesystem::directory_iterator(folder.path))
    std::filesystem::remove(entry.path());
  std::ofstream(folder.File(), std::ios::binary)
      .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));

  HostRegistry store(folder.File(), false);
  const bool readable = IsReadable(store.State().health);
  try {
    std::vector<std::string> names;
    store.Names(kCurrentUser, "Software\\Orvane", names);
    store.KeyExists(kLocalMachine, "Software");
  } catch (const RuntimeError&) {
    if (readable) Fail("a store that is called good can't be read");
    return;
  }
  const RegistryValue value{ValueType::String, "written", 0};
  if (store.Write(kCurrentUser, "Software\\New", "Name", value) != 0) return;
  HostRegistry again(folder.File(), false);
  if (again.Read(kCurrentUser, "Software\\New", "Name").text != value.text)
    Fail("what was written isn't read");
}

std::vector<std::string> Seeds() {
  return {GoodStore("Software\\Orvane", 3), GoodStore("Software\\Orvane\\Tidorra\\Brasmir\\Lumaro", 300), "",
          "SQLite format 3"};
}

}  // namespace fuzz
