// Shortcut files that Wine's shell has written (see tools/shortcuts/make-shortcuts).
#include <fstream>
#include <iterator>

#include "PlatformTest.h"
#include "platform/LibSmall.h"

namespace platform {
namespace {

class RealShortcutsTest : public testing::Test {
 protected:
  // Puts the file on the computer's desktop.
  std::string Bring(const std::string& name) {
    std::ifstream in(BRASMIR_ROOT "/tests/platform/shortcuts/" + name, std::ios::binary);
    EXPECT_TRUE(in) << name;
    std::string path = "C:\\Users\\User\\Desktop\\" + name;
    computer.WriteFile(path, std::string(std::istreambuf_iterator<char>(in), {}));
    return path;
  }
  std::string Target(const std::string& name) {
    return computer.Machine().GetShortcuts().Target(Bring(name));
  }
  bool IsBroken(const std::string& name) { return LibShortcut().IsTargetValid(Bring(name)) == 0; }
  test::TestComputer computer;
};

TEST_F(RealShortcutsTest, TellTheirTargets) {
  EXPECT_EQ(Target("latin.lnk"), "C:\\Old Viewer\\viewer.exe");
  EXPECT_EQ(Target("full.lnk"), "C:\\Old Viewer\\viewer.exe");
  EXPECT_EQ(Target("missing.lnk"), "C:\\Old Viewer\\not there.exe");
  EXPECT_EQ(Target("folder.lnk"), "C:\\Old Viewer");
  EXPECT_EQ(Target("network.lnk"), "\\\\server\\share\\docs\\report.txt");
  EXPECT_EQ(Target("other-scripts.lnk"), "");
  EXPECT_EQ(Target("out-of-step.lnk"), "") << "its texts can't be told apart";
  std::string deep = "C:";
  for (int i = 0; i < 12; ++i) deep += "\\a folder whose name is long";
  EXPECT_EQ(Target("long.lnk"), deep.substr(0, 240) + "\\x.txt");
}

TEST_F(RealShortcutsTest, AreBrokenOnlyWhereTheTargetIsMissing) {
  EXPECT_TRUE(IsBroken("latin.lnk"));
  computer.WriteFile("C:\\Old Viewer\\viewer.exe");
  for (const char* name : {"latin.lnk", "full.lnk", "folder.lnk", "out-of-step.lnk"})
    EXPECT_FALSE(IsBroken(name)) << name;
  EXPECT_TRUE(IsBroken("missing.lnk"));
  EXPECT_TRUE(IsBroken("long.lnk"));
  EXPECT_FALSE(IsBroken("network.lnk")) << "the network isn't asked";
  // This writer knows the code page only: what the question marks stand for can't be told.
  EXPECT_FALSE(IsBroken("other-scripts.lnk"));
}

}  // namespace
}  // namespace platform
