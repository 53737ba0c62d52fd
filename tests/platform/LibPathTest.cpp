#include <gtest/gtest.h>

#include "platform/LibPath.h"
#include "platform/LibSmall.h"

using platform::LibPath;
using platform::LibSize;

TEST(LibPath, AddBackslashGivesExactlyOne) {
  for (const char* path : {"C:\\Temp", "C:\\Temp\\", "C:\\Temp\\\\"})
    EXPECT_EQ(LibPath().AddBackslash(path), "C:\\Temp\\") << path;
  EXPECT_EQ(LibPath().AddBackslash(""), "");
}

TEST(LibPath, TakesPathsApart) {
  struct Case {
    std::string path, folder, name, extension, base, root;
  };
  const Case cases[] = {
      {"C:\\a\\b.txt", "C:\\a", "b.txt", "txt", "b.txt", "C:\\"},
      {"d:\\b.tar.gz", "d:\\", "b.tar.gz", "gz", "b.tar.gz", "d:\\"},
      {"C:\\a.b\\c", "C:\\a.b", "c", "", "c", "C:\\"},
      {"C:\\a\\.hidden", "C:\\a", ".hidden", "hidden", ".hidden", "C:\\"},
      {"C:\\a\\dot.", "C:\\a", "dot.", "", "dot.", "C:\\"},
      {"C:\\a\\b\\", "C:\\a\\b", "", "", "b", "C:\\"},
      {"C:\\", "C:\\", "", "", "C:", "C:\\"},
      {"name", "", "name", "", "name", ""},
      {"\\\\server\\share", "\\\\server", "share", "", "share", ""},
      {"", "", "", "", "", ""},
      {"1:\\x", "1:", "x", "", "x", ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.path);
    EXPECT_EQ(LibPath().GetFolder(c.path), c.folder);
    EXPECT_EQ(LibPath().GetFileName(c.path), c.name);
    EXPECT_EQ(LibPath().GetExtension(c.path), c.extension);
    EXPECT_EQ(LibPath().GetBaseName(c.path), c.base);
    EXPECT_EQ(LibPath().GetDriveRoot(c.path), c.root);
  }
}

TEST(LibPath, ReplacesEveryFind) {
  EXPECT_EQ(LibPath().ReplaceChars("03/10/2004 10:11", "/", "."), "03.10.2004 10:11");
  EXPECT_EQ(LibPath().ReplaceChars("aaa", "a", "aa"), "aaaaaa");
  EXPECT_EQ(LibPath().ReplaceChars("abcabc", "bc", ""), "aa");
  EXPECT_EQ(LibPath().ReplaceChars("abc", "", "x"), "abc");
}

TEST(LibSize, RoundsToTwoDecimalsHalfAwayFromZero) {
  EXPECT_EQ(LibSize().BytesToKilobytes(1536), 1.5);
  EXPECT_EQ(LibSize().BytesToKilobytes(1000), 0.98);
  EXPECT_EQ(LibSize().BytesToKilobytes(128), 0.13);  // 0.125
  EXPECT_EQ(LibSize().BytesToKilobytes(-128), -0.13);
  EXPECT_EQ(LibSize().BytesToMegabytes(3.0 * 1048576 * 1048576), 3145728);
}
