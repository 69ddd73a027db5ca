#include "platform/Controls.h"

#include <algorithm>
#include <numeric>

namespace kestrune {

namespace {

void Raise(const Event& event) {
  if (event) event();
}

}  // namespace

void Button::Press() {
  RequireReachable();
  Raise(Click);
}

void TextBox::SetValue(Text value) {
  value_ = std::move(value);
  Changed();
}

void TextBox::Type(Text value) {
  RequireReachable();
  SetValue(std::move(value));
  Raise(Change);
}

Text ListBox::SelectedText() const {
  return list_index_ < 0 ? Text() : items_[static_cast<std::size_t>(list_index_)];
}

void ListBox::AddItem(Text item) {
  items_.push_back(std::move(item));
  Changed();
}

void ListBox::SetItem(std::size_t index, Text item) {
  if (index == items_.size()) return AddItem(std::move(item));
  items_.at(index) = std::move(item);
  last_changed_ = index;
  Changed();
}

void ListBox::Truncate(std::size_t count) {
  if (count >= items_.size()) return;
  items_.resize(count);
  if (list_index_ >= static_cast<int>(count)) list_index_ = -1;
  std::erase_if(selected_, [count](std::size_t line) { return line >= count; });
  Changed();
}

void ListBox::SetListIndex(int index) {
  list_index_ = index < static_cast<int>(items_.size()) ? index : -1;
  selected_.clear();
  if (list_index_ >= 0) selected_.push_back(static_cast<std::size_t>(list_index_));
  Changed();
}

void ListBox::SelectLines(std::vector<std::size_t> lines) {
  RequireReachable();
  if (!lines.empty() && lines.back() >= items_.size()) RefuseUser(u"it has no such line");
  selected_ = std::move(lines);
  Changed();
}

void ListBox::SelectAll() {
  std::vector<std::size_t> all(items_.size());
  std::iota(all.begin(), all.end(), std::size_t{0});
  SelectLines(std::move(all));
}

void ListBox::PressCopy() {
  RequireReachable();
  Raise(Copy);
}

void ListBox::AskForMenu() {
  RequireReachable();
  Raise(ContextMenu);
}

void ListBox::ClickItem(std::size_t index) {
  RequireReachable();
  if (index >= items_.size()) RefuseUser(u"it has no such line");
  SetListIndex(static_cast<int>(index));
  Raise(Click);
}

void ListBox::DoubleClickItem(std::size_t index) {
  ClickItem(index);
  Raise(DblClick);
}

void ComboBox::SetItems(std::vector<Text> items) {
  items_ = std::move(items);
  Changed();
}

void ComboBox::SetValue(Text value) {
  value_ = std::move(value);
  Changed();
}

void ComboBox::Drop() {
  RequireReachable();
  Raise(DropDown);
}

void ComboBox::Choose(std::size_t index) {
  RequireReachable();
  if (index >= items_.size()) RefuseUser(u"it has no such line");
  SetValue(items_[index]);
}

void ComboBox::Type(Text value) {
  RequireReachable();
  SetValue(std::move(value));
}

void ListView::SetColumns(std::vector<Text> headers) {
  columns_ = std::move(headers);
  Changed();
}

std::vector<std::size_t> ListView::SelectedRows() const {
  std::vector<std::size_t> selected;
  for (std::size_t row = 0; row < rows_.size(); ++row)
    if (rows_[row].Selected) selected.push_back(row);
  return selected;
}

void ListView::SetRows(std::vector<std::vector<Text>> rows) {
  rows_.clear();
  for (auto& cells : rows) rows_.push_back({std::move(cells), false});
  visible_row_.reset();
  Changed();
}

void ListView::Mark(const std::vector<std::size_t>& rows) {
  for (auto& row : rows_) row.Selected = false;
  for (const auto row : rows) rows_.at(row).Selected = true;
}

void ListView::SetSelection(const std::vector<std::size_t>& rows) {
  Mark(rows);
  if (!rows.empty()) visible_row_ = rows.front();
  Changed();
}

void ListView::SelectRows(const std::vector<std::size_t>& rows) {
  RequireReachable();
  const auto is_missing = [this](std::size_t row) { return row >= rows_.size(); };
  if (std::any_of(rows.begin(), rows.end(), is_missing)) RefuseUser(u"it has no such row");
  Mark(rows);
  Changed();
  Raise(SelectionChange);
}

void ListView::SelectAll() {
  std::vector<std::size_t> all(rows_.size());
  std::iota(all.begin(), all.end(), std::size_t{0});
  SelectRows(all);
}

void ListView::PressDelete() {
  RequireReachable();
  Raise(Delete);
}

void ListView::DoubleClickRow(std::size_t row) {
  SelectRows({row});
  Raise(DblClick);
}

Menu::Menu(Form* form, Text name, std::vector<MenuItem*> items)
    : Control(form, std::move(name)), items_(std::move(items)) {}

void Menu::PopUp(Control& below) {
  is_open_ = true;
  if (form().Peer()) form().Peer()->PopUp(*this, below);
}

void Menu::Choose(MenuItem& item) {
  RequireReachable();
  if (!is_open_) RefuseUser(u"the menu is not open");
  if (std::find(items_.begin(), items_.end(), &item) == items_.end()) RefuseUser(u"it has no such line");
  is_open_ = false;
  Raise(item.Click);
}

void Timer::Fire() {
  if (!Enabled() || is_busy_) return;
  struct Busy {
    explicit Busy(bool& flag) : flag(flag) { flag = true; }
    ~Busy() { flag = false; }
    bool& flag;
  } busy(is_busy_);
  Raise(Tick);
}

}  // namespace kestrune
