// A computer with the main window's screens, and the text of a plug-in file from its rules.
#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "plugins/PlugInMaker.h"
#include "plugins/PlugInsPage.h"
#include "settings/m_Registry.h"
#include "settings/m_RegistryLists.h"
#include "support/Session.h"

namespace test {

struct Rules {
  Strings files, folders, keys, values;
};

class PlugInTest : public testing::Test {
 protected:
  PlugInTest() {
    m_Registry::ReadRegistrySettings();
    WirePlugIns(form);
    core::SetMainForm(&form);
    form.ShowPage(form.fraPlugIns);
  }

  static std::string PlugInPath(const std::string& category, const std::string& name) {
    return TestComputer::InstallDirectory() + "PlugIns\\" + category + "\\" + name + ".plg";
  }

  static std::string FileText(const std::string& category, const std::string& name, const Rules& rules) {
    std::string text = "[Plug-In Name]\r\n" + name +
                       "\r\n\r\n[Plug-In Description]\r\nTells nothing\r\n\r\n" + "[Plug-In Category]\r\n" +
                       category + "\r\n\r\n[File Rules]\r\n";
    auto add = [&text](const Strings& lines) {
      for (const std::string& line : lines) text += line + "\r\n";
    };
    add(rules.files);
    text += "\r\n[Folder Rules]\r\n";
    add(rules.folders);
    text += "\r\n[Registry Key Rules]\r\n";
    add(rules.keys);
    text += "\r\n[Registry Value Rules]\r\n";
    add(rules.values);
    return text;
  }

  // Writes the file, loads the catalogue, ticks all and runs; every question is answered Yes.
  void Run(const Rules& rules) { RunText(FileText("Viewers", "Old Viewer", rules)); }
  void RunText(const std::string& text) {
    computer.WriteFile(PlugInPath("Viewers", "Old Viewer"), text);
    m_Registry::AssignPlugIns(form);
    form.lvwPlugInLists.CheckAll(true);
    computer.desktop.AnswerAlways("Execute Plug-In Files", platform::BoxAnswer::Yes);
    form.cmdRunPlugIns.Click();
  }
  int Reports() const { return computer.desktop.CountBoxes("Plug-In File not configured correctly"); }

  TestComputer computer;
  frmMain form;
  SessionObjects session;
};

}  // namespace test
