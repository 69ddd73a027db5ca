#include "standins/dxl/Lexer.h"

#include "standins/dxl/Literals.h"

namespace kestrune::dxl {

namespace {

struct Symbol {
  TextView text;
  bool wants_more;  // a line end straight after it does not end the statement
};

// Longer ones first: the lexer takes the first that fits.
constexpr Symbol kSymbols[] = {
    {u"<<=", true}, {u">>=", true}, {u"<<", true}, {u">>", true}, {u"<>", true}, {u"<=", true}, {u">=", true},
    {u"<?", false}, {u">?", false}, {u"<-", true}, {u"==", true}, {u"=>", true}, {u"!=", true}, {u"&&", true},
    {u"||", true},  {u"^^", true},  {u"+=", true}, {u"-=", true}, {u"*=", true}, {u"/=", true}, {u"%=", true},
    {u"&=", true},  {u"|=", true},  {u"^=", true}, {u":=", true}, {u"::", true}, {u"..", true}, {u"->", true},
    {u"++", false}, {u"--", false}, {u";", true},  {u",", true},  {u"?", true},  {u":", true},  {u"=", true},
    {u"(", true},   {u")", false},  {u"+", true},  {u"*", true},  {u"[", true},  {u"]", false}, {u"&", true},
    {u"-", true},   {u"!", true},   {u"~", true},  {u"/", true},  {u"%", true},  {u"<", true},  {u">", true},
    {u"^", true},   {u"|", true},   {u".", true},  {u"\\", true}, {u"{", false}, {u"}", false}, {u"#", false},
};

bool IsDigit(char16_t c) {
  return c >= u'0' && c <= u'9';
}
bool IsLetter(char16_t c) {
  return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}
bool IsNamePart(char16_t c) {
  return IsLetter(c) || IsDigit(c) || c == u'_' || c == u'\'';
}
bool IsBlank(char16_t c) {
  return c == u' ' || c == u'\t' || c == u'\r' || c == u'\f' || c == u'\v';
}

/// The character itself, or its code where a terminal might not show it.
Text NameOf(char16_t c) {
  if (c > u' ' && c < u'\x7F') return Text(1, c);
  constexpr TextView kDigits = u"0123456789ABCDEF";
  Text name(u"U+");
  for (const int shift : {12, 8, 4, 0}) name += kDigits[static_cast<std::size_t>(c >> shift) & 15u];
  return name;
}

class Lexer {
 public:
  explicit Lexer(TextView source) : cursor_(source) {}

  std::vector<Token> Run() {
    while (!cursor_.AtEnd()) Step();
    Push({TokenKind::kEnd, cursor_.At()});
    return std::move(tokens_);
  }

 private:
  void Step() {
    const char16_t c = cursor_.Peek();
    if (IsBlank(c)) {
      cursor_.Take();
    } else if (c == u'\n') {
      Newline(/*after_comment=*/false);
    } else if (cursor_.Skip(u"//")) {
      LineComment();
    } else if (cursor_.Looks(u"/*")) {
      BlockComment();
    } else if (IsLetter(c)) {
      const Position at = cursor_.At();
      Push({TokenKind::kName, at, Text(cursor_.TakeWhile(IsNamePart))});
    } else if (IsDigit(c) || (c == u'.' && IsDigit(cursor_.Peek(1)))) {
      PushLiteral(ReadNumber);
    } else if (c == u'"') {
      PushLiteral(ReadString);
    } else if (c == u'\'') {
      PushLiteral(ReadChar);
    } else {
      PushSymbol();
    }
  }

  void Newline(bool after_comment) {
    const Position at = cursor_.At();
    cursor_.Take();
    const bool counts = !wants_more_ && !tokens_.empty() && tokens_.back().kind != TokenKind::kNewline;
    if (counts) tokens_.push_back({TokenKind::kNewline, at, {}, {}, after_comment});
  }

  void LineComment() {
    TextView comment = cursor_.TakeWhile([](char16_t c) { return c != u'\n'; });
    if (comment.ends_with(u'\r')) comment.remove_suffix(1);
    wants_more_ = false;
    if (cursor_.AtEnd()) return;
    const bool glues_lines = comment.empty() || comment.back() == u'-';
    if (glues_lines)
      cursor_.Take();
    else
      Newline(/*after_comment=*/true);
  }

  void BlockComment() {
    const Position start = cursor_.At();
    cursor_.Skip(u"/*");
    while (!cursor_.Skip(u"*/")) {
      if (cursor_.AtEnd()) throw Problem{start, u"unterminated comment"};
      cursor_.Take();
    }
    wants_more_ = false;
  }

  void PushLiteral(Value (*read)(Cursor&)) {
    const Position at = cursor_.At();
    Push({TokenKind::kLiteral, at, {}, read(cursor_)});
  }

  void PushSymbol() {
    const Position at = cursor_.At();
    for (const Symbol& symbol : kSymbols) {
      if (!cursor_.Skip(symbol.text)) continue;
      Push({TokenKind::kSymbol, at, Text(symbol.text)});
      wants_more_ = symbol.wants_more;
      return;
    }
    throw Problem{at, u"unexpected character (" + NameOf(cursor_.Peek()) + u")"};
  }

  void Push(Token token) {
    const bool takes_back_newline = token.text == u")" || token.text == u"else";
    if (takes_back_newline && !tokens_.empty() && tokens_.back().kind == TokenKind::kNewline)
      tokens_.pop_back();
    wants_more_ = token.text == u"and" || token.text == u"or";
    tokens_.push_back(std::move(token));
  }

  Cursor cursor_;
  std::vector<Token> tokens_;
  bool wants_more_ =
      false;  // a token that does so stands before the cursor, with blanks and line ends between
};

}  // namespace

std::vector<Token> Tokenize(TextView source) {
  return Lexer(source).Run();
}

}  // namespace kestrune::dxl
