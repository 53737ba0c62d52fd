#include "PlatformTest.h"
#include "platform/LibEraser.h"

using platform::LibEraser;

namespace test {

class LibEraserTest : public PlatformTest {
 protected:
  LibEraser eraser;
};

TEST_F(LibEraserTest, EveryPassButTheLastIsRandom) {
  computer.WriteFile("C:\\T\\a.txt", std::string(64, 'x'));
  Strings passes;
  computer.desktop.onBreathe = [&](long) {
    Strings names = computer.List("C:\\T");
    ASSERT_EQ(names.size(), 1u);
    EXPECT_NE(names[0], "a.txt") << "its name tells nothing from the beginning";
    passes.push_back(computer.ReadFile("C:\\T\\" + names[0]));
  };
  EXPECT_EQ(eraser.EraseFile("C:\\T\\a.txt", 3, 0), 1);
  ASSERT_EQ(passes.size(), 3u);
  for (const std::string& pass : passes) EXPECT_EQ(pass.size(), 64u);
  EXPECT_NE(passes[0], std::string(64, 'x'));
  EXPECT_NE(passes[0], passes[1]);
  EXPECT_NE(passes[1], std::string(64, '\0'));
  EXPECT_EQ(passes[2], std::string(64, '\0'));
}

TEST_F(LibEraserTest, EmptyAndReadOnlyFilesGo) {
  computer.WriteFile("C:\\T\\empty", "");
  computer.WriteFile("C:\\T\\rö");
  computer.SetAttributes("C:\\T\\rö", 35);
  EXPECT_EQ(eraser.EraseFile("c:\\T\\EMPTY", 1, 4096), 1);
  EXPECT_EQ(eraser.EraseFile("C:\\T\\rö", 1, 4096), 1);
  EXPECT_TRUE(computer.List("C:\\T").empty());
  for (const char* path : {"C:\\T\\none", "C:\\T", "C:\\", "", "C:\\T\\..\\x"})
    EXPECT_EQ(eraser.EraseFile(path, 1, 4096), 0) << path;
}

TEST_F(LibEraserTest, AFileWithSeveralNamesStaysUntouched) {
  computer.WriteFile("C:\\T\\one", "kept");
  computer.MakeSecondName("C:\\T\\one", "C:\\T\\two");
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

}  // namespace test
