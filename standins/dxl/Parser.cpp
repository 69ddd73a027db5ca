#include "standins/dxl/Parser.h"

#include "standins/dxl/ExpressionParser.h"
#include "standins/dxl/Lexer.h"
#include "standins/dxl/Library.h"

namespace kestrune::dxl {

namespace {

class Parser {
 public:
  Parser(TextView source, const Library& library)
      : tokens_(Tokenize(source)), expressions_(tokens_, library) {}

  std::vector<StmtPtr> Run() {
    std::vector<StmtPtr> statements;
    while (SkipSeparators(), !tokens_.Is(TokenKind::kEnd)) ParseInto(statements);
    return statements;
  }

 private:
  using Handler = StmtPtr (Parser::*)(StmtPtr);
  struct Keyword {
    TextView word;
    StmtKind kind;
    Handler parse;
  };
  static const Keyword kKeywords[8];

  void SkipSeparators() {
    while (tokens_.Is(TokenKind::kNewline) || tokens_.IsSymbol(u";")) tokens_.Take();
  }

  void ParseInto(std::vector<StmtPtr>& statements) {
    statements.push_back(ParseStatement());
    const bool ended = tokens_.Is(TokenKind::kNewline) || tokens_.Is(TokenKind::kEnd) ||
                       tokens_.IsSymbol(u";") || tokens_.IsSymbol(u"}");
    if (!ended) tokens_.SyntaxError();
  }

  StmtPtr New(StmtKind kind) const {
    auto statement = std::make_unique<Stmt>();
    statement->kind = kind;
    statement->at = tokens_.Peek().at;
    return statement;
  }

  StmtPtr ParseStatement() {
    const TokenStream::Level level(tokens_);
    if (tokens_.IsSymbol(u"{")) return ParseBlock();
    if (tokens_.Is(TokenKind::kName)) {
      for (const Keyword& keyword : kKeywords) {
        if (!tokens_.IsWord(keyword.word)) continue;
        StmtPtr statement = New(keyword.kind);
        tokens_.Take();
        return (this->*keyword.parse)(std::move(statement));
      }
      const bool named = tokens_.Peek(1).kind == TokenKind::kName || tokens_.IsSymbol(u"&", 1);
      if (named && expressions_.TypeAt(0) != kNone) return ParseDeclaration(New(StmtKind::kDeclare));
      if (UnsupportedAt(tokens_.Peek(), tokens_.Peek(1))) tokens_.SyntaxError();
    }
    StmtPtr statement = New(StmtKind::kExpression);
    statement->exprs.push_back(expressions_.Parse());
    return statement;
  }

  StmtPtr ParseBlock() {
    StmtPtr block = New(StmtKind::kBlock);
    tokens_.ExpectSymbol(u"{");
    while (SkipSeparators(), !tokens_.IsSymbol(u"}")) ParseInto(block->body);
    tokens_.Take();
    return block;
  }

  /// The body of if, else, while, for; it may start on the next line. A comment after the head is known to
  /// upset DOORS unless the body has braces.
  StmtPtr ParseBody() {
    if (tokens_.Peek().after_comment && !tokens_.IsSymbol(u"{", 1))
      tokens_.Refuse(u"a comment between the head of a statement and a body without braces");
    if (tokens_.Is(TokenKind::kNewline)) tokens_.Take();
    if (tokens_.IsSymbol(u";")) return New(StmtKind::kBlock);
    return ParseStatement();
  }

  StmtPtr ParseIf(StmtPtr statement) {
    const bool in_parens = tokens_.IsSymbol(u"(");
    statement->exprs.push_back(in_parens ? ParseCondition() : expressions_.Parse());
    if (!in_parens) tokens_.ExpectWord(u"then");
    statement->body.push_back(ParseBody());
    const bool has_semicolon = tokens_.IsSymbol(u";") && tokens_.IsWord(u"else", 1);
    if (has_semicolon && statement->body[0]->kind == StmtKind::kBlock)
      tokens_.Refuse(u"a semicolon between a block and else");
    if (has_semicolon) tokens_.Take();
    if (tokens_.TakeWord(u"else")) statement->body.push_back(ParseBody());
    return statement;
  }

  ExprPtr ParseCondition() {
    tokens_.ExpectSymbol(u"(");
    ExprPtr condition = expressions_.Parse();
    tokens_.ExpectSymbol(u")");
    return condition;
  }

  StmtPtr ParseWhile(StmtPtr statement) {
    statement->exprs.push_back(ParseCondition());
    statement->body.push_back(ParseBody());
    return statement;
  }

  StmtPtr ParseFor(StmtPtr statement) {
    if (tokens_.IsSymbol(u"(")) return ParseForHead(std::move(statement));
    statement->word = TakeName();
    tokens_.ExpectWord(u"in");
    statement->exprs.push_back(expressions_.ParseConditional());
    statement->kind = StmtKind::kForIn;
    if (tokens_.TakeSymbol(u":")) {
      statement->kind = StmtKind::kForRange;
      statement->exprs.push_back(expressions_.ParseConditional());
      statement->exprs.push_back(tokens_.TakeWord(u"by") ? expressions_.ParseConditional() : nullptr);
    }
    tokens_.ExpectWord(u"do");
    statement->body.push_back(ParseBody());
    return statement;
  }

  StmtPtr ParseForHead(StmtPtr statement) {
    tokens_.Take();
    for (const TextView end : {u";", u";", u")"}) {
      statement->exprs.push_back(tokens_.IsSymbol(end) ? nullptr : expressions_.Parse());
      tokens_.ExpectSymbol(end);
    }
    statement->body.push_back(ParseBody());
    return statement;
  }

  StmtPtr ParseWordAlone(StmtPtr statement) { return statement; }

  StmtPtr ParseReturn(StmtPtr statement) {
    const bool bare = tokens_.Is(TokenKind::kNewline) || tokens_.Is(TokenKind::kEnd) ||
                      tokens_.IsSymbol(u";") || tokens_.IsSymbol(u"}");
    if (!bare) statement->exprs.push_back(expressions_.Parse());
    return statement;
  }

  StmtPtr ParsePragma(StmtPtr statement) {
    statement->word = TakeName();
    tokens_.ExpectSymbol(u",");
    statement->exprs.push_back(expressions_.Parse());
    return statement;
  }

  StmtPtr ParseConst(StmtPtr statement) {
    if (expressions_.TypeAt(0) == kNone) tokens_.SyntaxError();
    statement->is_const = true;
    return ParseDeclaration(std::move(statement));
  }

  StmtPtr ParseDeclaration(StmtPtr statement) {
    statement->type = expressions_.TypeAt(0);
    tokens_.Take();
    if (tokens_.IsSymbol(u"&")) tokens_.Refuse(u"a reference variable");
    if (tokens_.IsSymbol(u"(", 1)) return ParseFunction(std::move(statement));
    do statement->declarators.push_back(ParseDeclarator());
    while (tokens_.TakeSymbol(u","));
    return statement;
  }

  Declarator ParseDeclarator() {
    Declarator declarator;
    declarator.at = tokens_.Peek().at;
    declarator.name = TakeName();
    if (tokens_.TakeSymbol(u"[")) {
      declarator.is_array = true;
      if (!tokens_.IsSymbol(u"]")) declarator.size = expressions_.Parse();
      tokens_.ExpectSymbol(u"]");
    }
    if (!tokens_.TakeSymbol(u"=")) return declarator;
    if (declarator.is_array)
      ParseElements(declarator);
    else
      declarator.initial = expressions_.ParseConditional();
    return declarator;
  }

  void ParseElements(Declarator& declarator) {
    if (declarator.size) tokens_.SyntaxError();
    tokens_.ExpectSymbol(u"{");
    do declarator.elements.push_back(expressions_.ParseConditional());
    while (tokens_.TakeSymbol(u","));
    tokens_.ExpectSymbol(u"}");
  }

  StmtPtr ParseFunction(StmtPtr statement) {
    statement->kind = StmtKind::kFunction;
    statement->at = tokens_.Peek().at;
    statement->word = TakeName();
    tokens_.ExpectSymbol(u"(");
    if (tokens_.IsWord(u"void") && tokens_.IsSymbol(u")", 1)) tokens_.Take();
    Type carried = kNone;
    while (!tokens_.TakeSymbol(u")")) {
      if (!statement->parameters.empty()) tokens_.ExpectSymbol(u",");
      statement->parameters.push_back(ParseParameter(carried));
    }
    const bool has_body =
        tokens_.IsSymbol(u"{") || (tokens_.Is(TokenKind::kNewline) && tokens_.IsSymbol(u"{", 1));
    if (has_body) statement->body.push_back(ParseBody());
    return statement;
  }

  /// A type carries over to the parameters that follow it: (int a, b).
  ParameterDeclaration ParseParameter(Type& carried) {
    ParameterDeclaration parameter;
    if (const Type type = expressions_.TypeAt(0); type != kNone) {
      carried = type;
      tokens_.Take();
    }
    if (carried == kNone || carried == kVoid) tokens_.SyntaxError();
    parameter.type = carried;
    parameter.by_reference = tokens_.TakeSymbol(u"&");
    parameter.at = tokens_.Peek().at;
    if (tokens_.Is(TokenKind::kName)) parameter.name = TakeName();
    if (tokens_.IsSymbol(u"(")) tokens_.Refuse(u"a function as parameter");
    if (tokens_.IsSymbol(u"=")) tokens_.Refuse(u"a default value of a parameter");
    if (tokens_.TakeSymbol(u"[")) {
      parameter.type.is_array = true;
      tokens_.ExpectSymbol(u"]");
    }
    return parameter;
  }

  Text TakeName() {
    const Token& token = tokens_.Peek();
    const bool taken = token.text == u"module" || token.text == u"object";
    if (token.kind != TokenKind::kName || taken || ExpressionParser::IsReserved(token.text))
      tokens_.SyntaxError();
    return tokens_.Take().text;
  }

  TokenStream tokens_;
  ExpressionParser expressions_;
};

const Parser::Keyword Parser::kKeywords[8] = {
    {u"if", StmtKind::kIf, &Parser::ParseIf},
    {u"while", StmtKind::kWhile, &Parser::ParseWhile},
    {u"for", StmtKind::kFor, &Parser::ParseFor},
    {u"break", StmtKind::kBreak, &Parser::ParseWordAlone},
    {u"continue", StmtKind::kContinue, &Parser::ParseWordAlone},
    {u"return", StmtKind::kReturn, &Parser::ParseReturn},
    {u"pragma", StmtKind::kPragma, &Parser::ParsePragma},
    {u"const", StmtKind::kDeclare, &Parser::ParseConst},
};

}  // namespace

std::vector<StmtPtr> Parse(TextView source, const Library& library) {
  return Parser(source, library).Run();
}

}  // namespace kestrune::dxl
