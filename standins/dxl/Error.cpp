#include "standins/dxl/Error.h"

namespace kestrune::dxl {

namespace {

TextView LineOf(TextView source, int line) {
  for (int i = 1; i < line; ++i) {
    const std::size_t end = source.find(u'\n');
    if (end == TextView::npos) return {};
    source.remove_prefix(end + 1);
  }
  source = source.substr(0, source.find(u'\n'));
  if (source.ends_with(u'\r')) source.remove_suffix(1);
  return source;
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

Text Explain(const Error& error, TextView source) {
  Text text = error.file.empty() ? Text(u"script") : error.file;
  for (const int place : {error.at.line, error.at.column}) text.append(u":").append(ToText(place));
  text.append(u": ").append(error.message).append(u"\n");
  if (error.at.line == 0) return text;
  const TextView line = LineOf(source, error.at.line);
  return text.append(line) + u"\n" + Indent(line, error.at.column - 1) + u"^\n";
}

}  // namespace kestrune::dxl
