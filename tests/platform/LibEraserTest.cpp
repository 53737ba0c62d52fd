#include <sys/stat.h>
#include <unistd.h>

#include "PlatformTest.h"
#include "platform/LibEraser.h"

using platform::LibEraser;

namespace test {

class LibEraserTest : public PlatformTest {
 protected:
  LibEraser eraser;
};

TEST_F(LibEraserTest, TheContentIsOverwrittenToTheEndOfItsLastCluster) {
  std::string text(5000, 'x');
  for (short passes : {1, 2, 35, 100, 0, -5}) {
    computer.WriteFile("C:\\T\\a.txt", text);
    // A second name, made after the look and before the end, would show what was written; here an open file
    // does.
    FILE* open = fopen(computer.Native("C:\\T\\a.txt").c_str(), "rb");
    ASSERT_TRUE(open);
    struct stat during {};
    std::string seen;
    computer.desktop.onBreathe = [&](long) {
      fstat(fileno(open), &during);
      std::string now(10000, '?');
      now.resize(fread((rewind(open), now.data()), 1, now.size(), open));
      seen = now;
    };
    EXPECT_EQ(eraser.EraseFile("C:\\T\\a.txt", passes, 4096), 1);
    computer.desktop.onBreathe = nullptr;
    EXPECT_EQ(during.st_size, 8192);
    EXPECT_EQ(seen, std::string(8192, '\0'));
    struct stat after {};
    fstat(fileno(open), &after);
    EXPECT_EQ(after.st_size, 0);
    EXPECT_EQ(after.st_nlink, 0u);
    fclose(open);
    EXPECT_TRUE(computer.List("C:\\T").empty());
  }
}

TEST_F(LibEraserTest, EveryPassButTheLastIsRandom) {
  computer.WriteFile("C:\\T\\a.txt", std::string(64, 'x'));
  std::vector<std::string> passes;
  computer.desktop.onBreathe = [&](long) { passes.push_back(computer.ReadFile("C:\\T\\a.txt")); };
  EXPECT_EQ(eraser.EraseFile("C:\\T\\a.txt", 3, 0), 1);
  ASSERT_EQ(passes.size(), 3u);
  for (const std::string& pass : passes) EXPECT_EQ(pass.size(), 64u);
  EXPECT_NE(passes[0], std::string(64, 'x'));
  EXPECT_NE(passes[0], passes[1]);
  EXPECT_NE(passes[1], std::string(64, '\0'));
  EXPECT_EQ(passes[2], std::string(64, '\0'));
}

TEST_F(LibEraserTest, EmptyReadOnlyAndOddlyNamedFilesGo) {
  computer.WriteFile("C:\\T\\empty", "");
  computer.WriteFile("C:\\T\\ro\xFF");
  computer.SetAttributes("C:\\T\\ro\xFF", 35);
  EXPECT_EQ(eraser.EraseFile("c:\\T\\EMPTY", 1, 4096), 1);
  EXPECT_EQ(eraser.EraseFile("C:\\T\\ro\xFF", 1, 4096), 1);
  EXPECT_TRUE(computer.List("C:\\T").empty());
  for (const char* path : {"C:\\T\\none", "C:\\T", "C:\\", "", "C:\\T\\..\\x"})
    EXPECT_EQ(eraser.EraseFile(path, 1, 4096), 0) << path;
}

TEST_F(LibEraserTest, AFileWithSeveralNamesStaysUntouched) {
  computer.WriteFile("C:\\T\\one", "kept");
  ASSERT_EQ(link(computer.Native("C:\\T\\one").c_str(), computer.Native("C:\\T\\two").c_str()), 0);
  EXPECT_EQ(eraser.EraseFile("C:\\T\\one", 1, 4096), 0);
  EXPECT_EQ(computer.ReadFile("C:\\T\\one"), "kept");
  EXPECT_EQ(computer.ReadFile("C:\\T\\two"), "kept");
}

TEST_F(LibEraserTest, AFileInUseStaysUntouched) {
  computer.WriteFile("C:\\T\\a.txt", "held");
  computer.SetAttributes("C:\\T\\a.txt", 33);
  for (LockKind kind : {LockKind::Flock, LockKind::ForProcess}) {
    LockHolder holder(computer.Native("C:\\T\\a.txt"), kind);
    EXPECT_EQ(eraser.EraseFile("C:\\T\\a.txt", 2, 4096), 0);
    EXPECT_EQ(computer.ReadFile("C:\\T\\a.txt"), "held");
    EXPECT_EQ(computer.GetAttributes("C:\\T\\a.txt"), 33u);
  }
}

TEST_F(LibEraserTest, AFullDiskLeavesTheNameAndTheLength) {
  computer.MakeFolder("C:\\small");
  SmallDisk disk(computer.Native("C:\\small"), "64k");
  if (!disk) {
    std::puts("this process may not mount a disk: nothing tested");
    return;
  }
  computer.WriteFile("C:\\small\\a.txt", "short");
  computer.WriteFile("C:\\small\\filler", std::string(48 * 1024, 'x'));
  EXPECT_EQ(eraser.EraseFile("C:\\small\\a.txt", 1, 1024 * 1024), 0);
  EXPECT_EQ(computer.List("C:\\small"), (std::vector<std::string>{"a.txt", "filler"}));
  EXPECT_EQ(computer.ReadFile("C:\\small\\a.txt").size(), 5u);
}

}  // namespace test
