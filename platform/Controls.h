// The controls that the forms are made of.
#pragma once

#include <optional>

#include "platform/Forms.h"

namespace kestrune {

using Event = std::function<void()>;

class Label : public Control {
 public:
  using Control::Control;
};

class Button : public Control {
 public:
  using Control::Control;
  Event Click;
  /// The user presses it.
  void Press();
};

class TextBox : public Control {
 public:
  using Control::Control;
  Event Change;  // by the user
  const Text& Value() const { return value_; }
  void SetValue(Text value);
  /// The user replaces the text.
  void Type(Text value);

 private:
  Text value_;
};

/// A list of lines. The form selects none or one of them, the user several where the list's window lets him.
class ListBox : public Control {
 public:
  using Control::Control;
  Event Click;
  Event DblClick;
  Event Copy;         // the user wants the selected lines on the clipboard
  Event ContextMenu;  // the user asks what can be done with them

  const std::vector<Text>& Items() const { return items_; }
  int ListIndex() const { return list_index_; }  // -1: none
  /// The line set last: a change is shown without a look at all the others.
  std::size_t LastChanged() const { return last_changed_; }
  /// The selected line, or "".
  Text SelectedText() const;
  const std::vector<std::size_t>& SelectedLines() const { return selected_; }  // ascending
  void AddItem(Text item);
  /// Replaces a line; the index after the last one appends.
  void SetItem(std::size_t index, Text item);
  /// Keeps the first `count` lines; the selection goes when its line goes.
  void Truncate(std::size_t count);
  void Clear() { Truncate(0); }
  /// Selects a line and scrolls to it; raises no event.
  void SetListIndex(int index);

  /// The user clicks, or double-clicks, a line; selects exactly these, or all; presses Ctrl+C; asks for the menu.
  void ClickItem(std::size_t index);
  void DoubleClickItem(std::size_t index);
  void SelectLines(std::vector<std::size_t> lines);
  void SelectAll();
  void PressCopy();
  void AskForMenu();

 private:
  std::vector<Text> items_;
  std::vector<std::size_t> selected_;
  std::size_t last_changed_ = 0;
  int list_index_ = -1;
};

/// An editable text with a list that drops down.
class ComboBox : public Control {
 public:
  using Control::Control;
  Event DropDown;  // before the list is seen

  const std::vector<Text>& Items() const { return items_; }
  const Text& Value() const { return value_; }
  void SetItems(std::vector<Text> items);
  void SetValue(Text value);

  /// The user opens the list, takes a line of it, or types a text.
  void Drop();
  void Choose(std::size_t index);
  void Type(Text value);

 private:
  std::vector<Text> items_;
  Text value_;
};

/// Rows with a text in each column; any number of rows may be selected.
class ListView : public Control {
 public:
  using Control::Control;
  struct Row {
    std::vector<Text> Cells;
    bool Selected = false;
  };
  Event SelectionChange;
  Event DblClick;
  Event Delete;  // the key

  void SetColumns(std::vector<Text> headers);
  const std::vector<Text>& Columns() const { return columns_; }
  const std::vector<Row>& Rows() const { return rows_; }
  std::vector<std::size_t> SelectedRows() const;  // ascending
  /// Replaces all rows; none is selected then.
  void SetRows(std::vector<std::vector<Text>> rows);
  /// Selects exactly these rows and scrolls to the first of them; raises no event.
  void SetSelection(const std::vector<std::size_t>& rows);
  void SelectRow(std::size_t row) { SetSelection({row}); }
  /// The row scrolled to last.
  std::optional<std::size_t> VisibleRow() const { return visible_row_; }

  /// The user selects exactly these rows, or all of them; double-clicks one; presses the Delete key.
  void SelectRows(const std::vector<std::size_t>& rows);
  void SelectAll();
  void DoubleClickRow(std::size_t row);
  void PressDelete();

 private:
  void Mark(const std::vector<std::size_t>& rows);
  std::vector<Text> columns_;
  std::vector<Row> rows_;
  std::optional<std::size_t> visible_row_;
};

/// A line of a pop-up menu.
class MenuItem : public Control {
 public:
  using Control::Control;
  Event Click;
};

class Menu : public Control {
 public:
  Menu(Form* form, Text name, std::vector<MenuItem*> items);
  /// Opens the menu below a control.
  void PopUp(Control& below);
  const std::vector<MenuItem*>& Items() const { return items_; }
  bool IsOpen() const { return is_open_; }
  /// The user chooses a line of the open menu, which closes it.
  void Choose(MenuItem& item);

 private:
  std::vector<MenuItem*> items_;
  bool is_open_ = false;
};

/// Ticks every Interval milliseconds while it is enabled. A handler that is still busy, because it shows a
/// message box or lets messages run, is not entered again: that tick is lost.
class Timer : public Control {
 public:
  using Control::Control;
  int Interval = 0;
  Event Tick;
  /// The interval has passed.
  void Fire();

 private:
  bool is_busy_ = false;
};

}  // namespace kestrune
