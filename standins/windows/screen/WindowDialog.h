// A dialog on the screen, played through its windows. It belongs to this process; a window has the name that
// the resources of the dialog's module give for its id.
#pragma once

#include <windows.h>

#include "standins/play/Dialog.h"
#include "standins/windows/screen/DialogNames.h"
#include "standins/windows/screen/Hands.h"
#include "standins/windows/screen/Means.h"
#include "standins/windows/screen/WindowControls.h"

namespace kestrune::standins {

class WindowDialog : public play::Dialog {
 public:
  WindowDialog(HWND window, const DialogNames& names, const Means& means, Hands& hands);

  const Text& Name() const override { return name_; }
  Text Caption() const override;
  bool IsOpen() const override { return IsWindowVisible(window_) != FALSE; }
  void Do(const play::Statement& action) override;
  play::ControlState Look(const Text& control) const override;
  void Wait() override { hands_.Wait(); }

  /// One of the forms that have a name.
  bool IsForm() const { return is_form_; }
  /// Null when it has none of this name.
  HWND FindControl(const Text& name) const;

 private:
  HWND Find(const Text& control) const;
  /// The control that the action names, of one of these kinds and in the user's reach.
  HWND Reach(const play::Statement& action, std::initializer_list<Kind> kinds) const;
  void Select(const play::Statement& action);
  void DoubleClick(const play::Statement& action);
  void ChooseFromMenu(const play::Statement& action);

  HWND window_;
  const DialogNames& names_;
  const Means& means_;
  Hands& hands_;
  std::map<Text, HWND> controls_;
  Text name_ = u"a window";
  bool is_form_ = false;
};

/// The title of a window, as the system knows it: a thread that hangs is not asked.
Text TitleOf(HWND window);

}  // namespace kestrune::standins
