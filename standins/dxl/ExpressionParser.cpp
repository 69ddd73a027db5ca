#include "standins/dxl/ExpressionParser.h"

#include <algorithm>
#include <iterator>

#include "standins/dxl/Library.h"

namespace kestrune::dxl {

namespace {

struct BinaryRule {
  TextView word;
  int binding;  // the higher, the tighter; all group from the left
};

constexpr BinaryRule kBinaryRules[] = {
    {u"||", 1}, {u"or", 1}, {u"&&", 2}, {u"and", 2}, {u"&", 3}, {u"^", 3}, {u"|", 3}, {u"==", 4}, {u"!=", 4},
    {u"<", 5},  {u">", 5},  {u"<=", 5}, {u">=", 5},  {u"+", 6}, {u"-", 6}, {u"*", 7}, {u"/", 7},  {u"%", 7},
};

constexpr TextView kAssignments[] = {u"=", u"+=", u"-=", u"*=", u"/=", u"%=", u"&=", u"|=", u"^="};
constexpr TextView kPrefixes[] = {u"!", u"-", u"~", u"+"};
constexpr TextView kReserved[] = {u"and",    u"bool",     u"break",   u"by",     u"case",   u"char",
                                  u"const",  u"continue", u"default", u"do",     u"else",   u"enum",
                                  u"for",    u"if",       u"in",      u"int",    u"or",     u"pragma",
                                  u"real",   u"return",   u"sizeof",  u"static", u"string", u"struct",
                                  u"switch", u"then",     u"union",   u"void",   u"while"};

template <typename Table>
bool Contains(const Table& table, TextView word) {
  return std::find(std::begin(table), std::end(table), word) != std::end(table);
}

template <typename... Kids>
ExprPtr Make(ExprKind kind, Position at, Text word, Kids... kids) {
  auto expr = std::make_unique<Expr>(Expr{kind, at, std::move(word)});
  (expr->kids.push_back(std::move(kids)), ...);
  return expr;
}

/// Sets the depth once all kids are there. Long rows of operators nest without any parenthesis, so it is
/// checked here and not only where the parser calls itself.
ExprPtr Measured(ExprPtr expr) {
  int deepest = 0;
  for (const ExprPtr& kid : expr->kids) deepest = std::max(deepest, kid->depth);
  const int links = expr->kind == ExprKind::kChain ? static_cast<int>(expr->kids.size()) : 1;
  expr->depth = deepest + links;
  if (expr->depth > kMaxNesting) throw Problem{expr->at, u"expression too long or nested too deeply"};
  return expr;
}

const BinaryRule* RuleOf(const Token& token) {
  if (token.kind != TokenKind::kSymbol && token.kind != TokenKind::kName) return nullptr;
  const auto* rule = std::find_if(std::begin(kBinaryRules), std::end(kBinaryRules),
                                  [&](const BinaryRule& row) { return row.word == token.text; });
  return rule == std::end(kBinaryRules) ? nullptr : rule;
}

}  // namespace

bool ExpressionParser::IsReserved(TextView word) {
  return Contains(kReserved, word);
}

Type ExpressionParser::TypeAt(std::size_t ahead) const {
  const Token& token = tokens_.Peek(ahead);
  const Type type = token.kind == TokenKind::kName ? library_.FindType(token.text) : kNone;
  return type == kAny ? kNone : type;
}

ExprPtr ExpressionParser::Parse() {
  const TokenStream::Level level(tokens_);
  ExprPtr left = ParseConditional();
  if (tokens_.Is(TokenKind::kSymbol) && Contains(kAssignments, tokens_.Peek().text)) {
    const Token& sign = tokens_.Take();
    return Measured(Make(ExprKind::kAssign, sign.at, sign.text, std::move(left), Parse()));
  }
  return left;
}

ExprPtr ExpressionParser::ParseConditional() {
  ExprPtr condition = ParseBinary(1);
  if (!tokens_.IsSymbol(u"?")) return condition;
  const TokenStream::Level level(tokens_);
  const Position at = tokens_.Take().at;
  ExprPtr yes = ParseConditional();
  tokens_.ExpectSymbol(u":");
  ExprPtr no = ParseConditional();
  return Measured(Make(ExprKind::kConditional, at, {}, std::move(condition), std::move(yes), std::move(no)));
}

ExprPtr ExpressionParser::ParseBinary(int loosest) {
  ExprPtr left = ParsePrefix();
  while (const BinaryRule* rule = RuleOf(tokens_.Peek())) {
    if (rule->binding < loosest) break;
    const Token& sign = tokens_.Take();
    ExprPtr right = ParseBinary(rule->binding + 1);
    left = Measured(Make(ExprKind::kBinary, sign.at, sign.text, std::move(left), std::move(right)));
  }
  return left;
}

ExprPtr ExpressionParser::ParsePrefix() {
  const Token& sign = tokens_.Peek();
  const bool is_step = tokens_.IsSymbol(u"++") || tokens_.IsSymbol(u"--");
  if (!is_step && !(sign.kind == TokenKind::kSymbol && Contains(kPrefixes, sign.text))) return ParseChain();
  const TokenStream::Level level(tokens_);
  tokens_.Take();
  return Measured(
      Make(is_step ? ExprKind::kStepBefore : ExprKind::kPrefix, sign.at, sign.text, ParsePrefix()));
}

ExprPtr ExpressionParser::ParseChain() {
  const Position at = tokens_.Peek().at;
  if (const Type type = TypeAt(0); type != kNone) {
    const TokenStream::Level level(tokens_);
    tokens_.Take();
    ExprPtr cast = Make(ExprKind::kCast, at, {}, ParseChain());
    cast->type = type;
    return Measured(std::move(cast));
  }
  std::vector<ExprPtr> chain;
  do ParseElement(chain);
  while (AtElement());
  if (chain.size() == 1) return std::move(chain.front());
  ExprPtr expr = Make(ExprKind::kChain, at, {});
  expr->kids = std::move(chain);
  return Measured(std::move(expr));
}

bool ExpressionParser::AtElement() const {
  const Token& token = tokens_.Peek();
  if (token.kind == TokenKind::kName) return !IsReserved(token.text) || token.text == u"sizeof";
  return token.kind == TokenKind::kLiteral || tokens_.IsSymbol(u"(");
}

/// One element, or two for a name with one argument in parentheses.
void ExpressionParser::ParseElement(std::vector<ExprPtr>& chain) {
  ExprPtr primary = ParsePrimary();
  if (primary->kind == ExprKind::kName && tokens_.IsSymbol(u"(")) {
    chain.push_back(std::move(primary));
    ParseArguments(chain);
  } else {
    chain.push_back(ParsePostfix(std::move(primary)));
  }
}

void ExpressionParser::ParseArguments(std::vector<ExprPtr>& chain) {
  const Position at = tokens_.Take().at;
  std::vector<ExprPtr> arguments;
  if (!tokens_.IsSymbol(u")")) {
    do arguments.push_back(Parse());
    while (tokens_.TakeSymbol(u","));
  }
  tokens_.ExpectSymbol(u")");
  if (arguments.size() == 1) {
    // Whether f(a)[i] means (f(a))[i] or f((a)[i]) is nowhere written down.
    if (AtPostfix())
      tokens_.Refuse(u"a call directly before " + tokens_.Peek().text + u" without parentheses around it");
    chain.push_back(Measured(Make(ExprKind::kParen, at, {}, std::move(arguments.front()))));
    return;
  }
  chain.back()->kind = ExprKind::kCall;
  chain.back()->kids = std::move(arguments);
  chain.back() = ParsePostfix(Measured(std::move(chain.back())));
}

ExprPtr ExpressionParser::ParsePrimary() {
  const Token& token = tokens_.Peek();
  if (token.kind == TokenKind::kLiteral) {
    tokens_.Take();
    ExprPtr expr = Make(ExprKind::kLiteral, token.at, {});
    expr->literal = token.literal;
    return expr;
  }
  if (tokens_.IsSymbol(u"(")) return ParseParen();
  if (tokens_.TakeWord(u"sizeof")) return ParseSizeof(token.at);
  if (token.kind != TokenKind::kName || IsReserved(token.text)) tokens_.SyntaxError();
  tokens_.Take();
  ExprPtr name = Make(ExprKind::kName, token.at, token.text);
  if (const Type type = TypeAt(0); type != kNone) {
    tokens_.Take();
    name->kind = ExprKind::kTyped;
    name->type = type;
  }
  return name;
}

ExprPtr ExpressionParser::ParseSizeof(Position at) {
  const TokenStream::Level level(tokens_);
  return Measured(Make(ExprKind::kSizeof, at, {}, ParsePrimary()));
}

ExprPtr ExpressionParser::ParseParen() {
  const Position at = tokens_.Take().at;
  ExprPtr inner = Parse();
  tokens_.ExpectSymbol(u")");
  return Measured(Make(ExprKind::kParen, at, {}, std::move(inner)));
}

bool ExpressionParser::AtPostfix() const {
  return tokens_.IsSymbol(u"[") || tokens_.IsSymbol(u".");
}

ExprPtr ExpressionParser::ParsePostfix(ExprPtr expr) {
  for (;;) {
    if (tokens_.IsSymbol(u"[")) {
      expr = ParseSubscript(std::move(expr));
    } else if (tokens_.IsSymbol(u".")) {
      expr = ParseDot(std::move(expr));
    } else if (tokens_.IsSymbol(u"++") || tokens_.IsSymbol(u"--")) {
      const Token& sign = tokens_.Take();
      expr = Measured(Make(ExprKind::kStepAfter, sign.at, sign.text, std::move(expr)));
    } else {
      return expr;
    }
  }
}

ExprPtr ExpressionParser::ParseSubscript(ExprPtr expr) {
  const Position at = tokens_.Take().at;
  ExprPtr subscript = Make(ExprKind::kIndex, at, {}, std::move(expr), Parse());
  if (tokens_.TakeSymbol(u":")) {
    subscript->kind = ExprKind::kSlice;
    if (!tokens_.IsSymbol(u"]")) subscript->kids.push_back(Parse());
  }
  tokens_.ExpectSymbol(u"]");
  return Measured(std::move(subscript));
}

ExprPtr ExpressionParser::ParseDot(ExprPtr expr) {
  const Position at = tokens_.Take().at;
  const bool is_name = tokens_.Is(TokenKind::kName);
  if (!is_name && !tokens_.Is(TokenKind::kLiteral) && !tokens_.IsSymbol(u"(")) tokens_.SyntaxError();
  ExprPtr right = is_name ? Make(ExprKind::kName, tokens_.Peek().at, tokens_.Peek().text) : nullptr;
  if (is_name)
    tokens_.Take();
  else
    right = ParsePrimary();
  return Measured(Make(ExprKind::kDot, at, {}, std::move(expr), std::move(right)));
}

}  // namespace kestrune::dxl
