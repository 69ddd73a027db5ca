#include "common/Resources.h"

#include "platform/ResourceStore.h"

namespace kestrune {

namespace {

// What the platform, which knows nothing of this room, shows of the string table.
static_assert(stored::kTitle == text::kTitle && stored::kOk == text::kOk && stored::kCancel == text::kCancel);
static_assert(stored::kHelpFileMissing == text::kHelpFileMissing &&
              stored::kHelpNotShown == text::kHelpNotShown);
static_assert(stored::kCannotRead == text::kCannotRead && stored::kCannotWrite == text::kCannotWrite &&
              stored::kCannotDelete == text::kCannotDelete);
static_assert(stored::kNoMsxml == text::kNoMsxml && stored::kDtdRefused == text::kDtdRefused);

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
