#include "PlatformTest.h"
#include "platform/LibRegistry.h"

using platform::kCurrentUser;
using platform::kLocalMachine;
using platform::LibRegistry;
using platform::RegistryTransaction;

namespace test {

class LibRegistryTest : public PlatformTest {
 protected:
  LibRegistry registry;
};

TEST_F(LibRegistryTest, ReadsAndWritesValuesWithoutRegardToCase) {
  EXPECT_EQ(registry.ReadValue(kCurrentUser, "Software\\Test", "Name"), "");
  EXPECT_EQ(registry.WriteValue(kCurrentUser, "Software\\Test\\", "Name ", "Straße \u20AC"), 0);
  EXPECT_EQ(registry.ReadValue(kCurrentUser, "SOFTWARE\\test", "name "), "Straße \u20AC");
  EXPECT_EQ(registry.ReadValue(kCurrentUser, "Software\\Test", "Name"), "");
  EXPECT_EQ(registry.ReadValue(kLocalMachine, "Software\\Test", "Name "), "");
  EXPECT_EQ(registry.DeleteValue(kCurrentUser, "Software\\Test\\", "NAME "), 0);
  EXPECT_EQ(registry.DeleteValue(kCurrentUser, "Software\\Test", "NAME "), 0);
  EXPECT_EQ(registry.ReadValue(kCurrentUser, "Software\\Test", "Name "), "");
}

TEST_F(LibRegistryTest, TypedValues) {
  const char* key = "System\\Test";
  EXPECT_EQ(registry.ReadTypedValue(kLocalMachine, key, "Flag"), 0);
  EXPECT_EQ(registry.WriteTypedValue(kLocalMachine, key, "Flag", "1", "REG_DWORD"), 0);
  EXPECT_EQ(computer.Registry().Read(kLocalMachine, key, "Flag").type, platform::ValueType::DWord);
  for (const char* text : {"", "x", "1x", "1.5", "4294967296", "-2147483649", "+-1"})
    EXPECT_NE(registry.WriteTypedValue(kLocalMachine, key, "Flag", text, "REG_DWORD"), 0) << text;
  EXPECT_NE(registry.WriteTypedValue(kLocalMachine, key, "Flag", "2", "REG_QWORD"), 0);
  EXPECT_EQ(registry.ReadTypedValue(kLocalMachine, key, "Flag"), 1);
  EXPECT_EQ(registry.WriteTypedValue(kLocalMachine, key, "Flag", "-1", "REG_DWORD"), 0);
  EXPECT_EQ(registry.ReadTypedValue(kLocalMachine, key, "Flag"), -1);
  EXPECT_EQ(registry.ReadValue(kLocalMachine, key, "Flag"), "4294967295");

  EXPECT_EQ(registry.WriteTypedValue(kLocalMachine, key, "Text", "42", "REG_SZ"), 0);
  EXPECT_EQ(registry.ReadTypedValue(kLocalMachine, key, "Text"), 42);
  registry.WriteValue(kLocalMachine, key, "Text", "many");
  EXPECT_EQ(registry.ReadTypedValue(kLocalMachine, key, "Text"), 0);
}

TEST_F(LibRegistryTest, EnumeratesByAppending) {
  platform::CountedList names;
  EXPECT_EQ(registry.EnumValues(kCurrentUser, "Software\\None", names), 0);
  EXPECT_TRUE(names.Empty());
  for (const char* name : {"zeta", "alpha", "Mid"})
    registry.WriteValue(kCurrentUser, "Software\\Test", name, "1");
  EXPECT_EQ(registry.EnumValues(kCurrentUser, "software\\test\\", names), 0);
  EXPECT_EQ(registry.EnumValues(kCurrentUser, "Software\\Test", names), 0);
  EXPECT_EQ(All(names), (Strings{"zeta", "alpha", "Mid", "zeta", "alpha", "Mid"}));
}

TEST_F(LibRegistryTest, RemovesNoWholeBranchOfTheRoot) {
  registry.WriteValue(kCurrentUser, "Software\\Maker\\Deep", "Name", "1");
  registry.WriteValue(kCurrentUser, "Software", "Name", "1");
  for (const char* key : {"", "\\", "Software", "Software\\", "Software\\\\", "\\Software",
                          "\\Software\\Maker", "Software\\\\Maker"}) {
    EXPECT_NE(registry.DeleteKey(kCurrentUser, key), 0) << key;
    EXPECT_NE(registry.DeleteAllValues(kCurrentUser, key), 0) << key;
  }
  EXPECT_EQ(registry.ReadValue(kCurrentUser, "Software\\Maker\\Deep", "Name"), "1");
  EXPECT_EQ(registry.ReadValue(kCurrentUser, "Software", "Name"), "1");

  registry.WriteValue(kCurrentUser, "Software\\Maker", "Name", "1");
  EXPECT_EQ(registry.DeleteAllValues(kCurrentUser, "Software\\Maker\\"), 0);
  EXPECT_EQ(registry.ReadValue(kCurrentUser, "Software\\Maker", "Name"), "");
  EXPECT_TRUE(computer.Registry().KeyExists(kCurrentUser, "Software\\Maker\\Deep"));
  EXPECT_EQ(registry.DeleteKey(kCurrentUser, "Software\\Maker\\"), 0);
  EXPECT_FALSE(computer.Registry().KeyExists(kCurrentUser, "Software\\Maker"));
  EXPECT_EQ(registry.DeleteKey(kCurrentUser, "Software\\Maker"), 0);
}

}  // namespace test
