// The boot-time cleaner, killed at any moment.
#include <memory>
#include <random>
#include <set>

#include "removal/m_Log.h"
#include "settings/m_Registry.h"
#include "siblings/SiblingFixture.h"
#include "siblings/common/UnattendedDesktop.h"
#include "siblings/kelvish/Kelvish.h"
#include "support/ChildProcess.h"

namespace {

using std::chrono::microseconds;
using std::chrono::steady_clock;

constexpr int kKills = 40;

class KillTest : public test::SiblingTest {
 protected:
  // A process that runs `body` on a machine of its own.
  std::unique_ptr<test::ChildProcess> Start(std::function<void()> body) {
    return std::make_unique<test::ChildProcess>([this, body]() -> std::string {
      auto machine = computer.AnotherMachine();
      siblings::UnattendedDesktop desktop;
      platform::SetCurrentMachine(machine.get());
      platform::SetCurrentDesktop(&desktop);
      body();
      return {};
    });
  }
  microseconds TimeOf(const std::function<void()>& body) {
    auto start = steady_clock::now();
    auto child = Start(body);
    EXPECT_EQ(child->Result(), "");
    return std::chrono::duration_cast<microseconds>(steady_clock::now() - start);
  }
  // What others wrote a moment ago included: an ordinary read may be some milliseconds behind.
  test::Strings Handed() {
    EXPECT_EQ(computer.Machine().Registry().State().health, platform::StoreHealth::Good);
    return Paths(core::handover::kLockedFiles);
  }
  // Lets `body` run for a time of chance, at most `longest`, and kills it.
  void Kill(const std::function<void()>& body, microseconds longest) {
    auto child = Start(body);
    std::this_thread::sleep_for(microseconds(chance() % static_cast<unsigned>(longest.count() + 1)));
    child->Kill();
    child->Result();
  }

  // A fixed seed; the moments differ all the same.
  std::mt19937 chance{20261118};
};

TEST_F(KillTest, KelvishLosesNoLine) {
  test::SessionObjects session;
  m_Registry::ReadRegistrySettings();
  int made = 0;
  test::Strings list;
  auto makeFree = [&](int count) {
    for (int i = 0; i < count; ++i) {
      std::string path = "C:\\Free\\" + std::to_string(++made) + ".tmp";
      computer.WriteFile(path);
      list.push_back(path);
    }
  };
  std::vector<std::unique_ptr<test::Hold>> holds;
  std::set<std::string> held;
  for (int i = 0; i < 20; ++i) {
    std::string path = "C:\\Held\\" + std::to_string(i) + ".tmp";
    computer.WriteFile(path);
    holds.push_back(std::make_unique<test::Hold>(computer.Native(path)));
    held.insert(path);
    list.push_back(path);
    makeFree(15);
  }
  auto workOff = [] { kelvish::WorkOff(); };
  HandLocked(list);
  const microseconds whole = TimeOf(workOff);
  ASSERT_EQ(Handed().size(), held.size());

  int midst = 0;
  for (int round = 0; round < kKills; ++round) {
    list.clear();
    makeFree(100);
    for (const std::string& line : list) m_Log::WriteLockedFilesToLog(line);
    auto child = Start(workOff);
    auto until = steady_clock::now() + microseconds(chance() % static_cast<unsigned>(whole.count() + 1));
    // Meanwhile the main program hands over more.
    for (int i = 0; i == 0 || steady_clock::now() < until; ++i) {
      std::string path = "C:\\Free\\" + std::to_string(++made) + ".tmp";
      computer.WriteFile(path);
      m_Log::WriteLockedFilesToLog(path);
      std::this_thread::sleep_for(microseconds(500));
    }
    child->Kill();
    child->Result();
    midst += Handed().size() > computer.List("C:\\Free").size() + held.size();
    ASSERT_EQ(computer.AnotherMachine()
                  ->Registry()
                  .Read(platform::kLocalMachine, core::keys::kRunOnce, "Kelvish")
                  .text,
              Install("Kelvish.exe"))
        << "round " << round;
    // What is still there stands in the list.
    const test::Strings handed = Handed();
    const std::set<std::string> lines(handed.begin(), handed.end());
    for (const std::string& name : computer.List("C:\\Free"))
      ASSERT_TRUE(lines.count("C:\\Free\\" + name)) << name << " in round " << round;
    for (const std::string& path : held) ASSERT_TRUE(lines.count(path)) << path << " in round " << round;
  }
  EXPECT_GT(midst, 0) << "no kill came in the middle of the list";
  EXPECT_TRUE(computer.desktop.boxes.empty());

  TimeOf(workOff);
  EXPECT_TRUE(computer.List("C:\\Free").empty());
  const test::Strings kept = Handed();
  EXPECT_EQ(std::set<std::string>(kept.begin(), kept.end()), held);
  EXPECT_EQ(kept.size(), held.size()) << "once each";
  EXPECT_EQ(TempFiles(), test::Strings{"Locked Files.txt"});
  holds.clear();
  TimeOf(workOff);
  EXPECT_TRUE(computer.List("C:\\Held").empty());
  EXPECT_TRUE(TempFiles().empty());
  EXPECT_TRUE(test::Comes([&] { return !computer.WillStartKelvish(); }));
}

}  // namespace
