// The boot-time cleaner on its two lists.

#include "removal/m_Log.h"
#include "settings/m_Registry.h"
#include "siblings/SiblingFixture.h"
#include "siblings/kelvish/Kelvish.h"
#include "support/FaultyMachine.h"

using test::Hold;

class KelvishTest : public test::SiblingTest {
 protected:
  void SetEraseOnBoot() {
    computer.SetValue(core::keys::kLumaroInternetFiles, "Erase Index Dat Files on boot", "1");
  }
};

TEST_F(KelvishTest, RemovesWhatItCanAndKeepsTheRestOnceEach) {
  computer.WriteFiles({"C:\\free.tmp", "C:\\held.tmp", "C:\\also held.tmp", "C:\\read only.tmp"});
  computer.SetAttributes("C:\\read only.tmp", platform::kReadOnly);
  Hold one(computer.Native("C:\\held.tmp")), two(computer.Native("C:\\also held.tmp"));
  HandLocked({"C:\\held.tmp", "C:\\FREE.tmp", "C:\\gone.tmp", "C:\\held.tmp", "C:\\none\\gone.tmp",
              "C:\\read only.tmp", "C:\\also held.tmp"});
  EXPECT_TRUE(kelvish::WorkOff());
  EXPECT_EQ(computer.Left({"C:\\free.tmp", "C:\\read only.tmp", "C:\\held.tmp"}),
            test::Strings{"C:\\held.tmp"});
  EXPECT_EQ(Paths(core::handover::kLockedFiles), (test::Strings{"C:\\held.tmp", "C:\\also held.tmp"}));
  EXPECT_EQ(LockedCopy(), "C:\\held.tmp\r\nC:\\also held.tmp\r\n");
  EXPECT_EQ(TempFiles(), test::Strings{"Locked Files.txt"});
  EXPECT_TRUE(computer.WillStartKelvish());
}

TEST_F(KelvishTest, LeavesNeitherListNorEntryWhenAllIsDone) {
  computer.WriteFiles({"C:\\caf\u00E9.tmp", "C:\\\u0436.tmp", "C:\\index.dat"});
  HandLocked({"C:\\caf\u00E9.tmp", "C:\\\u0436.tmp"});
  HandIndex({"C:\\index.dat", "C:\\index.dat"});
  computer.SetValue(platform::kLocalMachine, core::keys::kRunOnce, "Kelvish", "x");
  EXPECT_TRUE(kelvish::WorkOff());
  EXPECT_TRUE(computer.Left({"C:\\caf\u00E9.tmp", "C:\\\u0436.tmp"}).empty());
  EXPECT_TRUE(computer.Exists("C:\\index.dat"));
  EXPECT_EQ(computer.ReadFile("C:\\index.dat"), "");
  EXPECT_TRUE(TempFiles().empty());
  EXPECT_FALSE(computer.WillStartKelvish());
  // Nothing is made where nothing was handed over.
  EXPECT_TRUE(kelvish::WorkOff());
  EXPECT_TRUE(TempFiles().empty());
}

TEST_F(KelvishTest, NeverActsOnWhatIsNoPlainFile) {
  computer.WriteFiles({"C:\\real\\target.tmp", "C:\\folder\\inside.tmp"});
  computer.MakeLink("C:\\link.tmp", "C:\\real\\target.tmp");
  computer.MakeLink("C:\\way", "C:\\real");
  computer.MakeFolder("C:\\empty");
  computer.WriteFile("C:\\names", "several");
  computer.MakeSecondName("C:\\names", "C:\\other name");
  const test::Strings lines = {"C:\\link.tmp",
                               "C:\\way",
                               "C:\\way\\target.tmp",
                               "C:\\folder",
                               "C:\\folder\\",
                               "C:\\empty",
                               "real\\target.tmp",
                               "\\real\\target.tmp",
                               "C:real\\target.tmp",
                               "C:\\folder\\..\\real\\target.tmp",
                               "C:\\",
                               "",
                               " ",
                               "C:\\real\\target.tmp:stream",
                               "\\\\server\\share\\target.tmp",
                               "C:/real/target.tmp"};
  for (bool erase : {false, true}) {
    if (erase) SetEraseOnBoot();
    HandLocked(lines);
    HandIndex({"C:\\names"});
    HandIndex(lines);
    EXPECT_TRUE(kelvish::WorkOff());
    for (const char* kept : {"C:\\real\\target.tmp", "C:\\folder\\inside.tmp"})
      EXPECT_EQ(computer.ReadFile(kept), "content") << kept;
    for (const char* link : {"C:\\link.tmp", "C:\\way"}) EXPECT_TRUE(computer.IsLink(link)) << link;
    EXPECT_TRUE(computer.Exists("C:\\empty"));
    EXPECT_EQ(computer.ReadFile("C:\\other name"), "several");
    EXPECT_TRUE(Paths(core::handover::kLockedFiles).empty()) << "such lines can never be done";
    EXPECT_FALSE(computer.WillStartKelvish());
  }
}

// Between the hand-over and the next start.
TEST_F(KelvishTest, RemovesOnlyTheFileThatWasHandedOver) {
  const test::Strings paths = {"C:\\written since.tmp", "C:\\another.tmp", "C:\\come since.tmp",
                               "C:\\same.tmp"};
  computer.WriteFiles({paths[0], paths[1], paths[3]});
  HandLocked(paths);
  computer.WriteFile(paths[0], "longer than it was");
  computer.WriteFile("C:\\new", "content");
  computer.SetModified("C:\\new", computer.Files().Look(paths[1]).modified);
  ASSERT_EQ(computer.Files().Rename("C:\\new", paths[1], true), platform::Status::Done);
  computer.WriteFile(paths[2]);
  computer.WriteFile("C:\\index.dat");
  HandIndex({"C:\\index.dat"});
  computer.WriteFile("C:\\index.dat", "goes on");
  EXPECT_TRUE(kelvish::WorkOff());
  EXPECT_EQ(computer.Left(paths), (test::Strings{paths[0], paths[1], paths[2]}));
  EXPECT_EQ(computer.ReadFile("C:\\index.dat"), "")
      << "its browser has written to it, and it is emptied still";
  EXPECT_TRUE(Paths(core::handover::kLockedFiles).empty());
}

TEST_F(KelvishTest, OverwritesIndexFilesOnlyIfTheUserWantsThat) {
  const std::string content(5000, 'x');
  std::string seen;
  computer.desktop.onBreathe = [&](long) { seen = computer.ReadFile("C:\\index.dat"); };
  computer.WriteFile("C:\\index.dat", content);
  HandIndex({"C:\\index.dat"});
  EXPECT_TRUE(kelvish::WorkOff());
  EXPECT_EQ(seen, "") << "only emptied";

  SetEraseOnBoot();
  computer.WriteFile("C:\\index.dat", content);
  computer.SetAttributes("C:\\index.dat", platform::kReadOnly);
  computer.WriteFile("C:\\held\\index.dat", content);
  Hold held(computer.Native("C:\\held\\index.dat"));
  HandIndex({"C:\\index.dat", "C:\\held\\index.dat"});
  EXPECT_TRUE(kelvish::WorkOff());
  EXPECT_GE(seen.size(), content.size());
  EXPECT_EQ(seen.find('x'), seen.npos) << "nothing of it is left on the disk";
  EXPECT_TRUE(computer.Exists("C:\\index.dat"));
  EXPECT_EQ(computer.ReadFile("C:\\index.dat"), "");
  EXPECT_EQ(computer.GetAttributes("C:\\index.dat") & platform::kReadOnly, platform::kReadOnly);
  EXPECT_EQ(computer.ReadFile("C:\\held\\index.dat"), content);
  EXPECT_EQ(IndexCopy(), "C:\\held\\index.dat\r\n");
}

TEST_F(KelvishTest, WhatIsHandedOverMeanwhileWaitsForTheNextStart) {
  test::SessionObjects session;
  m_Registry::ReadRegistrySettings();
  SetEraseOnBoot();
  computer.WriteFiles({"C:\\index.dat", "C:\\late.tmp", "C:\\late\\index.dat", "C:\\held.tmp"});
  Hold held(computer.Native("C:\\held.tmp"));
  HandIndex({"C:\\index.dat"});
  HandLocked({"C:\\held.tmp"});
  bool handed = false;
  computer.desktop.onBreathe = [&](long) {
    if (handed) return;
    handed = true;
    m_Log::WriteIndexDatFilesToLog("C:\\late\\index.dat");
    m_Log::WriteLockedFilesToLog("C:\\late.tmp");
    m_Log::WriteLockedFilesToLog("C:\\HELD.tmp");
  };
  EXPECT_TRUE(kelvish::WorkOff());
  ASSERT_TRUE(handed);
  EXPECT_EQ(IndexCopy(), "C:\\late\\index.dat\r\n");
  EXPECT_EQ(Paths(core::handover::kLockedFiles),
            (test::Strings{"C:\\held.tmp", "C:\\late.tmp", "C:\\HELD.tmp"}));
  EXPECT_TRUE(computer.WillStartKelvish());
  EXPECT_TRUE(kelvish::WorkOff());
  EXPECT_EQ(IndexCopy(), "");
  EXPECT_EQ(LockedCopy(), "C:\\held.tmp\r\nC:\\HELD.tmp\r\n") << "names that differ in case may be two files";
  EXPECT_FALSE(computer.Exists("C:\\late.tmp"));
  EXPECT_TRUE(computer.desktop.boxes.empty());
}

TEST_F(KelvishTest, AListThatCannotBeShortenedStays) {
  computer.WriteFiles({"C:\\free.tmp", "C:\\held.tmp"});
  Hold held(computer.Native("C:\\held.tmp"));
  HandLocked({"C:\\free.tmp", "C:\\held.tmp"});
  {
    test::FaultyMachine faulty(computer.Machine());
    faulty.registry.removalCode = 5;
    EXPECT_FALSE(kelvish::WorkOff());
  }
  EXPECT_EQ(Paths(core::handover::kLockedFiles), (test::Strings{"C:\\free.tmp", "C:\\held.tmp"}));
  EXPECT_TRUE(computer.WillStartKelvish());
  // What a kill may have left of the copy.
  computer.WriteFile(Install("Temp\\Locked Files.txt.1A2B3C.brasmir"), "C:\\hel");
  EXPECT_TRUE(kelvish::WorkOff());
  EXPECT_EQ(Paths(core::handover::kLockedFiles), test::Strings{"C:\\held.tmp"});
  EXPECT_EQ(TempFiles(), test::Strings{"Locked Files.txt"});
}

TEST_F(KelvishTest, TheLogTellsEveryLineAndLiesOnTheDesktopToo) {
  const std::string desktop = computer.Profile() + "\\Desktop\\Kelvish Log.txt";
  HandLocked({"C:\\gone.tmp"});
  EXPECT_TRUE(kelvish::WorkOff());
  EXPECT_FALSE(computer.Exists(desktop)) << "nobody asked for it";

  computer.clock.Set({2026, 11, 18, 7, 5, 9});
  computer.SetValue(core::keys::kKelvish, "Log actions", "1");
  for (const char* file : {"C:\\free.tmp", "C:\\held.tmp", "C:\\index.dat"}) computer.WriteFile(file);
  computer.MakeFolder("C:\\folder");
  computer.MakeLink("C:\\link", "C:\\folder");
  Hold held(computer.Native("C:\\held.tmp"));
  HandLocked({"C:\\free.tmp", "C:\\held.tmp", "C:\\gone.tmp", "C:\\folder", "C:\\link", "free.tmp",
              "C:\\x.tmp\r\nFinished, all good", "C:\\changed.tmp"});
  computer.WriteFile("C:\\changed.tmp");
  HandIndex({"C:\\index.dat"});
  EXPECT_TRUE(kelvish::WorkOff());
  const std::string log = computer.ReadFile(desktop);
  EXPECT_EQ(log, computer.ReadFile(Install("Reports\\Kelvish Log.txt")));
  EXPECT_EQ(test::LinesOf(log),
            (test::Strings{
                "Kelvish log, 11/18/2026 07:05:09", "", "Files that were in use:", "Removed: C:\\free.tmp",
                "Still in use (stays in the list): C:\\held.tmp", "No longer there: C:\\gone.tmp",
                "Left alone (a folder): C:\\folder", "Left alone (a link, or behind a link): C:\\link",
                "Left alone (not the full path of a file): free.tmp",
                "No longer there: C:\\x.tmp??Finished, all good",
                "Left alone (was not there when it was handed over): C:\\changed.tmp",
                "Lines: 8, for the next start: 1", "", "Index files:", "Emptied: C:\\index.dat",
                "Lines: 1, for the next start: 0"}));
}

TEST_F(KelvishTest, StandsAsideForAnotherOne) {
  auto other = computer.AnotherMachine();
  ASSERT_TRUE(other->GetProcesses().ClaimInstance("Kelvish"));
  computer.WriteFile("C:\\free.tmp");
  HandLocked({"C:\\free.tmp"});
  EXPECT_TRUE(kelvish::WorkOff());
  EXPECT_TRUE(computer.Exists("C:\\free.tmp"));
  other.reset();
  EXPECT_TRUE(kelvish::WorkOff());
  EXPECT_FALSE(computer.Exists("C:\\free.tmp"));
}
