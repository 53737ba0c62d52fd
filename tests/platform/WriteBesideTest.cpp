#include "PlatformTest.h"
#include "platform/WriteBeside.h"
#include "support/WatchedFiles.h"

using platform::Status;
using platform::WriteBeside;

namespace test {

class WriteBesideTest : public PlatformTest {
 protected:
  static std::span<const std::byte> Bytes(std::string_view text) {
    return std::as_bytes(std::span(text.data(), text.size()));
  }
  // Writes "new" in two pieces over what is at `path`.
  Status Write(const std::string& path, bool replace = true) {
    WriteBeside file(platform::CurrentMachine().Files(), path);
    file.Append(Bytes("ne"));
    file.Append(Bytes("w"));
    return file.Finish(replace);
  }
};

TEST_F(WriteBesideTest, TheTargetIsReplacedAsAWholeOrStays) {
  const std::string target = "C:\\T\\a.txt", fresh = "C:\\T\\" + std::string(240, 'n');
  computer.WriteFile(target, "old");
  computer.WriteFile("C:\\T\\read only", "old");
  computer.SetAttributes("C:\\T\\read only", 33);
  computer.MakeFolder("C:\\T\\folder");
  EXPECT_EQ(Write(target, false), Status::Exists);
  EXPECT_EQ(Write("C:\\T\\read only"), Status::Denied);
  EXPECT_EQ(Write("C:\\T\\folder"), Status::Refused);
  EXPECT_EQ(Write("C:\\none\\a"), Status::Missing);
  EXPECT_EQ(computer.ReadFile(target), "old");
  EXPECT_EQ(Write(target), Status::Done);
  EXPECT_EQ(Write(fresh, false), Status::Done);
  EXPECT_EQ(computer.ReadFile(target) + computer.ReadFile(fresh), "newnew");
  { WriteBeside abandoned(computer.Files(), target); }
  EXPECT_EQ(computer.List("C:\\T"), (Strings{"a.txt", "folder", fresh.substr(5), "read only"}));
}

TEST_F(WriteBesideTest, NothingIsPutInPlaceAfterAFailure) {
  computer.WriteFile("C:\\T\\a.txt", "old");
  WatchedFiles faulty(computer.Machine());
  faulty.onWrite = [](const std::string&, std::size_t bytes) {
    return bytes == 2 ? Status::Full : Status::Done;
  };
  EXPECT_EQ(Write("C:\\T\\a.txt"), Status::Full);
  faulty.onWrite = nullptr;
  faulty.onRename = [&](std::string_view, std::string_view) {
    EXPECT_EQ(faulty.flushes, 1) << "it has to lie on the disk first";
    return Status::Locked;
  };
  EXPECT_EQ(Write("C:\\T\\a.txt"), Status::Locked);
  EXPECT_EQ(computer.ReadFile("C:\\T\\a.txt"), "old");
  EXPECT_EQ(computer.List("C:\\T"), Strings{"a.txt"});
}

TEST_F(WriteBesideTest, LeftoversOfAKillGoAndNothingElse) {
  const std::string lengthy = "~" + std::string(210, 'n');
  const Strings kept = {"a.txt", "a.txt.1A2B3.brasmir", "a.txt.1a2b3c.brasmir", "b.txt.1A2B3C.brasmir"};
  for (const std::string& name : kept) computer.WriteFile("C:\\T\\" + name);
  computer.WriteFile("C:\\T\\a.txt.1A2B3C.brasmir");
  computer.WriteFile("C:\\T\\sub\\a.txt.1A2B3C.brasmir");
  WriteBeside killed(computer.Files(), "C:\\T\\" + lengthy);
  killed.Keep();
  for (const std::string& target : {std::string("a.txt"), lengthy})
    WriteBeside::RemoveLeftovers(computer.Files(), "C:\\T\\" + target);
  Strings left = kept;
  left.push_back("sub");
  EXPECT_EQ(computer.List("C:\\T"), left);
  EXPECT_EQ(computer.List("C:\\T\\sub"), Strings{"a.txt.1A2B3C.brasmir"});
}

}  // namespace test
