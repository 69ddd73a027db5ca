// Shows a form as a real modal dialog. The template has the name of the form's class, and a window of it
// belongs to the control whose name stands under the window's id in the resources of type "CONTROLNAME".
#pragma once

#include <exception>
#include <map>

#include "platform/Desktop.h"
#include "platform/windows/ControlPeer.h"
#include "platform/windows/DialogFocus.h"
#include "platform/windows/DialogLayout.h"
#include "platform/windows/DialogLook.h"
#include "platform/windows/DialogSession.h"
#include "platform/windows/Modality.h"

namespace kestrune {

class DialogPeer : public FormPeer {
 public:
  DialogPeer(Desktop& desktop, DialogSession& session, Form& form);

  /// Returns when the form is closed; throws what a handler of the form has thrown, which closes it too: no
  /// exception passes through the system's message loop. Throws std::logic_error when form and template do
  /// not fit together.
  void Run(HWND owner);

  void FormChanged(Form& form) override;
  void ControlChanged(Control& control) override;
  void Repaint(Control& control) override;
  void SetFocus(Control& control) override;
  void PopUp(Menu& menu, Control& below) override;

 private:
  static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wparam, LPARAM lparam);
  INT_PTR Receive(UINT message, WPARAM wparam, LPARAM lparam);
  INT_PTR Handle(UINT message, WPARAM wparam, LPARAM lparam);

  void OnInit();
  void OnCommand(int id, WORD code);
  void OnNotify(const NMHDR& notification);
  INT_PTR OnKeyToItem(WORD key, HWND list);
  void OnContextMenu(HWND window, LPARAM place);
  void OnTimer(std::size_t id);
  void OnHelp(const HELPINFO& request);
  void OnSize();
  INT_PTR OnSetCursor() const;

  void Bind();
  void UpdateTimer(std::size_t index);
  void Resized();
  ControlPeer* PeerOf(const Control& control) const;
  ControlPeer* ReachablePeer(int id) const;

  Desktop& desktop_;
  DialogSession& session_;
  Form& form_;
  HWND dialog_ = nullptr;
  bool has_ended_ = false;
  std::optional<POINT> menu_point_;  // where the pointer has asked for a menu
  std::exception_ptr failure_;
  std::map<const Control*, std::unique_ptr<ControlPeer>> peers_;
  std::map<int, const Control*> controls_;  // by the ids of their windows
  std::vector<Timer*> timers_;              // that of the system has the place as its id, from 1
  DialogFonts fonts_;
  std::optional<DialogLayout> layout_;  // of a sizable dialog
  std::optional<Modality> modality_;    // while it is shown
  DialogFocus focus_;
  int messages_ = 0;  // under way, one within the other
};

}  // namespace kestrune
