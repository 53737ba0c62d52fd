#include <array>
#include <cstdio>
#include <sys/wait.h>

#include "backup/ArchiveTools.h"

namespace test {

std::string Quoted(const std::string& text) {
  std::string quoted = "'";
  for (char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

std::string RunProgram(const std::string& command) {
  std::string output;
  FILE* pipe = popen(("LC_ALL=C.UTF-8; export LC_ALL; " + command + " 2>&1").c_str(), "r");
  if (!pipe) return "can't run";
  std::array<char, 4096> buffer;
  while (std::size_t got = fread(buffer.data(), 1, buffer.size(), pipe)) output.append(buffer.data(), got);
  int status = pclose(pipe);
  return output + "\n" + std::to_string(WIFEXITED(status) ? WEXITSTATUS(status) : -1);
}

}  // namespace test
