// The program itself, as a process: pipes, signals, disks that are full.
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "CommandFixture.h"

namespace test {
namespace {

namespace fs = std::filesystem;

class CommandProcessTest : public CommandTest {
 protected:
  CommandProcessTest() {
    // The programs find what they need in share/ beside them.
    fs::create_directory(computer.Root() + "/bin");
    fs::create_directory_symlink(BRASMIR_ROOT "/packaging", computer.Root() + "/bin/share");
    fs::copy_file(PROGRAM_tidorra, program);
  }

  std::string Environment() const { return "XDG_DATA_HOME='" + computer.Root() + "' "; }
  // A line of the shell, in which $T is the program; its exit code. Both outputs go to files.
  int Shell(const std::string& line) {
    const std::string command = "T='" + program + "'; export " + Environment() + "; { " + line + "; } > '" +
                                Out() + "' 2> '" + Err() + "' < /dev/null";
    int status = std::system(("/bin/bash -c \"" + Escaped(command) + "\"").c_str());
    computer.Machine().Registry().State();
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
  std::string Out() const { return computer.Root() + "/out"; }
  std::string Err() const { return computer.Root() + "/err"; }
  static std::string Text(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  void MakeGarbage(int count) {
    for (int i = 0; i < count; ++i) computer.WriteFile("C:\\T\\" + std::to_string(i) + ".tmp", "content");
  }

  const std::string program = computer.Root() + "/bin/tidorra";

 private:
  static std::string Escaped(const std::string& text) {
    std::string escaped;
    for (char c : text) {
      if (c == '"' || c == '\\' || c == '$' || c == '`') escaped += '\\';
      escaped += c;
    }
    return escaped;
  }
};

TEST_F(CommandProcessTest, FindsItsWayThroughPipesAndFullDisks) {
  MakeGarbage(3);
  computer.WriteFile("C:\\T\\\xFF\n'odd'.tmp");
  EXPECT_EQ(Shell("$T scan --null | xargs -0 -n 1 printf '%s|'"), 0);
  EXPECT_NE(Text(Out()).find("\xFF\n'odd'.tmp|"), std::string::npos);
  EXPECT_EQ(Shell("$T scan > /dev/full"), command::kSomethingStayed) << "nobody has got the list";
  EXPECT_EQ(Shell("$T clean"), command::kUsedWrongly) << "there is no terminal";
  // A reader that leaves early ends nothing.
  EXPECT_EQ(Shell("$T clean --method delete --yes | head -c 1; exit ${PIPESTATUS[0]}"), command::kAllDone);
  EXPECT_EQ(computer.List("C:\\T"), Strings());
  MakeGarbage(3);
  EXPECT_EQ(Shell("$T scan --null | $T clean --from - --backup --method delete --yes --quiet"), 0)
      << Text(Err());
  EXPECT_EQ(computer.List("C:\\T"), Strings());
  EXPECT_EQ(Shell("$T backup restore --yes && $T scan"), 0);
  EXPECT_EQ(computer.List("C:\\T").size(), 3u);
}

// As the stop button does (erasing gives it time): the file at hand is finished, the figures are written, the
// archive is whole.
TEST_F(CommandProcessTest, AnInterruptedCleaningStopsAndLosesNothing) {
  constexpr int kFiles = 300;
  MakeGarbage(kFiles);
  const std::string line =
      "$T clean --backup --method erase --yes --json & p=$!; "
      "until [ $(ls '" +
      computer.Native("C:\\T") +
      "' | wc -l) -lt 300 ]; do :; done; "
      "kill -INT $p; wait $p";
  // What runs behind the shell would not be told of Ctrl+C otherwise.
  EXPECT_EQ(Shell("set -m; " + line), command::kInterrupted) << Text(Err());
  const auto left = static_cast<int>(computer.List("C:\\T").size());
  EXPECT_LT(left, kFiles);
  EXPECT_EQ(Stored(core::keys::kCleaningStatus, "Total files deleted"), std::to_string(kFiles - left));
  const std::string archive = computer.List(TestComputer::InstallDirectory() + "Backup").at(0);
  EXPECT_EQ(
      Shell("unzip -tqq '" + computer.Native(TestComputer::InstallDirectory() + "Backup\\" + archive) + "'"),
      0);
  EXPECT_EQ(Shell("$T backup restore --yes"), 0) << Text(Err());
  EXPECT_EQ(computer.List("C:\\T").size(), static_cast<std::size_t>(kFiles));
}

TEST_F(CommandProcessTest, OfTwoAtOnceOneRuns) {
  MakeGarbage(300);
  // The second begins while the first is at its files.
  EXPECT_EQ(Shell("$T clean --backup --method erase --yes --quiet & p=$!; "
                  "until [ $(ls '" +
                  computer.Native("C:\\T") +
                  "' | wc -l) -lt 300 ]; do :; done; "
                  "kill -STOP $p; $T clean --yes; second=$?; kill -CONT $p; wait $p && exit $second"),
            command::kNothingDone);
  EXPECT_EQ(computer.List("C:\\T"), Strings());
  EXPECT_EQ(Stored(core::keys::kCleaningStatus, "Total files deleted"), "300");
}

TEST_F(CommandProcessTest, WhatItTellsOfItselfIsWhole) {
  EXPECT_EQ(Shell("$T completion bash > '" + computer.Root() + "/c' && bash -n '" + computer.Root() + "/c'"),
            0);
  EXPECT_EQ(Shell(". '" + computer.Root() +
                  "/c'; COMP_WORDS=(tidorra --json backup re); COMP_CWORD=3; _tidorra; "
                  "echo \"${COMPREPLY[@]}\""),
            0);
  EXPECT_EQ(Text(Out()), "restore\n");
  for (const char* shell : {"zsh", "fish", "powershell"}) {
    EXPECT_EQ(Shell(std::string("$T completion ") + shell), 0);
    for (const char* word : {"keep-cookie", "verify", "dry-run"})
      EXPECT_NE(Text(Out()).find(word), std::string::npos) << word << " in " << shell;
  }
  EXPECT_EQ(Shell("$T manual"), 0);
  EXPECT_NE(Text(Out()).find(".SS tidorra backup restore"), std::string::npos);
  EXPECT_NE(Text(Out()).find("\\-\\-keep\\-cookie"), std::string::npos);
  EXPECT_EQ(Shell("$T help backup restore && $T scan --help"), 0);
}

}  // namespace
}  // namespace test
