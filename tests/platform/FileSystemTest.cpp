// The primitives that the operations are made of, where the operations' tests don't reach them.
#include "PlatformTest.h"
#include "platform/FileSystem.h"

using namespace platform;

namespace test {

class FileSystemTest : public PlatformTest {
 protected:
  FileSystem& files = computer.Files();

  Status OpenStatus(const std::string& path, OpenMode mode) {
    Status status = Status::Failed;
    auto file = files.Open(path, mode, status);
    EXPECT_EQ(file != nullptr, status == Status::Done);
    return status;
  }
};

TEST_F(FileSystemTest, RenameKeepsWhatLiesThereUnlessToldOtherwise) {
  computer.WriteFile("C:\\T\\a", "a");
  computer.WriteFile("C:\\T\\B", "b");
  computer.MakeFolder("C:\\T\\sub");
  for (auto [from, to, replace, status] : {std::tuple{"C:\\T\\a", "C:\\T\\b", false, Status::Exists},
                                           {"C:\\T\\none", "C:\\T\\c", true, Status::Missing},
                                           {"C:\\T\\a", "C:\\none\\a", true, Status::Missing},
                                           {"C:\\T\\a", "C:\\T\\sub", true, Status::Refused},
                                           {"C:\\T\\a", "D:\\a", true, Status::Refused},
                                           {"C:\\T\\a", "", true, Status::Refused},
                                           {"C:\\", "C:\\x", true, Status::Refused}})
    EXPECT_EQ(files.Rename(from, to, replace), status) << from << " " << to;
  {
    LockHolder holder(computer.Native("C:\\T\\B"), LockKind::Flock);
    EXPECT_EQ(files.Rename("C:\\T\\a", "C:\\T\\b", true), Status::Locked);
    EXPECT_EQ(files.Rename("C:\\T\\b", "C:\\T\\c", true), Status::Locked);
  }
  computer.SetAttributes("C:\\T\\B", 33);
  EXPECT_EQ(files.Rename("C:\\T\\a", "C:\\T\\b", true), Status::Denied);
  computer.SetAttributes("C:\\T\\B", 32);
  EXPECT_EQ(files.Rename("C:\\T\\a", "C:\\T\\b", true), Status::Done);
  EXPECT_EQ(computer.ReadFile("C:\\T\\B"), "a");
  // A folder moves with what is in it, and is found in its new place at once.
  computer.WriteFile("C:\\T\\sub\\in");
  EXPECT_EQ(files.Look("C:\\T\\sub\\in").kind, EntryKind::File);
  EXPECT_EQ(files.Rename("C:\\T\\sub", "C:\\Moved", false), Status::Done);
  EXPECT_EQ(files.Look("C:\\T\\sub\\in").kind, EntryKind::Missing);
  EXPECT_EQ(files.Look("C:\\Moved\\in").kind, EntryKind::File);
}

TEST_F(FileSystemTest, RenameChangesANamesCapitals) {
  computer.WriteFile("C:\\T\\B", "b");
  EXPECT_EQ(files.Rename("C:\\t\\b", "C:\\T\\b", false), Status::Done);
  EXPECT_EQ(computer.List("C:\\T"), Strings{"b"});
}

TEST_F(FileSystemTest, OpenModes) {
  computer.WriteFile("C:\\T\\a", "old");
  struct Case {
    OpenMode mode;
    Status missing, file, readOnly;
  };
  const Case cases[] = {{OpenMode::Read, Status::Missing, Status::Done, Status::Done},
                        {OpenMode::Modify, Status::Missing, Status::Done, Status::Denied},
                        {OpenMode::CreateNew, Status::Done, Status::Exists, Status::Exists},
                        {OpenMode::Append, Status::Done, Status::Done, Status::Denied},
                        {OpenMode::CreateOrEmpty, Status::Done, Status::Done, Status::Denied}};
  for (const Case& c : cases) {
    SCOPED_TRACE(static_cast<int>(c.mode));
    EXPECT_EQ(OpenStatus("C:\\T\\none", c.mode), c.missing);
    computer.Remove("C:\\T\\none");
    computer.SetAttributes("C:\\T\\a", 33);
    EXPECT_EQ(OpenStatus("C:\\T\\A", c.mode), c.readOnly);
    computer.SetAttributes("C:\\T\\a", 32);
    EXPECT_EQ(computer.ReadFile("C:\\T\\a"), "old");
    EXPECT_EQ(OpenStatus("C:\\T\\A", c.mode), c.file);
    EXPECT_EQ(OpenStatus("C:\\none\\x", c.mode), Status::Missing);
    EXPECT_EQ(OpenStatus("C:\\T", c.mode), c.mode == OpenMode::CreateNew ? Status::Exists : Status::Refused);
  }
  EXPECT_EQ(computer.ReadFile("C:\\T\\a"), "") << "emptied by the last";
  EXPECT_EQ(computer.List("C:\\T"), Strings{"a"});
}

TEST_F(FileSystemTest, ReadsAndWritesAtAnyPlace) {
  Status status;
  auto file = files.Open("C:\\data.bin", OpenMode::CreateNew, status);
  ASSERT_EQ(status, Status::Done);
  auto bytes = [](std::string_view text) { return std::as_bytes(std::span(text.data(), text.size())); };
  EXPECT_EQ(file->Write(3, bytes("def")), Status::Done);
  EXPECT_EQ(file->Write(0, bytes("abc")), Status::Done);
  EXPECT_EQ(file->Truncate(5), Status::Done);
  EXPECT_EQ(file->Flush(), Status::Done);
  EXPECT_EQ(file->Size(), 5u);
  std::byte buffer[10];
  EXPECT_EQ(file->Read(1, buffer), 4u);
  EXPECT_EQ(file->Read(5, buffer), 0u);
  EXPECT_EQ(computer.ReadFile("C:\\data.bin"), "abcde");
  EXPECT_EQ(files.FlushFolder("C:\\"), Status::Done);
  EXPECT_EQ(files.FlushFolder("C:\\none"), Status::Missing);
}

TEST_F(FileSystemTest, TimesAreSetAsGiven) {
  computer.WriteFile("C:\\T\\a");
  EntryInfo before = files.Look("C:\\T\\a");
  Moment modified = 1'000'000'000'123'456'700, early = -86'400'000'000'000 + 500;
  EXPECT_EQ(files.SetTimes("C:\\T\\A", {}, {}, modified), Status::Done);
  EXPECT_EQ(files.Look("C:\\T\\a").modified, modified);
  EXPECT_EQ(files.Look("C:\\T\\a").accessed, before.accessed);
  EXPECT_EQ(files.SetTimes("C:\\T\\a", {}, early, {}), Status::Done);
  EXPECT_EQ(files.Look("C:\\T\\a").accessed, early);
  EXPECT_EQ(files.Look("C:\\T\\a").modified, modified);
  EXPECT_EQ(files.SetTimes("C:\\T\\none", {}, {}, modified), Status::Missing);
}

TEST_F(FileSystemTest, AVisitorMayEndItsWalk) {
  for (int i = 0; i < 10; ++i) computer.WriteFile("C:\\T\\" + std::to_string(i) + "\\file");
  struct : TreeVisitor {
    bool Folder(std::string_view) override { return ++folders <= 3; }
    bool Entry(std::string_view, EntryKind, std::uint64_t) override { return true; }
    int folders = 0;
  } visitor;
  EXPECT_EQ(files.Walk("C:\\T", {}, visitor), Status::Done);
  EXPECT_EQ(visitor.folders, 4);
}

}  // namespace test
