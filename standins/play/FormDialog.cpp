#include "standins/play/FormDialog.h"

#include <algorithm>

namespace kestrune::play {

namespace {

using Rows = std::vector<std::vector<Text>>;

Rows RowsOf(const std::vector<Text>& lines) {
  Rows rows;
  for (const Text& line : lines) rows.push_back({line});
  return rows;
}

Rows RowsOf(const ListView& table) {
  Rows rows;
  for (const auto& row : table.Rows()) rows.push_back(row.Cells);
  return rows;
}

std::vector<Text> SelectedIn(const ListView& table) {
  std::vector<Text> selected;
  for (const std::size_t row : table.SelectedRows()) selected.push_back(table.Rows()[row].Cells.at(0));
  return selected;
}

}  // namespace

void FormDialog::Do(const Statement& action) {
  const Text& verb = action.verb;
  if (verb == u"close") return form_.CloseByUser();
  if (verb == u"press") return Reach<Button>(action.names[0]).Press();
  if (verb == u"drop") return Reach<ComboBox>(action.names[0]).Drop();
  if (verb == u"select") return Select(action);
  if (verb == u"doubleclick") return DoubleClick(action);
  if (verb == u"type") return Type(action);
  if (verb == u"menu") return ChooseFromMenu(action);
  throw Refusal(u"no user of a dialog can " + verb);
}

ControlState FormDialog::Look(const Text& name) const {
  const Control& control = Find(name);
  ControlState state{control.Enabled(), control.Visible(), control.Caption(), {}, {}};
  if (const auto* text = dynamic_cast<const TextBox*>(&control)) state.content = text->Value();
  if (const auto* list = dynamic_cast<const ListBox*>(&control)) {
    state.rows = RowsOf(list->Items());
    if (list->ListIndex() >= 0) state.selected = {list->SelectedText()};
  }
  if (const auto* box = dynamic_cast<const ComboBox*>(&control)) {
    state.content = box->Value();
    state.rows = RowsOf(box->Items());
  }
  if (const auto* table = dynamic_cast<const ListView*>(&control)) {
    state.rows = RowsOf(*table);
    state.selected = SelectedIn(*table);
  }
  return state;
}

Control& FormDialog::Find(const Text& control) const {
  if (Control* found = form_.FindControl(control)) return *found;
  throw Refusal(name_ + u" has no control " + control);
}

template <typename ControlClass>
ControlClass& FormDialog::Reach(const Text& name) const {
  auto* control = dynamic_cast<ControlClass*>(&Find(name));
  if (!control) RefuseKind(name);
  RequireReachable(Look(name), name, name_);
  return *control;
}

void FormDialog::Select(const Statement& action) {
  Control& control = Reach<Control>(action.names[0]);
  std::vector<std::size_t> places;
  const ControlState state = Look(control.Name());
  for (const Text& text : action.texts) places.push_back(PlaceOf(text, state, control.Name()));
  if (auto* table = dynamic_cast<ListView*>(&control)) return table->SelectRows(places);
  if (places.size() > 1) throw Refusal(control.Name() + u" takes one line");
  if (auto* list = dynamic_cast<ListBox*>(&control)) return list->ClickItem(places.front());
  if (auto* box = dynamic_cast<ComboBox*>(&control)) return box->Choose(places.front());
  RefuseKind(control.Name());
}

void FormDialog::DoubleClick(const Statement& action) {
  Control& control = Reach<Control>(action.names[0]);
  const std::size_t place = PlaceOf(action.texts[0], Look(control.Name()), control.Name());
  if (auto* table = dynamic_cast<ListView*>(&control)) return table->DoubleClickRow(place);
  if (auto* list = dynamic_cast<ListBox*>(&control)) return list->DoubleClickItem(place);
  RefuseKind(control.Name());
}

void FormDialog::Type(const Statement& action) {
  Control& control = Reach<Control>(action.names[0]);
  if (auto* text = dynamic_cast<TextBox*>(&control)) return text->Type(action.texts[0]);
  if (auto* box = dynamic_cast<ComboBox*>(&control)) return box->Type(action.texts[0]);
  RefuseKind(control.Name());
}

void FormDialog::ChooseFromMenu(const Statement& action) {
  Menu& menu = Reach<Menu>(action.names[0]);
  MenuItem& item = Reach<MenuItem>(action.names[1]);
  if (!menu.IsOpen()) throw Refusal(menu.Name() + u" is not open");
  const auto& items = menu.Items();
  if (std::find(items.begin(), items.end(), &item) == items.end())
    throw Refusal(menu.Name() + u" has no item " + item.Name());
  menu.Choose(item);
}

}  // namespace kestrune::play
