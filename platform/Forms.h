// Dialogs without a screen: a form owns its controls, handles their events and makes every decision itself.
// Whoever shows it (a real dialog on Windows, nobody in tests) is its peer and is told of changes.
#pragma once

#include <functional>
#include <vector>

#include "platform/Text.h"

namespace kestrune {

class Control;
class Form;
class Menu;

/// What shows a form, if anything does.
class FormPeer {
 public:
  virtual ~FormPeer() = default;
  virtual void FormChanged(Form& form) = 0;
  virtual void ControlChanged(Control& control) = 0;
  virtual void Repaint(Control& control) = 0;
  virtual void SetFocus(Control& control) = 0;
  virtual void PopUp(Menu& menu, Control& below) = 0;
};

/// A modal dialog. Life: Load (before it is seen), shown until Close, then its members are
/// read by whoever showed it.
class Form {
 public:
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;
  virtual ~Form() = default;

  /// The class's name: whoever shows forms in windows finds the window's layout by it.
  virtual TextView ClassName() const { return {}; }

  Text Caption;
  Text FontName;  // empty: the platform's standard font
  int HelpContextID = 0;

  /// For the desktop: opens the form and lets it set itself up.
  void Open(FormPeer* peer);
  /// For the desktop: the form has been closed and its peer is going.
  void Detach() { peer_ = nullptr; }
  bool IsOpen() const { return is_open_; }
  void Close() { is_open_ = false; }
  /// The user closes the window other than by a button: the close box, Alt+F4, Esc.
  void CloseByUser() { Form_CloseBox(); }
  void SetCaption(Text caption);

  const std::vector<Control*>& Controls() const { return controls_; }
  Control* FindControl(TextView name) const;
  FormPeer* Peer() const { return peer_; }

 protected:
  Form() = default;
  virtual void Form_Load() {}
  /// What the close box does; a form that must stay open overrides it.
  virtual void Form_CloseBox() { Close(); }

 private:
  friend class Control;
  std::vector<Control*> controls_;
  FormPeer* peer_ = nullptr;
  bool is_open_ = false;
};

/// What all controls share. The members named as user actions (Press, Choose, Type ...) are what a person can
/// do: they throw std::logic_error when the control cannot be reached, being disabled or hidden.
class Control {
 public:
  Control(Form* form, Text name);
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control() = default;

  const Text& Name() const { return name_; }
  const Text& Caption() const { return caption_; }
  bool Enabled() const { return enabled_; }
  bool Visible() const { return visible_; }
  void SetCaption(Text caption);
  void SetEnabled(bool enabled);
  void SetVisible(bool visible);
  void SetFocus();
  void Repaint();

  Text FontName;
  int FontCharset = 0;

 protected:
  void Changed();
  void RequireReachable() const;
  [[noreturn]] void RefuseUser(TextView why) const;
  Form& form() const { return form_; }

 private:
  Form& form_;
  Text name_;
  Text caption_;
  bool enabled_ = true;
  bool visible_ = true;
};

}  // namespace kestrune
