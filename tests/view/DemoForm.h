// A window with one control of each kind, for the tests of the view.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "controls/Form.h"
#include "play/Driver.h"
#include "view/FormWindow.h"
#include "view/Screen.h"

struct DemoForm : controls::Form {
  CONTROL(Panel, menu);
  CONTROL_ARRAY(Label, entry, 0, 1, 2);
  CONTROL(Frame, first);
  CONTROL(Frame, second);
  CONTROL(Button, run);
  CONTROL(Button, other);
  CONTROL(Button, preset);
  CONTROL(CheckBox, check);
  CONTROL(TextBox, text);
  CONTROL(ComboBox, combo);
  CONTROL(SpinBox, spin);
  CONTROL(Label, link);
  CONTROL(Label, status);
  CONTROL(Label, value);
  CONTROL(ProgressBar, bar);
  CONTROL(ListView, list);
  CONTROL(Button, remove);
  CONTROL(Button, away);
  controls::Timer timer;

  DemoForm() : Form("DemoForm") {
    using namespace controls;
    Caption = "Demo";
    DefaultWidth = 700;
    DefaultHeight = 520;
    for (int i : entry.Indices()) {
      entry[i].Caption = "Entry " + std::to_string(i);
      entry[i].Style = LabelStyle::MenuEntry;
      entry[i].BackColor = Rgb(249, 249, 249);
      entry[i].ForeColor = Rgb(0, 0, 128);
    }
    run.Caption = "Run";
    other.Caption = "Other";
    preset.Caption = "Preset";
    preset.Default = true;
    check.Caption = "Check";
    link.Caption = "A link";
    link.Style = LabelStyle::Link;
    status.Style = LabelStyle::Status;
    status.Caption = "Ready";
    value.Style = LabelStyle::Value;
    value.Caption = "0";
    list.Columns = {{"Name", 120}, {"Path", 160, true}};
    list.CheckBoxes = true;
    list.EmptyText = "Nothing yet";
    list.DeletePresses = &remove;
    remove.Caption = "Remove";
    away.Caption = "Away";
    spin.Max = 9;
    combo.AddItem("one");
    combo.AddItem("two");
    combo.AddItem("three");
    Timers.push_back(&timer);
    std::vector<Layout> entries;
    for (int i : entry.Indices()) entries.push_back(Item(entry[i]).Expand().Min(0, 40));
    Layout page = Column({Text("A heading", LabelStyle::Heading), Row({run, other, preset}), check,
                          Row({Item(text).Stretch(), combo, spin}), link,
                          Row({Item(bar).Stretch(), Item(value).Min(48), remove}), Item(status).Expand(),
                          Item(list).Stretch().Min(0, 120)})
                      .Padding(16);
    SetLayout(
        Row({Contain(menu, Column(std::move(entries)).Gap(0)).Expand().Min(120),
             Stack({Contain(first, std::move(page)), Contain(second, Column({away}).Padding(16))}).Stretch()})
            .Gap(0));
  }

  // Shows the window and waits until it is the active one and rests.
  void Open() {
    platform::CurrentDesktop().Show(*this);
    play::driver::Stillness still;
    play::driver::WaitFor(
        [&] { return still.Reached(play::driver::Find(other.Name())) && Window().IsActive(); });
  }
  view::FormWindow& Window() { return *view::Screen::Current()->WindowOf(*this); }
  ~DemoForm() override { platform::CurrentDesktop().Forget(*this); }
};
