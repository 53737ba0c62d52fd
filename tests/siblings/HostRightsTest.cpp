// What the boot-time cleaner hasn't the right to do.
#include <filesystem>

#include "siblings/SiblingFixture.h"
#include "siblings/kelvish/Kelvish.h"
#include "support/ChildProcess.h"

using test::SiblingTest;

// What may not be removed stays for a start with other rights.
TEST_F(SiblingTest, WhatIsNotAllowedStaysInTheList) {
  computer.WriteFile("C:\\closed\\denied.tmp");
  HandLocked("C:\\closed\\denied.tmp\r\n");
  namespace fs = std::filesystem;
  for (const auto& entry : fs::recursive_directory_iterator(computer.Root()))
    if (!entry.is_symlink()) fs::permissions(entry.path(), fs::perms::all);
  fs::permissions(computer.Root(), fs::perms::all);
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
  EXPECT_EQ(LockedList(), "C:\\closed\\denied.tmp\r\n");
  EXPECT_TRUE(computer.Exists("C:\\closed\\denied.tmp"));
  fs::permissions(computer.Native("C:\\closed"), fs::perms::all);
}
