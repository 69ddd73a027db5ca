// A form with one control of each kind, and scripts that depart from what happens to it: they are played on the form
// itself and on real windows. What goes as a script says is played by the sessions.
#pragma once

#include <stdexcept>

#include "platform/Controls.h"
#include "standins/play/Player.h"

namespace kestrune::play {

/// One control of each kind. cmdAsk asks a question, cmdInner opens the form again, cmdTell fails after it.
class frmSample : public Form {
 public:
  explicit frmSample(Desktop& desktop) : desktop_(desktop) {
    cmdOK.Click = [this] { Close(); };
    cmdAsk.Click = [this] {
      lblAnswer.SetCaption(
          desktop_.Show({.Body = u"Sure?\r\nReally?", .Buttons = Buttons::kYesNo}) == Answer::kYes ? u"yes"
                                                                                                   : u"no");
    };
    cmdEnter.Click = [this] { lblAnswer.SetCaption(desktop_.AskText(u"Name", u"?").value_or(u"nothing")); };
    cmdInner.Click = [this] {
      frmSample inner(desktop_);
      desktop_.ShowModal(inner);
      lblAnswer.SetCaption(u"back");
    };
    cmdMenu.Click = [this] { mnu.PopUp(cmdMenu); };
    mnuCut.Click = [this] { lblAnswer.SetCaption(u"cut"); };
    cmb.DropDown = [this] { cmb.SetItems({u"x", u"y"}); };
    Timer1.Tick = [this] {
      if (++ticks_ == 3) cmdLater.SetEnabled(true);
      if (ticks_ == 700) Close();
    };
  }
  TextView ClassName() const override { return u"frmSample"; }

  Button cmdOK{this, u"cmdOK"}, cmdAsk{this, u"cmdAsk"}, cmdEnter{this, u"cmdEnter"};
  Button cmdInner{this, u"cmdInner"}, cmdMenu{this, u"cmdMenu"}, cmdLater{this, u"cmdLater"};
  Label lblAnswer{this, u"lblAnswer"};
  TextBox txt{this, u"txt"}, txtHidden{this, u"txtHidden"};
  ListBox lst{this, u"lst"};
  ListView lv{this, u"lv"};
  ComboBox cmb{this, u"cmb"};
  MenuItem mnuCut{this, u"mnuCut"};
  Menu mnu{this, u"mnu", {&mnuCut}};
  Timer Timer1{this, u"Timer1"};

 private:
  void Form_Load() override {
    SetCaption(u"Sample");
    Timer1.Interval = 10;
    cmdLater.SetEnabled(false);
    txtHidden.SetVisible(false);
    for (const char16_t* line : {u"a", u"b"}) lst.AddItem(line);
    lv.SetColumns({u"Number", u"Name"});
    lv.SetRows({{u"1", u"one"}, {u"2", u"two"}, {u"3", u"three"}});
  }
  Desktop& desktop_;
  int ticks_ = 0;
};

/// The commands of the plays below.
inline std::vector<Command> SampleCommands(Desktop& desktop, bool& completed) {
  const auto open_form = [&](const Statement&) {
    completed = false;
    frmSample form(desktop);
    desktop.ShowModal(form);
    completed = true;
  };
  return {
      {u"open", open_form},
      {u"ask", [&](const Statement&) { desktop.Show({.Body = u"Hello"}); }},
      {u"break", [](const Statement&) { throw std::runtime_error("it broke"); }},
  };
}

inline Script SampleScript(const Text& source) {
  return ParseScript(u"x", source, {u"open", u"ask", u"break"});
}

struct Departure {
  const char16_t* script;  // after line 1, "open"
  const char* failure;
};
inline constexpr Departure kDepartures[] = {
    {u"", "x:1: frmSample (\"Sample\") opened, which the script does not expect: open"},
    {u"form frmOther", "x:2: frmSample (\"Sample\") opened: form frmOther"},
    {u"form frmSample", "x:2: the script ends while frmSample is open: form frmSample"},
    {u"form frmSample\nform frmSample", "x:3: no form has opened: form frmSample"},
    {u"form frmSample\nanswer OK \"x\"", "x:3: no message box has come: answer OK \"x\""},
    {u"form frmSample\ninput \"x\"", "x:3: no input box has come: input \"x\""},
    {u"form frmSample\nopen", "x:3: frmSample is still open: open"},
    {u"form frmSample\nclose\nform frmSample", "x:4: no form has opened: form frmSample"},
    {u"form frmSample\nclose\npress cmdOK", "x:4: no form is open: press cmdOK"},
    {u"form frmSample\nclose\nexpect txt \"\"", "x:4: no form is open: expect txt \"\""},
    {u"form frmSample\nclose\nbreak", "x:4: it broke: break"},
    {u"form frmSample\npress cmdAsk\nclose",
     "x:3: the message box \"Sure?\\nReally?\" came, which the script does not expect: press cmdAsk"},
    {u"form frmSample\npress cmdAsk\nanswer Yes \"Sure?\"",
     "x:4: the message box \"Sure?\\nReally?\" came: answer Yes \"Sure?\""},
    {u"form frmSample\npress cmdAsk\nanswer OK \"Sure...\"",
     "x:4: the message box has no button OK: answer OK \"Sure...\""},
    {u"form frmSample\npress cmdEnter\nclose",
     "x:3: the input box \"Name\" came, which the script does not expect: press cmdEnter"},
    {u"form frmSample\npress cmdLater", "x:3: cmdLater of frmSample is disabled: press cmdLater"},
    {u"form frmSample\ntype txtHidden \"x\"", "x:3: txtHidden of frmSample is hidden: type txtHidden \"x\""},
    {u"form frmSample\npress cmdNo", "x:3: frmSample has no control cmdNo: press cmdNo"},
    {u"form frmSample\nwait until cmdNo enabled",
     "x:3: frmSample has no control cmdNo: wait until cmdNo enabled"},
    {u"form frmSample\npress lst", "x:3: lst is not a control with which a user can do this: press lst"},
    {u"form frmSample\nselect lst \"c\"", "x:3: lst has no line \"c\": select lst \"c\""},
    {u"form frmSample\nselect lst \"a\" \"b\"", "x:3: lst takes one line: select lst \"a\" \"b\""},
    {u"form frmSample\ndoubleclick lv \"4\"", "x:3: lv has no line \"4\": doubleclick lv \"4\""},
    {u"form frmSample\ndrop cmb\nselect cmb \"z\"", "x:4: cmb has no line \"z\": select cmb \"z\""},
    {u"form frmSample\nmenu mnu mnuCut", "x:3: mnu is not open: menu mnu mnuCut"},
    {u"form frmSample\nexpect cmdOK disabled", "x:3: cmdOK is enabled: expect cmdOK disabled"},
    {u"form frmSample\nexpect cmdOK hidden", "x:3: cmdOK is visible: expect cmdOK hidden"},
    {u"form frmSample\nexpect caption \"\"", "x:3: caption shows \"Sample\": expect caption \"\""},
    {u"form frmSample\nexpect lst lines \"a\"", "x:3: lst has the lines \"a\" \"b\": expect lst lines \"a\""},
    {u"form frmSample\nexpect lst selected \"a\"",
     "x:3: lst has selected nothing: expect lst selected \"a\""},
    {u"form frmSample\nexpect lv row \"1\"",
     "x:3: lv has the rows \"1\" \"one\", \"2\" \"two\", \"3\" \"three\": expect lv row \"1\""},
    {u"form frmSample\npress cmdInner\nform frmSample\npress cmdLater",
     "x:5: cmdLater of frmSample is disabled: press cmdLater"},
};

}  // namespace kestrune::play
