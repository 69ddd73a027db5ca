#include "standins/dxl/Literals.h"

#include <cstdlib>
#include <limits>

namespace kestrune::dxl {

namespace {

constexpr int kNoDigit = 99;

int DigitValue(char16_t c) {
  if (c >= u'0' && c <= u'9') return c - u'0';
  if (c >= u'a' && c <= u'f') return c - u'a' + 10;
  if (c >= u'A' && c <= u'F') return c - u'A' + 10;
  return kNoDigit;
}

bool IsDigit(char16_t c) {
  return c >= u'0' && c <= u'9';
}
bool IsOctal(char16_t c) {
  return c >= u'0' && c <= u'7';
}
bool IsWordPart(char16_t c) {
  return DigitValue(c) != kNoDigit || (c >= u'g' && c <= u'z') || (c >= u'G' && c <= u'Z');
}

/// `largest`: decimal numbers must fit the positive ints; in the other bases all 32 bits may be given.
Value ToInt(TextView digits, int base, long long largest, Position at) {
  long long number = 0;
  for (const char16_t c : digits) {
    const int digit = DigitValue(c);
    if (digit >= base) throw Problem{at, u"malformed number"};
    number = number * base + digit;
    if (number > largest) throw Problem{at, u"number too large"};
  }
  if (digits.empty()) throw Problem{at, u"malformed number"};
  return Value(static_cast<std::int32_t>(static_cast<std::uint32_t>(number)));
}

Value ReadInBase(Cursor& cursor, int base, Position at) {
  return ToInt(cursor.TakeWhile(IsWordPart), base, std::numeric_limits<std::uint32_t>::max(), at);
}

/// A "." belongs to the number unless it is the first of "..".
bool AtFraction(const Cursor& cursor) {
  return cursor.Peek() == u'.' && cursor.Peek(1) != u'.';
}

bool AtExponent(const Cursor& cursor) {
  if (cursor.Peek() != u'e' && cursor.Peek() != u'E') return false;
  const bool sign = cursor.Peek(1) == u'+' || cursor.Peek(1) == u'-';
  return IsDigit(cursor.Peek(sign ? 2 : 1));
}

char16_t ReadOctal(Cursor& cursor) {
  int code = 0;
  for (int i = 0; i < 3 && IsOctal(cursor.Peek()); ++i) code = code * 8 + (cursor.Take() - u'0');
  return static_cast<char16_t>(code);
}

/// The character after a backslash; whatever has no meaning of its own stands for itself.
char16_t ReadEscape(Cursor& cursor) {
  if (IsOctal(cursor.Peek())) return ReadOctal(cursor);
  const char16_t c = cursor.Take();
  switch (c) {
    case u'n':
      return u'\n';
    case u't':
      return u'\t';
    case u'b':
      return u'\b';
    case u'r':
      return u'\r';
    case u'f':
      return u'\f';
    default:
      return c;
  }
}

char16_t ReadCharacter(Cursor& cursor, Position start) {
  if (cursor.Skip(u"\\") && !cursor.AtEnd()) return ReadEscape(cursor);
  if (cursor.AtEnd()) throw Problem{start, u"unterminated literal"};
  return cursor.Take();
}

}  // namespace

Value ReadNumber(Cursor& cursor) {
  const Position at = cursor.At();
  if (cursor.Skip(u"0x") || cursor.Skip(u"0X")) return ReadInBase(cursor, 16, at);
  if (cursor.Skip(u"0b") || cursor.Skip(u"0B")) return ReadInBase(cursor, 2, at);
  Text number(cursor.TakeWhile(IsDigit));
  const bool is_real = AtFraction(cursor) || AtExponent(cursor);
  if (AtFraction(cursor)) {
    number += cursor.Take();
    number += cursor.TakeWhile(IsDigit);
  }
  if (AtExponent(cursor)) {
    number += cursor.Take();
    if (!IsDigit(cursor.Peek())) number += cursor.Take();
    number += cursor.TakeWhile(IsDigit);
  }
  if (IsWordPart(cursor.Peek())) throw Problem{at, u"malformed number"};
  if (is_real) return Value(std::strtod(ToUtf8(number).c_str(), nullptr));
  const bool is_octal = number.size() > 1 && number[0] == u'0';
  if (is_octal) return ToInt(number, 8, std::numeric_limits<std::uint32_t>::max(), at);
  return ToInt(number, 10, std::numeric_limits<std::int32_t>::max(), at);
}

Value ReadString(Cursor& cursor) {
  const Position start = cursor.At();
  cursor.Take();
  Text text;
  while (!cursor.Skip(u"\"")) text += ReadCharacter(cursor, start);
  return Value(std::move(text));
}

Value ReadChar(Cursor& cursor) {
  const Position start = cursor.At();
  cursor.Take();
  const bool is_empty = cursor.Looks(u"'");
  const char16_t c = ReadCharacter(cursor, start);
  if (is_empty || !cursor.Skip(u"'")) throw Problem{start, u"malformed character"};
  return Value(c);
}

}  // namespace kestrune::dxl
