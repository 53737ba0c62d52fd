#include "support/Session.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace test {

std::string PackagedFile(const std::string& name) {
  std::string path = std::string(BRASMIR_PACKAGING) + "/" + name;
  std::ifstream in(path, std::ios::binary);
  if (!in) throw std::runtime_error("no such file: " + path);
  return {std::istreambuf_iterator<char>(in), {}};
}

}  // namespace test
