#include "common/Resources.h"

#include "platform/ResourceStore.h"

namespace kestrune {

namespace {

Text WithLineBreaks(TextView text) {
  Text broken;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool is_break = text.substr(i, 2) == u"\\n";
    if (is_break) {
      broken += kCrLf;
      ++i;
    } else {
      broken += text[i];
    }
  }
  return broken;
}

}  // namespace

Text LoadDxl(int id) {
  return FromUtf8(StoredBytes(u"DXL", id));
}
Text LoadSql(int id) {
  return FromUtf8(StoredBytes(u"SQL", id));
}
Text LoadResText(int id) {
  return StoredString(id);
}

Text FormatText(Text text, std::initializer_list<Text> args) {
  for (const Text& arg : args) {
    const auto at = text.find(u"%s");
    if (at == Text::npos) break;
    text.replace(at, 2, arg);
  }
  return WithLineBreaks(text);
}

Text FormatResText(int id, std::initializer_list<Text> args) {
  return FormatText(LoadResText(id), args);
}

}  // namespace kestrune
