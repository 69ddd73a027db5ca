// The peer of a list view with two columns.
#pragma once

#include "platform/windows/ControlPeer.h"

namespace kestrune {

/// The second column is as wide as four blanks and its header, wider only for a longer text in it; the first
/// has the rest, whatever the window's width.
class ListViewPeer : public ControlPeer {
 public:
  ListViewPeer(ListView& list, HWND window);
  void OnNotify(const NMHDR& notification) override;
  void OnResized() override { FitColumns(); }
  /// A list that is filled anew and has its row selected again is scrolled once, if at all.
  void Settle() override;

 protected:
  void PushContent() override;

 private:
  LRESULT Send(UINT message, WPARAM wparam = 0, LPARAM lparam = 0) const {
    return SendMessageW(Window(), message, wparam, lparam);
  }
  void OnKey(WORD key);
  void PushColumns();
  void PushRows();
  void PushCell(std::size_t row, std::size_t column, const Text& text);
  void PushSelection();
  bool IsSelected(std::size_t row) const;
  void SetState(std::size_t row, UINT state, UINT mask);
  int WidthOfSecond() const;
  void FitColumns();
  std::vector<std::size_t> SelectedByUser() const;

  ListView& list_;
  std::vector<Text> shown_columns_;
  std::vector<std::vector<Text>> shown_rows_;
  std::optional<std::size_t> scrolled_to_;
  std::pair<int, int> fitted_;  // the widths of the window and of the second column
};

}  // namespace kestrune
