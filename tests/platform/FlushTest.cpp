// What is written is on the disk before anything relies on it.
#include "PlatformTest.h"
#include "platform/LibEraser.h"
#include "platform/TextFile.h"
#include "support/WatchedFiles.h"

namespace test {

class FlushTest : public PlatformTest {};

TEST_F(FlushTest, ComesBehindTheLastWriteAndBeforeTheNextStep) {
  const Strings pass = {"write", "flush"};
  Strings erased = {"rename"};
  for (int i = 0; i < 35; ++i) erased.insert(erased.end(), pass.begin(), pass.end());
  for (const char* step : {"truncate", "remove"}) erased.push_back(step);
  const struct {
    void (*act)();
    Strings steps;
  } cases[] = {
      {[] { platform::WriteTextFile("C:\\a", {"line"}); }, {"write", "flush", "rename", "flush folder"}},
      {[] { platform::AppendTextLine("C:\\a", "line"); }, pass},
      // More passes than there are.
      {[] { platform::LibEraser().EraseFile("C:\\a", 100, 1); }, erased},
  };
  for (const auto& each : cases) {
    computer.WriteFile("C:\\a", "content\r\n");
    WatchedFiles watched(computer.Machine());
    each.act();
    EXPECT_EQ(watched.steps, each.steps);
  }
}

TEST_F(FlushTest, WhatFailsMidwayIsTakenBack) {
  computer.WriteFile("C:\\a", "content\r\n");
  WatchedFiles watched(computer.Machine());
  watched.onWrite = [&](const std::string&, std::size_t bytes) {
    // Half of it is on the disk by then.
    computer.WriteFile("C:\\a", "content\r\n" + std::string(bytes / 2, 'x'));
    return platform::Status::Full;
  };
  EXPECT_THROW(platform::AppendTextLine("C:\\a", std::string(100, 'y')), platform::RuntimeError);
  EXPECT_EQ(computer.ReadFile("C:\\a"), "content\r\n");
  // The first pass has filled the cluster, the second one fails.
  int writes = 0;
  watched.onWrite = [&](const std::string&, std::size_t) {
    return ++writes == 3 ? platform::Status::Full : platform::Status::Done;
  };
  EXPECT_EQ(platform::LibEraser().EraseFile("C:\\a", 2, 4096), 0);
  EXPECT_EQ(computer.ReadFile("C:\\a").size(), 9u);
}

}  // namespace test
