// The peers of the controls that hold lines: list box and combo box.
#pragma once

#include "platform/windows/ControlPeer.h"

namespace kestrune {

/// Sets only the lines that changed: a list of 100,000 lines grows line by line.
class ListBoxPeer : public ControlPeer {
 public:
  ListBoxPeer(ListBox& list, HWND window) : ControlPeer(list, window), list_(list) {}
  void OnCommand(WORD code) override;
  bool OnListKey(WORD key) override;
  void OnContextMenu() override { list_.AskForMenu(); }

 protected:
  void PushContent() override;

 private:
  int Count() const { return static_cast<int>(Send(LB_GETCOUNT)); }
  LRESULT Send(UINT message, WPARAM wparam = 0, LPARAM lparam = 0) const {
    return SendMessageW(Window(), message, wparam, lparam);
  }
  Text LineAt(std::size_t index) const;
  void Insert(std::size_t index, const Text& line);
  void Replace(std::size_t index, const Text& line);
  bool TakesSeveral() const { return (GetWindowLongW(Window(), GWL_STYLE) & LBS_EXTENDEDSEL) != 0; }
  void TakeSelection();
  void ShowSelection();

  ListBox& list_;
  std::vector<std::size_t> shown_selection_;  // where several lines can be selected
  int widest_ = 0;                            // line, in pixels
};

class ComboBoxPeer : public ControlPeer {
 public:
  ComboBoxPeer(ComboBox& box, HWND window) : ControlPeer(box, window), box_(box) {}
  void OnCommand(WORD code) override;
  void OnResized() override;

 protected:
  void PushContent() override;

 private:
  void Fill();

  ComboBox& box_;
  std::vector<Text> shown_;
};

}  // namespace kestrune
