#include "standins/dxl/Error.h"

namespace kestrune::dxl {

namespace {

/// Where each line of the source begins.
std::vector<std::size_t> LineStarts(TextView source) {
  std::vector<std::size_t> starts = {0};
  for (std::size_t end = source.find(u'\n'); end != TextView::npos; end = source.find(u'\n', end + 1))
    starts.push_back(end + 1);
  return starts;
}

TextView LineAt(TextView source, const std::vector<std::size_t>& starts, int line) {
  const auto i = static_cast<std::size_t>(line - 1);
  if (i >= starts.size()) return {};
  const bool is_last = i + 1 == starts.size();
  TextView text = source.substr(starts[i], is_last ? TextView::npos : starts[i + 1] - 1 - starts[i]);
  if (text.ends_with(u'\r')) text.remove_suffix(1);
  return text;
}

/// Blanks as wide as the first `count` characters; a tab stays a tab, so that the caret stands right below.
Text Indent(TextView line, int count) {
  Text indent;
  for (const char16_t c : line.substr(0, static_cast<std::size_t>(count)))
    indent += c == u'\t' ? u'\t' : u' ';
  return indent;
}

}  // namespace

Text DoorsReport(const std::vector<Error>& errors) {
  Text report;
  for (const Error& error : errors) {
    report += error.is_runtime ? u"-R-E- DXL: <Line:" : u"-E- DXL: <Line:";
    report += ToText(error.at.line) + u"> " + error.message + u"\n";
  }
  if (errors.empty()) return report;
  if (errors.front().is_runtime) return report + u"-I- DXL: execution halted\n";
  const bool single = errors.size() == 1;
  return report + u"-I- DXL: all done with " + ToText(static_cast<long long>(errors.size())) +
         (single ? u" error" : u" errors") + u" and 0 warnings\n";
}

Text Explain(const std::vector<Error>& errors, TextView source) {
  constexpr int kWidth = 200;  // of the part of a line that is shown
  const auto starts = LineStarts(source);
  Text text;
  for (const Error& error : errors) {
    text += error.file.empty() ? Text(u"script") : error.file;
    for (const int place : {error.at.line, error.at.column}) text.append(u":").append(ToText(place));
    text.append(u": ").append(error.message).append(u"\n");
    if (error.at.line == 0) continue;
    TextView line = LineAt(source, starts, error.at.line);
    int before = error.at.column - 1;
    if (const int hidden = before - kWidth / 2; hidden > 0) {
      line.remove_prefix(std::min(line.size(), static_cast<std::size_t>(hidden)));
      before -= hidden;
    }
    line = line.substr(0, kWidth);
    text.append(line).append(u"\n").append(Indent(line, before)).append(u"^\n");
  }
  return text;
}

}  // namespace kestrune::dxl
