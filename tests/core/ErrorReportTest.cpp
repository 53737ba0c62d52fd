// The uniform report, the guard round a procedure, and runs.
#include <gtest/gtest.h>

#include "core/ErrorReport.h"
#include "core/Run.h"
#include "platform/RuntimeError.h"
#include "support/Session.h"

namespace {

using core::Args;
using core::Guarded;
using core::Procedure;
using core::Value;

class ErrorReportTest : public ::testing::Test {
 protected:
  test::TestComputer computer{{.layout = false}};
  test::Strings& Boxes() { return computer.desktop.boxes; }
};

TEST_F(ErrorReportTest, TellsEachKindOfArgumentInItsForm) {
  auto fail = [] { throw platform::TypeMismatch(); };
  const std::string key = "Software\\x";
  const double passes = 2.5;
  const short number = 3;
  const bool flag = true;
  Guarded({"m_X", "One"}, Args(), fail);
  Guarded({"m_X", "Two"}, Args(core::Object{"frmMain"}, core::Array{"sFiles()"}), fail);
  Guarded(
      {"m_X", "Three"},
      Args(Value("sSubKey1", key), Value("dPasses", passes), Value("iIndex", number), Value("bForce", flag)),
      fail);
  Guarded({"frmX", "Form_Load"}, Args(core::BuiltIn{}), fail);
  Guarded({"frmX", "Form_Unload"}, Args(core::BuiltIn{"Built In"}), fail);
  Guarded({"m_X", "Four", "Tidorra (Valdrin)...Error"}, Args(), [] { throw platform::InputPastEnd(); });
  auto report = [](const char* module, const char* procedure, const std::string& arguments) {
    return test::Report(module, procedure, arguments, "Type mismatch", 13);
  };
  EXPECT_EQ(
      Boxes(),
      (test::Strings{report("m_X", "One", "Arguments: None "),
                     report("m_X", "Two", "Arguments: frmMain \r\nArguments: sFiles() "),
                     report("m_X", "Three",
                            "Arguments: sSubKey1 = Value Software\\x\r\nArguments: dPasses = Value 2.5\r\n"
                            "Arguments: iIndex = Value 3\r\nArguments: bForce = Value True"),
                     report("frmX", "Form_Load", "Arguments: Built in "),
                     report("frmX", "Form_Unload", "Arguments: Built In "),
                     "critical|Tidorra (Valdrin)...Error|There has been raised an error: \r\nModule: m_X\r\n"
                     "Procedure: Four \r\nArguments: None \r\nDescription: Input past end of file\r\n"
                     "Error number: 62"}));
}

TEST_F(ErrorReportTest, AFailureGivesTheDefaultOfTheTypeAndTheCallerGoesOn) {
  auto number = Guarded({"m_X", "F"}, Args(), []() -> int { throw platform::Overflow(); });
  auto text = Guarded({"m_X", "G"}, Args(), []() -> std::string { throw std::bad_alloc(); });
  auto truth = Guarded({"m_X", "H"}, Args(), []() -> bool { throw std::logic_error("inside"); });
  EXPECT_EQ(number, 0);
  EXPECT_EQ(text, "");
  EXPECT_FALSE(truth);
  bool cleared = false;
  Guarded(
      {"m_X", "I"}, Args(), [] { throw 42; }, [&] { cleared = true; });
  EXPECT_TRUE(cleared);
  cleared = false;
  EXPECT_EQ(Guarded(
                {"m_X", "J"}, Args(), [] { return 7; }, [&] { cleared = true; }),
            7);
  EXPECT_FALSE(cleared);
  ASSERT_EQ(Boxes().size(), 4u);
  EXPECT_NE(Boxes()[0].find("Description: Overflow\r\nError number: 6"), std::string::npos);
  EXPECT_NE(Boxes()[1].find("Description: Out of memory\r\nError number: 7"), std::string::npos);
  EXPECT_NE(Boxes()[2].find("Internal error: inside\r\nError number: 51"), std::string::npos);
  // The inner procedure's report is the only one.
  Boxes().clear();
  Guarded({"m_X", "Outer"}, Args(), [] {
    Guarded({"m_X", "Inner"}, Args(), [] { throw platform::FileNotFound(); });
  });
  ASSERT_EQ(Boxes().size(), 1u);
  EXPECT_NE(Boxes()[0].find("Procedure: Inner \r\n"), std::string::npos);
}

TEST_F(ErrorReportTest, OneFaultInAMillionFilesIsOneBoxOfARun) {
  auto strike = [](const char* procedure, platform::RuntimeError error) {
    Guarded({"m_X", procedure}, Args(), [&] { throw error; });
  };
  {
    core::Run run(core::Running::ScanLumaro, nullptr);
    for (int file = 0; file < 1000; ++file) strike("ValidateFile", platform::TypeMismatch());
    strike("ValidateFile", platform::Overflow());
    strike("IncludeZeroByteFile", platform::TypeMismatch());
    {
      core::Run inner(core::Running::ScanLumaro, nullptr);
      strike("ValidateFile", platform::TypeMismatch());
    }
    strike("ValidateFile", platform::TypeMismatch());
  }
  EXPECT_EQ(Boxes().size(), 3u);
  strike("ValidateFile", platform::TypeMismatch());
  strike("ValidateFile", platform::TypeMismatch());
  EXPECT_EQ(Boxes().size(), 5u) << "outside a run each one counts";
  core::Run next(core::Running::ScanLumaro, nullptr);
  strike("ValidateFile", platform::TypeMismatch());
  EXPECT_EQ(Boxes().size(), 6u) << "and the next run begins anew";
}

TEST_F(ErrorReportTest, WhatIsToFollowARunFollowsTheOutermostOne) {
  std::string order;
  EXPECT_FALSE(core::Run::OnStack());
  core::Run::Afterwards([&] { order += "at once,"; });
  {
    core::Run outer(core::Running::ScanLumaro, nullptr);
    {
      core::Run inner(core::Running::ScanLumaro, nullptr);
      core::Run::Afterwards([&] { order += core::Run::OnStack() ? "in a run" : "after"; });
    }
    EXPECT_TRUE(core::Run::OnStack());
    order += "still,";
  }
  EXPECT_EQ(order, "at once,still,after");
}

}  // namespace
