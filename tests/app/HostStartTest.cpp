// The start on a computer whose drives aren't as they should be.
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

#include "app/m_SubMain.h"
#include "support/Session.h"

namespace {

namespace fs = std::filesystem;

TEST(HostStart, WithoutADriveCTheProgramSaysSoAndWritesNothing) {
  test::TestComputer computer({.layout = false});
  const fs::path c = fs::path(computer.Native("C:\\")), aside = c.parent_path() / "aside";
  fs::rename(c, aside);
  fs::create_directory(c.parent_path() / "d:");
  for (const char* instead : {"nothing", "file", "link"}) {
    if (*instead == 'f') std::ofstream(c) << "no drive";
    if (*instead == 'l') fs::create_symlink("nowhere", c);
    bool installed = false;
    int exitCode =
        m_SubMain::Main({test::PackagedFile("first-time-settings.txt"), computer.InstallDirectory(),
                         [&](const std::string&, bool) { installed = true; }});
    EXPECT_EQ(exitCode, 1) << instead;
    EXPECT_EQ(computer.desktop.boxes,
              test::Strings{"critical|Drive error|There is no drive C on this computer\r\n"
                            "Brasmir and its settings belong on that drive\r\nBrasmir will shutdown!"});
    EXPECT_FALSE(core::HasMainForm() || installed) << instead;
    EXPECT_FALSE(computer.HasValue(core::keys::kTidorra, "Install Directory"));
    fs::remove(c);
    test::SessionObjects::End();
    computer.Restart();
    computer.desktop.Clear();
  }
  fs::rename(aside, c);
  EXPECT_EQ(m_SubMain::Main({test::PackagedFile("first-time-settings.txt"), computer.InstallDirectory(), {}}),
            0);
  EXPECT_TRUE(core::HasMainForm());
  test::SessionObjects::End();
}

}  // namespace
