#include "standins/dxl/Unsupported.h"

#include <algorithm>

namespace kestrune::dxl {

namespace {

constexpr TextView kOperators[] = {u"<?", u">?", u"<<", u">>", u"<<=", u">>=", u"<>", u"<-",
                                   u"=>", u"^^", u":=", u"::", u"..",  u"->",  u"\\"};

constexpr TextView kWords[] = {u"case", u"default", u"enum", u"static", u"struct", u"switch", u"union"};

constexpr TextView kTypes[] = {
    // values and containers
    u"Array", u"Date", u"Stream", u"Stat", u"IPC",
    // modules and what is in them
    u"AccessRec", u"AttrBaseType", u"AttrType", u"Baseline", u"BaselineSet", u"BaselineSetDefinition",
    u"Column", u"Embedded", u"ExternalLink", u"Filter", u"History", u"HistorySession", u"HistoryType",
    u"Justification", u"Link", u"LinkModuleDescriptor", u"LinkRef", u"Lock", u"LockList", u"ModuleProperties",
    u"OutlineType", u"PageLayout", u"Sort", u"Table", u"Template", u"Trigger", u"ViewDef", u"VersionID",
    // users
    u"Group", u"GroupList", u"Permission", u"Policy", u"User", u"UserClass", u"UserList",
    // dialogs
    u"Bitmap", u"DB", u"DBE", u"HotKey", u"Icon", u"IconHandle", u"Menu", u"MenuItem"};

constexpr TextView kPerms[] = {
    // dialogs and messages
    u"ack", u"addAcceleratorKey", u"apply", u"below", u"beside", u"block", u"box", u"button", u"canvas",
    u"centered", u"choice", u"close", u"confirm", u"createDialog", u"error", u"errorBox", u"field",
    u"fileName", u"frame", u"infoBox", u"label", u"list", u"messageBox", u"ok", u"progressStart",
    u"progressStep", u"progressStop", u"query", u"radioBox", u"realize", u"separator", u"show", u"slider",
    u"tab", u"toggle", u"topDialog", u"treeView", u"warn", u"warningBox",
    // modules, views, attributes, objects, links
    u"addModule", u"baselines", u"bringToFront", u"clearFilter", u"column", u"convertToFormal", u"copy",
    u"downgrade", u"edit", u"flushDeletions", u"hardDelete", u"insert", u"isBaselinePresent", u"linkset",
    u"links", u"modify", u"move", u"purge", u"restore", u"save", u"set", u"share", u"softDelete", u"sort",
    u"source", u"sourceVersion", u"target", u"undelete", u"upgrade", u"version", u"width",
    // files, the system, other scripts
    u"append", u"canOpenFile", u"checkDXL", u"copyFile", u"dateOf", u"deleteFile", u"eval_", u"evalTop_",
    u"exec", u"exit_", u"fileExists_", u"getenv", u"mkdir", u"platform", u"renameFile", u"runDxl", u"runFile",
    u"runStr", u"session", u"setenv", u"sleep_", u"system", u"today", u"username", u"write",
    // numbers
    u"cos", u"exp", u"log", u"pow", u"random", u"sin", u"sqrt", u"tan"};

constexpr TextView kProperties[] = {u"attributeName", u"changeBars", u"dates",      u"defval", u"history",
                                    u"locale",        u"maxValue",   u"minValue",   u"nobars", u"size",
                                    u"strings",       u"type",       u"useraccess", u"values"};

template <typename Table>
bool Contains(const Table& table, TextView word) {
  return std::ranges::find(table, word) != std::end(table);
}

}  // namespace

std::optional<Text> UnsupportedAt(const Token& token, const Token& next) {
  if (token.kind == TokenKind::kSymbol && token.text == u"#") return u"#include";
  if (token.kind == TokenKind::kSymbol && Contains(kOperators, token.text))
    return u"the operator " + token.text;
  if (token.kind != TokenKind::kName) return std::nullopt;
  if (Contains(kWords, token.text)) return token.text;
  const bool is_declaration = next.kind == TokenKind::kName || next.text == u"&";
  if (is_declaration && Contains(kTypes, token.text)) return u"the type " + token.text;
  return std::nullopt;
}

Text NotSupported(TextView what) {
  return Text(what).append(u" is not supported here");
}

Text UnknownWord(TextView word) {
  if (Contains(kTypes, word)) return NotSupported(Text(u"the type ").append(word));
  if (Contains(kPerms, word)) return NotSupported(Text(u"the perm ").append(word));
  return Text(u"undeclared variable (").append(word).append(u")");
}

Text UnknownProperty(TextView word) {
  if (Contains(kProperties, word)) return NotSupported(Text(u"the property ").append(word));
  return Text(u"undeclared variable (").append(word).append(u")");
}

}  // namespace kestrune::dxl
