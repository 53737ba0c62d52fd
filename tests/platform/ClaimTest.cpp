// A claim for the length of a scope.
#include <gtest/gtest.h>
#include <thread>

#include "platform/Claim.h"
#include "support/TestComputer.h"

namespace platform {
namespace {

TEST(ClaimTest, IsGivenBackAndWaitedFor) {
  test::TestComputer computer{{.layout = false}};
  auto other = computer.AnotherMachine();
  {
    Claim claim("Lists", std::chrono::milliseconds(0));
    EXPECT_TRUE(claim.Held());
    EXPECT_FALSE(other->GetProcesses().ClaimInstance("Lists"));
  }
  ASSERT_TRUE(other->GetProcesses().ClaimInstance("Lists"));
  {
    Claim refused("Lists", std::chrono::milliseconds(1));
    EXPECT_FALSE(refused.Held());
  }
  EXPECT_TRUE(other->GetProcesses().InstanceRuns("Lists")) << "a refused claim gives nothing back";
  computer.Machine().GetProcesses().ReleaseInstance("Lists");
  EXPECT_FALSE(computer.Machine().GetProcesses().ClaimInstance("Lists")) << "nor does who hasn't got it";

  std::thread holder([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    other->GetProcesses().ReleaseInstance("Lists");
  });
  Claim patient("Lists", std::chrono::minutes(2));
  holder.join();
  EXPECT_TRUE(patient.Held());
}

}  // namespace
}  // namespace platform
