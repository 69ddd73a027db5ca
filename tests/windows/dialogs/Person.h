// A person at the screen, on a thread of their own: while the thread under test shows a dialog,
// they use mouse and keyboard on it. A dialog that does not do what is waited for ends the
// whole program, with its name.
#pragma once

#include <functional>
#include <set>
#include <windows.h>

#include "platform/Text.h"

namespace kestrune::testing {

/// Runs `show`, which returns when the person has closed its dialog. What it throws is thrown on.
void WithPerson(const std::function<void()>& person, const std::function<void()>& show);

/// A dialog, or any other window, that the person looks at.
class Screen {
 public:
  /// Waits for a window with this title that can be used.
  explicit Screen(TextView title);

  HWND Window() const { return window_; }
  HWND At(int id) const;
  Text TextAt(int id) const;
  LRESULT Ask(int id, UINT message, WPARAM wparam = 0, LPARAM lparam = 0) const;
  std::vector<Text> LinesOf(int list_id) const;
  bool HasFocus(int id) const { return FocusedId() == id; }
  /// The id of the control with the focus, 0 when no control of the window has it.
  int FocusedId() const;
  /// The ids of all controls that Tab can reach.
  std::set<int> TabStops() const;

  /// Waits until `condition` holds; `what` says what is waited for.
  void Await(const char* what, const std::function<bool()>& condition) const;
  void AwaitEnabled(int id) const;
  void AwaitClosed() const;

  /// The left mouse button in the middle of a control, at a line of a list box, at a row of a list view.
  void Click(int id) const;
  void ClickLine(int list_id, int line) const;
  void ClickRow(int list_view_id, int row) const;
  /// A key that stays down until it is let go.
  void Hold(WORD key) const;
  void Release(WORD key) const;
  /// A key alone, or while another is held: Key('M', VK_MENU) is Alt+M.
  void Key(WORD key, WORD held = 0) const;
  void Type(TextView text) const;
  /// The close box of the title bar.
  void CloseBox() const { PostMessageW(window_, WM_SYSCOMMAND, SC_CLOSE, 0); }

 private:
  void ClickAt(HWND window, RECT inside) const;

  Text title_;
  HWND window_ = nullptr;
};

}  // namespace kestrune::testing
