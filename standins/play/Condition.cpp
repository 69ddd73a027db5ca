#include "standins/play/Condition.h"

#include <algorithm>
#include <functional>

namespace kestrune::play {

namespace {

constexpr TextView kBeginningMark = u"...";
constexpr std::size_t kMostShown = 12;  // rows, in the words for a failure

using Cells = std::vector<Text>;

bool AllMatch(const Cells& seen, const Cells& expected) {
  return std::equal(seen.begin(), seen.end(), expected.begin(), expected.end(), Matches);
}

Cells FirstCells(const ControlState& state) {
  Cells cells;
  for (const Cells& row : state.rows) cells.push_back(row.empty() ? Text() : row.front());
  return cells;
}

bool HasRow(const ControlState& state, const Cells& expected) {
  return std::any_of(state.rows.begin(), state.rows.end(),
                     [&](const Cells& row) { return AllMatch(row, expected); });
}

Text QuotedCells(const Cells& cells) {
  Text quoted;
  for (std::size_t at = 0; at < std::min(cells.size(), kMostShown); ++at) quoted += u" " + Quoted(cells[at]);
  if (cells.empty()) return u" nothing";
  return cells.size() > kMostShown ? quoted + u" ..." : quoted;
}

Text QuotedRows(const ControlState& state) {
  Text quoted;
  for (std::size_t at = 0; at < std::min(state.rows.size(), kMostShown); ++at)
    quoted += (at ? u"," : u"") + QuotedCells(state.rows[at]);
  if (state.rows.empty()) return u" nothing";
  return state.rows.size() > kMostShown ? quoted + u" ..." : quoted;
}

struct Kind {
  TextView what;
  std::function<bool(const ControlState&, const Cells&)> is_met;
  std::function<Text(const ControlState&)> say;
};

const std::vector<Kind>& Kinds() {
  const auto say_enabled = [](const ControlState& state) {
    return Text(state.enabled ? u"is enabled" : u"is disabled");
  };
  const auto say_visible = [](const ControlState& state) {
    return Text(state.visible ? u"is visible" : u"is hidden");
  };
  static const std::vector<Kind> kinds = {
      {u"enabled", [](const ControlState& state, const Cells&) { return state.enabled; }, say_enabled},
      {u"disabled", [](const ControlState& state, const Cells&) { return !state.enabled; }, say_enabled},
      {u"visible", [](const ControlState& state, const Cells&) { return state.visible; }, say_visible},
      {u"hidden", [](const ControlState& state, const Cells&) { return !state.visible; }, say_visible},
      {u"",
       [](const ControlState& state, const Cells& texts) { return Matches(state.content, texts.front()); },
       [](const ControlState& state) { return u"shows " + Quoted(state.content); }},
      {u"selected",
       [](const ControlState& state, const Cells& texts) { return AllMatch(state.selected, texts); },
       [](const ControlState& state) { return u"has selected" + QuotedCells(state.selected); }},
      {u"lines",
       [](const ControlState& state, const Cells& texts) { return AllMatch(FirstCells(state), texts); },
       [](const ControlState& state) { return u"has the lines" + QuotedCells(FirstCells(state)); }},
      {u"row", HasRow, [](const ControlState& state) { return u"has the rows" + QuotedRows(state); }},
  };
  return kinds;
}

Text WithLineFeeds(TextView text) {
  Text folded(text);
  std::erase(folded, u'\r');
  return folded;
}

}  // namespace

Condition ConditionIn(const Statement& statement, std::size_t first) {
  const auto& names = statement.names;
  return {names.at(first), names.size() > first + 1 ? names[first + 1] : Text(), statement.texts};
}

std::optional<Text> Unmet(const Condition& condition, const ControlState& state) {
  const auto& kinds = Kinds();
  const auto kind =
      std::find_if(kinds.begin(), kinds.end(), [&](const Kind& each) { return each.what == condition.what; });
  if (kind->is_met(state, condition.texts)) return std::nullopt;
  return kind->say(state);
}

bool Matches(TextView seen, TextView expected) {
  const Text text = WithLineFeeds(seen);
  if (!expected.ends_with(kBeginningMark)) return text == expected;
  expected.remove_suffix(kBeginningMark.size());
  return text.starts_with(expected);
}

}  // namespace kestrune::play
