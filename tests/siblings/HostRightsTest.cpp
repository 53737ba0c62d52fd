// What the boot-time cleaner hasn't the right to do.
#include <filesystem>
#include <unistd.h>

#include "siblings/SiblingFixture.h"
#include "siblings/kelvish/Kelvish.h"
#include "support/ChildProcess.h"

class RightsTest : public test::SiblingTest {};

// What may not be removed stays for a start with other rights.
TEST_F(RightsTest, WhatIsNotAllowedStaysInTheList) {
  computer.WriteFile("C:\\closed\\denied.tmp");
  HandLocked("C:\\closed\\denied.tmp\r\n");
  namespace fs = std::filesystem;
  for (const auto& entry : fs::recursive_directory_iterator(computer.Root()))
    if (!entry.is_symlink()) fs::permissions(entry.path(), fs::perms::all);
  fs::permissions(computer.Root(), fs::perms::all);
  fs::permissions(computer.Native("C:\\closed"), fs::perms::owner_all | fs::perms::group_read |
                                                     fs::perms::group_exec | fs::perms::others_read |
                                                     fs::perms::others_exec);
  if (geteuid() != 0)
    fs::permissions(computer.Native("C:\\closed"), fs::perms::owner_read | fs::perms::owner_exec);
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
