// A form that nobody looks at, played through its controls' user actions.
#pragma once

#include "standins/desktop/HeadlessDesktop.h"
#include "standins/play/Dialog.h"

namespace kestrune::play {

class FormDialog : public Dialog {
 public:
  FormDialog(Form& form, standins::HeadlessDesktop& desktop)
      : form_(form), name_(form.ClassName()), desktop_(desktop) {}

  const Text& Name() const override { return name_; }
  Text Caption() const override { return form_.Caption; }
  bool IsOpen() const override { return form_.IsOpen(); }
  void Do(const Statement& action) override;
  ControlState Look(const Text& control) const override;
  void Wait() override { desktop_.Tick(); }

 private:
  Control& Find(const Text& control) const;
  /// The control, as one of that class that a user can reach.
  template <typename ControlClass>
  ControlClass& Reach(const Text& control) const;
  void Select(const Statement& action);
  void DoubleClick(const Statement& action);
  void Type(const Statement& action);
  void ChooseFromMenu(const Statement& action);

  Form& form_;
  Text name_;
  standins::HeadlessDesktop& desktop_;
};

}  // namespace kestrune::play
