// Where a dialog stands when it opens, and how a sizable one spends the room that the user gives it.
#pragma once

#include <vector>
#include <windows.h>

namespace kestrune {

/// Puts the dialog into the middle of its owner, or of the screen when it has none that can be seen; never
/// beyond the screen.
void PlaceOverOwner(HWND dialog);

/// The lists of the dialog grow; what stands beside and below them moves along; what reaches as far to the
/// right as they do grows in width.
class DialogLayout {
 public:
  /// Remembers where the dialog's windows stand; the dialog cannot become smaller than it is now.
  explicit DialogLayout(HWND dialog);

  /// The dialog's size has changed.
  void Fit() const;
  /// The smallest size of the dialog, its frame included.
  POINT Smallest() const { return smallest_; }

 private:
  struct Place {
    HWND Window;
    RECT At;
    bool LeftMoves, TopMoves, RightMoves, BottomMoves;
  };
  static Place PlaceOf(HWND window, const RECT& at, const RECT& lists);

  HWND dialog_;
  SIZE inside_ = {};
  POINT smallest_ = {};
  std::vector<Place> places_;
};

}  // namespace kestrune
