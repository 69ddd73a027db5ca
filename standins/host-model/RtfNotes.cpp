#include "standins/host-model/RtfNotes.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "platform/Automation.h"

namespace kestrune::standins {

namespace {

constexpr int kStyles = 3;
constexpr const char16_t* kTags[kStyles] = {u"b>", u"i>", u"u>"};
using Styles = std::array<bool, kStyles>;

[[noreturn]] void Refuse(TextView word) {
  throw AutomationError(error::kTypeMismatch, u"NotesFromFormat",
                        Text(u"The stand-in of the host does not know \\").append(word).append(u" of RTF"));
}

/// The notes being written; opens and closes tags as the text needs them.
class NotesWriter {
 public:
  void Append(char16_t c, const Styles& styles) {
    Match(styles);
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
  void Match(const Styles& styles) {
    for (std::size_t i = 0; i < open_.size(); ++i)
      if (!styles[open_[i]]) CloseTo(i);
    for (std::size_t style = 0; style < kStyles; ++style) {
      if (!styles[style] || std::ranges::find(open_, style) != open_.end()) continue;
      open_.push_back(style);
      notes_.append(u"<").append(kTags[style]);
    }
  }

  void CloseTo(std::size_t depth) {
    for (; open_.size() > depth; open_.pop_back()) notes_.append(u"</").append(kTags[open_.back()]);
  }

  Text notes_;
  std::vector<std::size_t> open_;  // styles, outermost first
};

/// Reads the document in one pass. Groups are kept on a stack of its own, so that no depth of them is too much.
class RtfReader {
 public:
  explicit RtfReader(TextView rtf) : rtf_(rtf) {}

  Text Read() {
    while (at_ < rtf_.size()) {
      const char16_t c = rtf_[at_++];
      if (c == u'{')
        around_.push_back(styles_);
      else if (c == u'}')
        CloseGroup();
      else if (c == u'\\')
        Control();
      else if (c != u'\r' && c != u'\n')
        notes_.Append(c, styles_);
    }
    return notes_.Finish();
  }

 private:
  void CloseGroup() {
    if (around_.empty()) return;
    styles_ = around_.back();
    around_.pop_back();
  }

  void Control() {
    if (TextView(u"\\{}").find(Next()) != TextView::npos) return notes_.Append(rtf_[at_++], styles_);
    if (Next() == u'\'') return CodePageCharacter();
    const TextView word = TakeWhile([](char16_t c) { return c >= u'a' && c <= u'z'; });
    const TextView digits = TakeWhile([](char16_t c) { return c == u'-' || (c >= u'0' && c <= u'9'); });
    if (Next() == u' ') ++at_;
    Apply(word, ToUtf8(digits));
  }

  char16_t Next() const { return at_ < rtf_.size() ? rtf_[at_] : u'\0'; }

  template <typename Predicate>
  TextView TakeWhile(Predicate is_part) {
    const std::size_t start = at_;
    while (at_ < rtf_.size() && is_part(rtf_[at_])) ++at_;
    return rtf_.substr(start, at_ - start);
  }

  void CodePageCharacter() {
    const std::string digits = ToUtf8(rtf_.substr(at_ + 1, 2));
    unsigned byte = 0;
    const auto end = std::from_chars(digits.data(), digits.data() + digits.size(), byte, 16).ptr;
    if (end != digits.data() + 2 || (byte >= 0x80 && byte < 0xA0)) Refuse(rtf_.substr(at_, 3));
    at_ += 3;
    notes_.Append(static_cast<char16_t>(byte), styles_);
  }

  void Apply(TextView word, const std::string& digits) {
    const bool is_on = digits != "0";  // \b means \b1
    if (word == u"par" || word == u"line") return notes_.EndLine();
    if (word == u"b") return SetStyle(0, is_on);
    if (word == u"i") return SetStyle(1, is_on);
    if (word == u"ul") return SetStyle(2, is_on);
    if (word == u"u") return UnicodeCharacter(digits);
    if (word != u"rtf" && word != u"ansi" && word != u"deff") Refuse(word);
  }

  void SetStyle(std::size_t style, bool is_on) { styles_[style] = is_on; }

  /// A UTF-16 unit, written as a signed 16-bit number; a character that older readers show follows it.
  void UnicodeCharacter(const std::string& digits) {
    std::int16_t unit = 0;
    const auto [end, failure] = std::from_chars(digits.data(), digits.data() + digits.size(), unit);
    if (failure != std::errc() || end != digits.data() + digits.size() || Next() != u'?') Refuse(u"u");
    ++at_;
    notes_.Append(static_cast<char16_t>(unit), styles_);
  }

  TextView rtf_;
  std::size_t at_ = 0;
  Styles styles_ = {};
  std::vector<Styles> around_;  // of the groups that enclose this one, outermost first
  NotesWriter notes_;
};

}  // namespace

Text NotesFromRtf(TextView rtf) {
  return RtfReader(rtf).Read();
}

}  // namespace kestrune::standins
