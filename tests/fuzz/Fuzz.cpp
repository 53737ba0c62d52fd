#include "fuzz/Fuzz.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string_view>

namespace fuzz {

void Fail(const std::string& text) {
  std::fprintf(stderr, "%s\n", text.c_str());
  std::abort();
}

}  // namespace fuzz

extern "C" int LLVMFuzzerInitialize(int* count, char*** arguments) {
  constexpr std::string_view option = "--write-seeds=";
  for (int i = 1; i < *count; ++i) {
    std::string_view argument = (*arguments)[i];
    if (!argument.starts_with(option)) continue;
    std::string folder(argument.substr(option.size()));
    int number = 0;
    for (const std::string& seed : fuzz::Seeds())
      std::ofstream(folder + "/seed" + std::to_string(number++), std::ios::binary) << seed;
    std::exit(0);
  }
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Try({data, size});
  return 0;
}
