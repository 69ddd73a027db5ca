#include "standins/host-model/RtfNotes.h"

#include <algorithm>
#include <map>
#include <set>

namespace kestrune::standins {

namespace {

constexpr int kStyles = 3;
constexpr const char16_t* kTags[kStyles] = {u"b>", u"i>", u"u>"};

/// What a group inherits from the group around it and loses at its end.
struct Format {
  bool Skipped = false;  // inside a destination that is not text
  bool Style[kStyles] = {};
  int UnicodeFallback = 1;  // how many characters after a \u stand for it in older readers
};

/// The notes being written; opens and closes tags as the text needs them.
class NotesWriter {
 public:
  void Append(char16_t c, const Format& format) {
    Match(format);
    if (c == u'&')
      notes_ += u"&amp;";
    else if (c == u'<')
      notes_ += u"&lt;";
    else if (c == u'>')
      notes_ += u"&gt;";
    else
      notes_ += c;
  }

  void EndLine() {
    CloseTo(0);
    notes_ += kCrLf;
  }

  Text Finish() {
    CloseTo(0);
    return std::move(notes_);
  }

 private:
  void Match(const Format& format) {
    for (std::size_t i = 0; i < open_.size(); ++i)
      if (!format.Style[open_[i]]) CloseTo(i);
    for (int style = 0; style < kStyles; ++style) {
      if (!format.Style[style] || std::find(open_.begin(), open_.end(), style) != open_.end()) continue;
      open_.push_back(style);
      notes_.append(u"<").append(kTags[style]);
    }
  }

  void CloseTo(std::size_t depth) {
    for (; open_.size() > depth; open_.pop_back()) notes_.append(u"</").append(kTags[open_.back()]);
  }

  Text notes_;
  std::vector<int> open_;  // styles, outermost first
};

const std::set<Text, std::less<>> kSkippedDestinations = {
    u"fonttbl", u"colortbl", u"stylesheet", u"info",    u"pict",    u"header",  u"headerl",
    u"headerr", u"headerf",  u"footer",     u"footerl", u"footerr", u"footerf", u"footnote"};

const std::map<Text, char16_t, std::less<>> kNamedCharacters = {
    {u"tab", u'\t'},        {u"cell", u'\t'},          {u"emdash", u'\u2014'},
    {u"endash", u'\u2013'}, {u"bullet", u'\u2022'},    {u"lquote", u'\u2018'},
    {u"rquote", u'\u2019'}, {u"ldblquote", u'\u201C'}, {u"rdblquote", u'\u201D'}};

/// Windows-1252; bytes that it leaves undefined are the control characters of the same number.
char16_t FromCodePage(int byte) {
  constexpr TextView kUpperControls =
      u"\u20AC\u0081\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152\u008D\u017D\u008F"
      u"\u0090\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A\u0153\u009D\u017E\u0178";
  return byte >= 0x80 && byte < 0xA0 ? kUpperControls[byte - 0x80] : static_cast<char16_t>(byte);
}

int HexDigit(char16_t c) {
  constexpr TextView kDigits = u"0123456789abcdef";
  const auto found = kDigits.find(c >= u'A' && c <= u'F' ? static_cast<char16_t>(c - u'A' + u'a') : c);
  return found == TextView::npos ? -1 : static_cast<int>(found);
}

bool IsLetter(char16_t c) {
  return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}
bool IsDigit(char16_t c) {
  return c >= u'0' && c <= u'9';
}

/// Reads the document in one pass. Groups are kept on a
/// stack of its own, so that no depth of them is too much.
class RtfReader {
 public:
  explicit RtfReader(TextView rtf) : rtf_(rtf) {}

  Text Read() {
    while (at_ < rtf_.size()) {
      const char16_t c = rtf_[at_++];
      if (c == u'{')
        OpenGroup();
      else if (c == u'}')
        CloseGroup();
      else if (c == u'\\')
        Control();
      else if (c != u'\r' && c != u'\n')
        Character(c);
    }
    return notes_.Finish();
  }

 private:
  void OpenGroup() {
    fallback_left_ = 0;
    around_.push_back(format_);
  }

  void CloseGroup() {
    fallback_left_ = 0;
    if (around_.empty()) return;
    format_ = around_.back();
    around_.pop_back();
    if (around_.empty()) at_ = rtf_.size();  // the document's own group has ended
  }

  /// A character of text, unless it only stands in for the \u before it.
  void Character(char16_t c) {
    if (fallback_left_ > 0)
      --fallback_left_;
    else if (!format_.Skipped)
      notes_.Append(c, format_);
  }

  void EndLine() {
    if (!format_.Skipped) notes_.EndLine();
  }

  void Control() {
    if (at_ == rtf_.size()) return;
    if (IsLetter(rtf_[at_])) return ControlWord();
    const char16_t symbol = rtf_[at_++];
    switch (symbol) {
      case u'\'':
        return CodePageCharacter();
      case u'*':
        return SkipGroup();
      case u'~':
        return Character(u'\u00A0');
      case u'_':
        return Character(u'\u2011');
      case u'\r':
      case u'\n':
        return EndLine();
      case u'\\':
      case u'{':
      case u'}':
        return Character(symbol);
      default:
        return;
    }
  }

  void CodePageCharacter() {
    if (rtf_.size() - at_ < 2) return;
    const int high = HexDigit(rtf_[at_]);
    const int low = HexDigit(rtf_[at_ + 1]);
    if (high < 0 || low < 0) return;
    at_ += 2;
    Character(FromCodePage(high * 16 + low));
  }

  void ControlWord() {
    fallback_left_ = 0;
    const auto start = at_;
    while (at_ < rtf_.size() && IsLetter(rtf_[at_])) ++at_;
    const TextView word = rtf_.substr(start, at_ - start);
    const bool has_number =
        at_ < rtf_.size() &&
        (IsDigit(rtf_[at_]) || (rtf_[at_] == u'-' && at_ + 1 < rtf_.size() && IsDigit(rtf_[at_ + 1])));
    const int number = has_number ? Number() : 1;
    if (at_ < rtf_.size() && rtf_[at_] == u' ') ++at_;
    Apply(word, number);
  }

  /// The number that stands here; one beyond a million is as good as a million.
  int Number() {
    const bool negative = rtf_[at_] == u'-';
    if (negative) ++at_;
    int number = 0;
    for (; at_ < rtf_.size() && IsDigit(rtf_[at_]); ++at_)
      number = std::min(number * 10 + (rtf_[at_] - u'0'), 1'000'000);
    return negative ? -number : number;
  }

  /// `number` is 1 for a word without one: \b means \b1.
  void Apply(TextView word, int number) {
    if (word == u"par" || word == u"line" || word == u"row") return EndLine();
    if (word == u"b") return SetStyle(0, number != 0);
    if (word == u"i") return SetStyle(1, number != 0);
    if (word == u"ul") return SetStyle(2, number != 0);
    if (word == u"ulnone") return SetStyle(2, false);
    if (word == u"plain") return ClearStyles();
    if (word == u"u") return UnicodeCharacter(number);
    if (word == u"uc") return SetFallback(number);
    if (word == u"bin") return SkipBytes(number);
    if (kSkippedDestinations.count(word)) return SkipGroup();
    const auto named = kNamedCharacters.find(word);
    if (named != kNamedCharacters.end()) Character(named->second);
  }

  void SetStyle(int style, bool on) { format_.Style[style] = on; }
  void ClearStyles() { std::fill_n(format_.Style, kStyles, false); }
  void SetFallback(int count) { format_.UnicodeFallback = std::max(count, 0); }
  void SkipGroup() { format_.Skipped = true; }

  /// The number is a UTF-16 unit, written as a signed 16-bit number.
  void UnicodeCharacter(int number) {
    Character(static_cast<char16_t>(number));
    fallback_left_ = format_.UnicodeFallback;
  }

  void SkipBytes(int count) {
    at_ += std::min(static_cast<std::size_t>(std::max(count, 0)), rtf_.size() - at_);
  }

  TextView rtf_;
  std::size_t at_ = 0;
  Format format_;
  std::vector<Format> around_;  // of the groups that enclose this one, outermost first
  int fallback_left_ = 0;
  NotesWriter notes_;
};

}  // namespace

Text NotesFromRtf(TextView rtf) {
  return RtfReader(rtf).Read();
}

}  // namespace kestrune::standins
