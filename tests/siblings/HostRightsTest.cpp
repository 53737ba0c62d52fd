// What the boot-time cleaner hasn't the right to do.
#include <filesystem>
#include <unistd.h>

#include "siblings/SiblingFixture.h"
#include "siblings/kelvish/Kelvish.h"
#include "support/ChildProcess.h"

using test::SiblingTest;

// What may not be removed stays for a start with other rights.
TEST_F(SiblingTest, WhatIsNotAllowedStaysInTheList) {
  computer.WriteFile("C:\\closed\\denied.tmp");
  HandLocked({"C:\\closed\\denied.tmp"});
  namespace fs = std::filesystem;
  // The whole computer is that of another user, but for one folder.
  constexpr unsigned kNobody = 65534;
  auto give = [&](const fs::path& path) { return lchown(path.c_str(), kNobody, kNobody) == 0; };
  bool given = give(computer.Root());
  for (const auto& entry : fs::recursive_directory_iterator(computer.Root()))
    given = give(entry.path()) && given;
  ASSERT_TRUE(given || geteuid() != 0);
  ASSERT_TRUE(lchown(computer.Native("C:\\closed").c_str(), geteuid(), getegid()) == 0);
  fs::permissions(computer.Native("C:\\closed"), fs::perms(0555));
  test::ChildProcess child([&]() -> std::string {
    test::BecomeNobody();
    auto machine = computer.AnotherMachine();
    platform::SetCurrentMachine(machine.get());
    bool good = kelvish::WorkOff();
    platform::SetCurrentMachine(&computer.Machine());
    return good ? "" : "failed";
  });
  EXPECT_EQ(child.Result(), "");
  EXPECT_EQ(LockedCopy(), "C:\\closed\\denied.tmp\r\n");
  EXPECT_TRUE(computer.Exists("C:\\closed\\denied.tmp"));
  fs::permissions(computer.Native("C:\\closed"), fs::perms::all);
}
