// The boot-time cleaner on its two lists.

#include "removal/m_Log.h"
#include "settings/m_Registry.h"
#include "siblings/SiblingFixture.h"
#include "siblings/kelvish/Kelvish.h"
#include "support/WatchedFiles.h"

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
  HandLocked(
      "C:\\held.tmp\r\nC:\\FREE.tmp\r\nC:\\gone.tmp\r\nC:\\HELD.TMP\r\nC:\\none\\gone.tmp\r\n"
      "C:\\read only.tmp\r\nC:\\also held.tmp\r\n");
  EXPECT_TRUE(kelvish::WorkOff());
  EXPECT_EQ(computer.Left({"C:\\free.tmp", "C:\\read only.tmp", "C:\\held.tmp"}),
            test::Strings{"C:\\held.tmp"});
  EXPECT_EQ(LockedList(), "C:\\held.tmp\r\nC:\\also held.tmp\r\n");
  EXPECT_EQ(TempFiles(), test::Strings{"Locked Files.txt"});
  EXPECT_EQ(StartEntry(), Install("Kelvish.exe"));
}

TEST_F(KelvishTest, LeavesNeitherListNorEntryWhenAllIsDone) {
  computer.WriteFiles({"C:\\caf\u00E9.tmp", "C:\\index.dat"});
  HandLocked("C:\\caf\xE9.tmp\r\n");
  HandIndex("C:\\index.dat\r\nC:\\index.dat\r\n");
  computer.SetValue(platform::kLocalMachine, core::keys::kRunOnce, "Kelvish", "x");
  EXPECT_TRUE(kelvish::WorkOff());
  EXPECT_FALSE(computer.Exists("C:\\caf\u00E9.tmp"));
  EXPECT_TRUE(computer.Exists("C:\\index.dat"));
  EXPECT_EQ(computer.ReadFile("C:\\index.dat"), "");
  EXPECT_TRUE(TempFiles().empty());
  EXPECT_EQ(StartEntry(), "");
  // Nothing is made where nothing was handed over.
  EXPECT_TRUE(kelvish::WorkOff());
  EXPECT_TRUE(TempFiles().empty());
}

TEST_F(KelvishTest, NeverActsOnWhatIsNoPlainFile) {
  computer.WriteFiles({"C:\\real\\target.tmp", "C:\\folder\\inside.tmp", "C:\\half"});
  computer.MakeLink("C:\\link.tmp", "C:\\real\\target.tmp");
  computer.MakeLink("C:\\way", "C:\\real");
  computer.MakeFolder("C:\\empty");
  computer.WriteFile("C:\\names", "several");
  computer.MakeSecondName("C:\\names", "C:\\other name");
  const std::string lines =
      "C:\\link.tmp\r\nC:\\way\r\nC:\\way\\target.tmp\r\nC:\\folder\r\nC:\\folder\\\r\nC:\\empty\r\n"
      "real\\target.tmp\r\n\\real\\target.tmp\r\nC:real\\target.tmp\r\nC:\\folder\\..\\real\\target.tmp\r\n"
      "C:\\\r\n\r\n "
      "\r\nC:\\real\\target.tmp:stream\r\n\\\\server\\share\\target.tmp\r\nC:/real/target.tmp\r\n"
      "C:\\real\\target.tm\x81\r\nC:\\half";
  for (bool erase : {false, true}) {
    if (erase) SetEraseOnBoot();
    HandLocked(lines);
    HandIndex("C:\\names\r\n" + lines);
    EXPECT_TRUE(kelvish::WorkOff());
    for (const char* kept : {"C:\\real\\target.tmp", "C:\\folder\\inside.tmp", "C:\\half"})
      EXPECT_EQ(computer.ReadFile(kept), "content") << kept;
    for (const char* link : {"C:\\link.tmp", "C:\\way"}) EXPECT_TRUE(computer.IsLink(link)) << link;
    EXPECT_TRUE(computer.Exists("C:\\empty"));
    EXPECT_EQ(computer.ReadFile("C:\\other name"), "several");
    EXPECT_TRUE(TempFiles().empty()) << "such lines can never be done";
    EXPECT_EQ(StartEntry(), "");
  }
}

TEST_F(KelvishTest, TheListsThemselvesAreNotReadThroughALink) {
  computer.WriteFile("C:\\wanted.tmp");
  computer.WriteFile("C:\\list.txt", "C:\\wanted.tmp\r\n");
  computer.MakeLink(Install("Temp\\Locked Files.txt"), "C:\\list.txt");
  EXPECT_TRUE(kelvish::WorkOff());
  EXPECT_TRUE(computer.Exists("C:\\wanted.tmp"));
  EXPECT_EQ(computer.ReadFile("C:\\list.txt"), "C:\\wanted.tmp\r\n");
}

TEST_F(KelvishTest, OverwritesIndexFilesOnlyIfTheUserWantsThat) {
  const std::string content(5000, 'x');
  std::string seen;
  computer.desktop.onBreathe = [&](long) { seen = computer.ReadFile("C:\\index.dat"); };
  computer.WriteFile("C:\\index.dat", content);
  HandIndex("C:\\index.dat\r\n");
  EXPECT_TRUE(kelvish::WorkOff());
  EXPECT_EQ(seen, "") << "only emptied";

  SetEraseOnBoot();
  computer.WriteFile("C:\\index.dat", content);
  computer.SetAttributes("C:\\index.dat", platform::kReadOnly);
  computer.WriteFile("C:\\held\\index.dat", content);
  Hold held(computer.Native("C:\\held\\index.dat"));
  HandIndex("C:\\index.dat\r\nC:\\held\\index.dat\r\n");
  EXPECT_TRUE(kelvish::WorkOff());
  EXPECT_GE(seen.size(), content.size());
  EXPECT_EQ(seen.find('x'), seen.npos) << "nothing of it is left on the disk";
  EXPECT_TRUE(computer.Exists("C:\\index.dat"));
  EXPECT_EQ(computer.ReadFile("C:\\index.dat"), "");
  EXPECT_EQ(computer.GetAttributes("C:\\index.dat") & platform::kReadOnly, platform::kReadOnly);
  EXPECT_EQ(computer.ReadFile("C:\\held\\index.dat"), content);
  EXPECT_EQ(IndexList(), "C:\\held\\index.dat\r\n");
}

TEST_F(KelvishTest, WhatIsHandedOverMeanwhileWaitsForTheNextStart) {
  test::SessionObjects session;
  m_Registry::ReadRegistrySettings();
  SetEraseOnBoot();
  computer.WriteFiles({"C:\\index.dat", "C:\\late.tmp", "C:\\late\\index.dat", "C:\\held.tmp"});
  Hold held(computer.Native("C:\\held.tmp"));
  HandIndex("C:\\index.dat\r\n");
  HandLocked("C:\\held.tmp\r\n");
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
  EXPECT_EQ(IndexList(), "C:\\late\\index.dat\r\n");
  EXPECT_EQ(LockedList(), "C:\\held.tmp\r\nC:\\late.tmp\r\nC:\\HELD.tmp\r\n");
  EXPECT_EQ(StartEntry(), Install("Kelvish.exe"));
  EXPECT_TRUE(kelvish::WorkOff());
  EXPECT_EQ(IndexList(), "");
  EXPECT_EQ(LockedList(), "C:\\held.tmp\r\n");
  EXPECT_FALSE(computer.Exists("C:\\late.tmp"));
  EXPECT_TRUE(computer.desktop.boxes.empty());
}

TEST_F(KelvishTest, AListLeftAsideIsWorkedOffWithTheNewOne) {
  computer.WriteFiles({"C:\\old.tmp", "C:\\held.tmp", "C:\\new.tmp"});
  Hold held(computer.Native("C:\\held.tmp"));
  computer.WriteFile(Install("Temp\\Locked Files in work.txt"),
                     "C:\\removed already.tmp\r\nC:\\old.tmp\r\nC:\\held.tmp\r\n");
  HandLocked("C:\\new.tmp\r\nC:\\Held.tmp\r\n");
  // A half-written file of a start that was cut short.
  computer.WriteFile(Install("Temp\\Locked Files.txt.1A2B3C.brasmir"), "C:\\hel");
  EXPECT_TRUE(kelvish::WorkOff());
  EXPECT_TRUE(computer.Left({"C:\\old.tmp", "C:\\new.tmp"}).empty());
  EXPECT_EQ(LockedList(), "C:\\held.tmp\r\n");
  EXPECT_EQ(TempFiles(), test::Strings{"Locked Files.txt"});
}

TEST_F(KelvishTest, AListThatCannotBeWrittenStaysAside) {
  computer.WriteFiles({"C:\\free.tmp", "C:\\held.tmp"});
  Hold held(computer.Native("C:\\held.tmp"));
  HandLocked("C:\\free.tmp\r\nC:\\held.tmp\r\n");
  {
    test::WatchedFiles faulty(computer.Machine());
    faulty.onWrite = [](const std::string&, std::size_t) { return platform::Status::Full; };
    EXPECT_FALSE(kelvish::WorkOff());
  }
  EXPECT_EQ(computer.ReadFile(Install("Temp\\Locked Files in work.txt")), "C:\\free.tmp\r\nC:\\held.tmp\r\n");
  EXPECT_EQ(StartEntry(), Install("Kelvish.exe"));
  EXPECT_TRUE(kelvish::WorkOff());
  EXPECT_EQ(LockedList(), "C:\\held.tmp\r\n");
  EXPECT_EQ(TempFiles(), test::Strings{"Locked Files.txt"});
}

TEST_F(KelvishTest, TheLogTellsEveryLineAndLiesOnTheDesktopToo) {
  const std::string desktop = computer.Profile() + "\\Desktop\\Kelvish Log.txt";
  HandLocked("C:\\gone.tmp\r\n");
  EXPECT_TRUE(kelvish::WorkOff());
  EXPECT_FALSE(computer.Exists(desktop)) << "nobody asked for it";

  computer.clock.Set({2026, 11, 18, 7, 5, 9});
  computer.SetValue(core::keys::kKelvish, "Log actions", "1");
  for (const char* file : {"C:\\free.tmp", "C:\\held.tmp", "C:\\index.dat"}) computer.WriteFile(file);
  computer.MakeFolder("C:\\folder");
  computer.MakeLink("C:\\link", "C:\\folder");
  Hold held(computer.Native("C:\\held.tmp"));
  HandLocked("C:\\free.tmp\r\nC:\\held.tmp\r\nC:\\gone.tmp\r\nC:\\folder\r\nC:\\link\r\nfree.tmp\r\nC:\\to");
  HandIndex("C:\\index.dat\r\n");
  EXPECT_TRUE(kelvish::WorkOff());
  const std::string log = computer.ReadFile(desktop);
  EXPECT_EQ(log, computer.ReadFile(Install("Reports\\Kelvish Log.txt")));
  EXPECT_EQ(test::LinesOf(log),
            (test::Strings{
                "Kelvish log, 11/18/2026 07:05:09", "",
                "Files that were in use:", "Left alone, can't be read: C:\\to", "Removed: C:\\free.tmp",
                "Still in use, stays in the list: C:\\held.tmp", "Not there any more: C:\\gone.tmp",
                "Left alone, is a folder: C:\\folder", "Left alone, is a link or lies behind one: C:\\link",
                "Left alone, is no full path of a file: free.tmp", "Lines: 6, for the next start: 1", "",
                "Index files:", "Emptied: C:\\index.dat", "Lines: 1, for the next start: 0"}));
}

TEST_F(KelvishTest, StandsAsideForAnotherOne) {
  auto other = computer.AnotherMachine();
  ASSERT_TRUE(other->GetProcesses().ClaimInstance("Kelvish"));
  computer.WriteFile("C:\\free.tmp");
  HandLocked("C:\\free.tmp\r\n");
  EXPECT_TRUE(kelvish::WorkOff());
  EXPECT_TRUE(computer.Exists("C:\\free.tmp"));
  other.reset();
  EXPECT_TRUE(kelvish::WorkOff());
  EXPECT_FALSE(computer.Exists("C:\\free.tmp"));
}
