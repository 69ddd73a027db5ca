#include "standins/dxl/RegexParser.h"

namespace kestrune::dxl {

namespace {

using Kind = Regex::Kind;
using Program = RegexParser::Program;

Regex::Instruction Save(int boundary) {
  return {Kind::kSave, boundary};
}

void AppendTo(Program& program, const Program& more) {
  program.insert(program.end(), more.begin(), more.end());
}

int Size(const Program& program) {
  return static_cast<int>(program.size());
}

bool IsLetterOrDigit(char16_t c) {
  return (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

}  // namespace

Program RegexParser::Parse() {
  if (pattern_.size() > Regex::kMaxPatternLength) Malformed(u"too long");
  Program program = {Save(0)};
  AppendTo(program, ParseAlternatives());
  if (!AtEnd()) Malformed(u") without (");
  program.push_back(Save(1));
  program.push_back({Kind::kMatch});
  return program;
}

Program RegexParser::ParseAlternatives() {
  Program left = ParseSequence();
  while (Skip(u'|')) {
    const Program right = ParseSequence();
    Program both = {{Kind::kSplit, 1, Size(left) + 2}};
    AppendTo(both, left);
    both.push_back({Kind::kJump, Size(right) + 1});
    AppendTo(both, right);
    left = std::move(both);
  }
  return left;
}

Program RegexParser::ParseSequence() {
  Program sequence;
  while (!AtEnd() && !Looks(u'|') && !Looks(u')')) AppendTo(sequence, ParseRepeated());
  return sequence;
}

Program RegexParser::ParseRepeated() {
  Program atom = ParseAtom();
  const int size = Size(atom);
  if (Skip(u'*')) {
    atom.insert(atom.begin(), {Kind::kSplit, 1, size + 2});
    atom.push_back({Kind::kJump, -(size + 1)});
  } else if (Skip(u'+')) {
    atom.push_back({Kind::kSplit, -size, 1});
  }
  if (Looks(u'*') || Looks(u'+')) Malformed(u"one repetition after another");
  return atom;
}

Program RegexParser::ParseAtom() {
  if (Skip(u'(')) return ParseGroup();
  if (Skip(u'[')) return ParseSet();
  if (Skip(u'.')) return {{Kind::kAny}};
  if (Skip(u'^')) return {{Kind::kLineStart}};
  if (Skip(u'$')) return {{Kind::kLineEnd}};
  if (Looks(u'*') || Looks(u'+')) Malformed(u"nothing to repeat");
  if (Looks(u'?') || Looks(u'{') || Looks(u'}'))
    Malformed(u"? { and } are not supported without a backslash");
  Regex::Instruction literal{Kind::kChar};
  literal.character = Skip(u'\\') ? ParseEscaped() : pattern_[next_++];
  return {literal};
}

Program RegexParser::ParseGroup() {
  const int group = ++groups_;
  if (group > Regex::kMaxGroups) Malformed(u"more than 9 groups");
  Program program = {Save(2 * group)};
  AppendTo(program, ParseAlternatives());
  if (!Skip(u')')) Malformed(u"( without )");
  program.push_back(Save(2 * group + 1));
  return program;
}

Program RegexParser::ParseSet() {
  Regex::Instruction set{Kind::kSet};
  set.negated = Skip(u'^');
  if (Looks(u']')) Malformed(u"empty set");
  while (!Skip(u']')) {
    const char16_t first = ParseSetCharacter();
    const bool is_range = Looks(u'-') && next_ + 1 < pattern_.size() && pattern_[next_ + 1] != u']';
    const char16_t last = is_range && Skip(u'-') ? ParseSetCharacter() : first;
    if (last < first) Malformed(u"range in a set the wrong way round");
    set.set.push_back({first, last});
  }
  return {set};
}

char16_t RegexParser::ParseSetCharacter() {
  if (AtEnd()) Malformed(u"[ without ]");
  return Skip(u'\\') ? ParseEscaped() : pattern_[next_++];
}

char16_t RegexParser::ParseEscaped() {
  if (AtEnd()) Malformed(u"nothing after the backslash");
  if (IsLetterOrDigit(pattern_[next_])) Malformed(u"a backslash before a letter or a digit is not supported");
  return pattern_[next_++];
}

bool RegexParser::Skip(char16_t c) {
  const bool looks = Looks(c);
  if (looks) ++next_;
  return looks;
}

void RegexParser::Malformed(TextView why) const {
  throw ScriptError(u"regular expression (" + Text(pattern_.substr(0, 80)) + u"): " + Text(why));
}

}  // namespace kestrune::dxl
