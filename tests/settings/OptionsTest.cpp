// The options between the store, the cache and their controls.
#include <map>

#include "SettingsFixture.h"
#include "platform/LibRegistry.h"

namespace {

using R = c_Registry;
using F = frmMain;
using namespace core::keys;

class OptionsTest : public SettingsFixture {
 protected:
  // A digit for each box.
  std::string Ticked(std::initializer_list<controls::CheckBox*> boxes) {
    std::string values;
    for (controls::CheckBox* box : boxes) values += std::to_string(box->Value);
    return values;
  }
  std::map<std::string, std::string> AllStored() {
    std::map<std::string, std::string> all;
    for (const settings::Setting& setting : settings::AllSettings())
      all[std::string(setting.key) + "|" + setting.name] = computer.GetValue(setting.key, setting.name);
    return all;
  }
};

TEST_F(OptionsTest, EachControlShowsAndSavesItsOwnSetting) {
  // Without handlers, so that no row changes another.
  frmMain plain;
  for (const settings::Option& option : settings::AllOptions()) {
    if (!option.property) continue;
    bool spin = std::holds_alternative<controls::SpinBox F::*>(option.control);
    for (const settings::Option& other : settings::AllOptions())
      if (other.property) Store(other.property, "0");
    Store(&R::ErasePassesBrsm, "1");
    Store(&R::ErasePassesLmro, "1");
    Store(option.property, spin ? "7" : "1");
    ASSERT_TRUE(m_Registry::ReadRegistrySettings());
    m_Registry::AssignOptionSettings(plain);
    for (const settings::Option& other : settings::AllOptions()) {
      if (auto* box = std::get_if<controls::CheckBox F::*>(&other.control)) {
        EXPECT_EQ((plain.**box).Value, &other == &option ? 1 : 0) << (plain.**box).Name();
      } else {
        auto& passes = plain.*std::get<controls::SpinBox F::*>(other.control);
        EXPECT_EQ(passes.Value, &other == &option ? 7 : 1) << passes.Name();
      }
    }
    Store(option.property, "?");
    m_Registry::SaveOptionSettings(plain);
    EXPECT_EQ(Stored(option.property), spin ? "7" : "1");
  }
  EXPECT_TRUE(computer.desktop.boxes.empty());
}

TEST_F(OptionsTest, TheNamesThatAreEasilyMistakenAreTheStoresOwn) {
  const std::string lumaro = std::string(kBrasmir) + "\\Lumaro";
  computer.SetValue(lumaro + "\\Advanced", "Move files to recycle bin ", "0");
  computer.SetValue(lumaro + "\\Advanced", "Delete files", "1");
  platform::LibRegistry().WriteValue(R::HKEY_CURRENT_USER, std::string(kBrasmir) + "\\Backup\\",
                                     "Use Backup Lumaro", "1");
  computer.SetValue(std::string(kBrasmir) + "\\INCLUDE", "ZERO BYTE FILES", "1");
  computer.SetValue(lumaro + "\\Directories", "Recycle bin", "1");
  Fill();
  EXPECT_EQ(Ticked({&form.chkRecycleBinAdvancedLumaro, &form.chkDeleteFilesAdvancedLumaro,
                    &form.chkUseBackupAdvancedLumaro, &form.chkUseBackupCleaningBrasmir,
                    &form.chkZeroByteFilesIncludeBrasmir, &form.chkEmptyRecycleBinOptionsLumaro}),
            "011011");
  form.chkRecycleBinAdvancedLumaro.Value = 1;
  m_Registry::SaveOptionSettings(form);
  EXPECT_EQ(computer.GetValue(lumaro + "\\Advanced", "Move files to recycle bin "), "1");
  EXPECT_FALSE(computer.HasValue(lumaro + "\\Advanced", "Move files to recycle bin"));
}

TEST_F(OptionsTest, TheCacheTakesWhatIsThereAndEndsPathsInOneBackslash) {
  computer.SetValue(kTidorra, "Install Directory", "C:\\Program Files\\Tidorra");
  computer.RemoveValue(kCleaning, "Erase passes");
  ASSERT_TRUE(m_Registry::ReadRegistrySettings());
  EXPECT_EQ(gRegistry->InstallDirectory, "C:\\Program Files\\Tidorra\\");
  EXPECT_EQ(gRegistry->PathProgramFiles, "C:\\Program Files\\");
  EXPECT_EQ(gRegistry->ErasePassesBrsm, "");
  EXPECT_EQ(gRegistry->ConfirmCleaningBrsm, "1");
}

TEST_F(OptionsTest, AStoreThatFailsMidwayLeavesWhatWasReadAndSaysNothing) {
  ASSERT_TRUE(m_Registry::ReadRegistrySettings());
  Store(&R::ConfirmCleaningBrsm, "0");
  Store(&R::WeekSch, "Every second Week");
  test::FaultyMachine faulty(computer.Machine());
  faulty.registry.raiseOnRead = [](std::string_view key, std::string_view) { return key == kSchedule; };
  EXPECT_FALSE(m_Registry::ReadRegistrySettings());
  EXPECT_EQ(gRegistry->ConfirmCleaningBrsm, "0");
  EXPECT_EQ(gRegistry->WeekSch, "Every Week");
  EXPECT_TRUE(computer.desktop.boxes.empty());
}

TEST_F(OptionsTest, OfContradictingMethodsTheOneFilledLastStays) {
  for (auto setting : {&R::DeleteFilesBrsm, &R::MoveFilesToRecyclebinBrsm, &R::DeleteFilesLmro,
                       &R::MoveFilesToRecyclebinLmro, &R::EraseFilesLmro,
                       &R::BrokenShortCutsIncludeAllUsersBrsm, &R::BrokenShortCutsScanAllDriveBrsm})
    Store(setting, "1");
  computer.SetValue(kBrasmir, "Loading", "1");
  Fill();
  EXPECT_EQ(Ticked({&form.chkDeleteFilesCleaningBrasmir, &form.chkRecycleBinCleaningBrasmir}), "01");
  EXPECT_EQ(Ticked({&form.chkDeleteFilesAdvancedLumaro, &form.chkRecycleBinAdvancedLumaro,
                    &form.chkEraseFilesAdvancedLumaro}),
            "001");
  EXPECT_EQ(Ticked({&form.chkScanEntireDriveBrokenShortcutsIncludeBrasmir,
                    &form.chkScanAllUsersProfileIncludeBrasmir}),
            "10");
  m_Registry::SaveOptionSettings(form);
  EXPECT_EQ(Stored(&R::DeleteFilesBrsm) + Stored(&R::MoveFilesToRecyclebinBrsm), "01");
  EXPECT_EQ(Stored(&R::MoveFilesToRecyclebinLmro) + Stored(&R::EraseFilesLmro), "01");
  EXPECT_TRUE(computer.desktop.boxes.empty());

  // None of them is forced either.
  Store(&R::MoveFilesToRecyclebinBrsm, "0");
  Fill();
  EXPECT_EQ(form.chkRecycleBinCleaningBrasmir.Value, 0);
}

TEST_F(OptionsTest, AFailedFillNeverReachesTheStore) {
  // The fourth row is ticked and so unticks the fifth, which is the one that fails.
  Store(&R::EraseFilesBrsm, "often");
  Store(&R::ErasePassesLmro, "9");
  for (auto behind : {&R::IncludeZeroByteFilesBrsm, &R::CleanOnWindowsStartupLmro, &R::DeleteBackupFiles})
    Store(behind, "1");
  auto before = AllStored();
  Fill();
  ASSERT_EQ(computer.desktop.boxes.size(), 1u);
  EXPECT_EQ(computer.desktop.boxes[0],
            test::Report("m_Registry", "AssignOptionSettings", "Arguments: frmMain ", "Type mismatch", 13));
  m_Registry::SaveOptionSettings(form);
  EXPECT_EQ(AllStored(), before);

  // What a handler sets to what it is says nothing about it.
  form.chkCleanOnWindowsStartupAdvancedLumaro.Value = 0;
  m_Registry::SaveOptionSettings(form);
  EXPECT_EQ(AllStored(), before);

  // The rows before the failure are the user's, and so is what the user changes behind it.
  form.chkConfirmCleaningCleaningBrasmir.Value = 0;
  form.chkEraseFilesCleaningBrasmir.Value = 1;
  form.spnEraseTimesAdvancedLumaro.Value = 4;
  form.chkHistoryOptionsLumaro.Value = 1;
  form.chkHistoryOptionsLumaro.Value = 0;
  Store(&R::ClearHistoryLmro, "1");
  m_Registry::SaveOptionSettings(form);
  const std::pair<std::string R::*, const char*> expected[] = {
      {&R::ConfirmCleaningBrsm, "0"},       {&R::EraseFilesBrsm, "1"},   {&R::MoveFilesToRecyclebinBrsm, "0"},
      {&R::ErasePassesLmro, "4"},           {&R::ClearHistoryLmro, "0"}, {&R::IncludeZeroByteFilesBrsm, "1"},
      {&R::CleanOnWindowsStartupLmro, "1"}, {&R::DeleteBackupFiles, "1"}};
  for (auto [property, data] : expected)
    EXPECT_EQ(Stored(property), data) << settings::SettingOf(property).name;
}

TEST_F(OptionsTest, OptionsThatWereNeverFilledAreNotSaved) {
  auto before = AllStored();
  m_Registry::SaveOptionSettings(form);
  EXPECT_EQ(AllStored(), before);
  EXPECT_EQ(computer.GetValue(kTidorra, "Last used"), "03/31/2026");
}

TEST_F(OptionsTest, ValuesThatNoControlHoldsAreRefusedOrBrought) {
  Store(&R::ErasePassesBrsm, "100");
  Store(&R::ConfirmCleaningBrsm, " 1.0 ");
  Fill();
  EXPECT_EQ(form.spnEraseTimesCleaningBrasmir.Value, 35);
  EXPECT_EQ(form.chkConfirmCleaningCleaningBrasmir.Value, 1);
  EXPECT_TRUE(computer.desktop.boxes.empty());
  Store(&R::ConfirmCleaningBrsm, "2");
  Fill();
  EXPECT_EQ(computer.desktop.CountBoxes("Description: Invalid property value\r\nError number: 380"), 1);
  EXPECT_EQ(form.chkConfirmCleaningCleaningBrasmir.Value, 1);
}

TEST_F(OptionsTest, ThePageFileIsWindowsOwnAndADWord) {
  constexpr char kName[] = "ClearPageFileAtShutdown";
  Fill();
  EXPECT_EQ(form.chkCleanPageFileAdvancedLumaro.Value, 0);
  computer.Registry().Write(platform::kLocalMachine, kMemoryManagement, kName,
                            {platform::ValueType::DWord, {}, 1});
  Fill();
  EXPECT_EQ(form.chkCleanPageFileAdvancedLumaro.Value, 1);
  form.chkCleanPageFileAdvancedLumaro.Value = 0;
  m_Registry::SaveOptionSettings(form);
  auto value = computer.Registry().Read(platform::kLocalMachine, kMemoryManagement, kName);
  EXPECT_EQ(value.type, platform::ValueType::DWord);
  EXPECT_EQ(value.number, 0u);
}

TEST_F(OptionsTest, ASaveIsOneTransactionInTheOrderOfTheTableAndSilentWhenItFails) {
  Fill();
  test::FaultyMachine faulty(computer.Machine());
  m_Registry::SaveOptionSettings(form);
  EXPECT_EQ(faulty.registry.transactions, 1);
  auto& writes = faulty.registry.writes;
  ASSERT_EQ(writes.size(), 44u);
  EXPECT_EQ(writes[0], std::string(kTidorra) + "|Last used");
  EXPECT_EQ(writes[7], std::string(kCleaning) + "|Move files To Recycle bin");
  EXPECT_EQ(writes[40], std::string(kMemoryManagement) + "|ClearPageFileAtShutdown");
  EXPECT_EQ(writes[43], std::string(kSchedule) + "|Create report");

  faulty.registry.refuseWrite = [](std::string_view, std::string_view) { return 5; };
  faulty.registry.commitCode = 5;
  m_Registry::SaveOptionSettings(form);
  EXPECT_TRUE(computer.desktop.boxes.empty());
}

}  // namespace
