#include <cstdio>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <libxml/xpath.h>

#include "platform/Automation.h"
#include "platform/Files.h"
#include "platform/ResourceStore.h"
#include "platform/Xml.h"

namespace kestrune {

namespace {

constexpr int kOptions = XML_PARSE_HUGE | XML_PARSE_NONET | XML_PARSE_COMPACT | XML_PARSE_NOCDATA |
                         XML_PARSE_BIG_LINES | XML_PARSE_NOERROR | XML_PARSE_NOWARNING;
constexpr std::size_t kUtf8PerUnit = 3;  // bytes at most

xmlNode* NodeOf(const std::shared_ptr<void>& node) {
  return static_cast<xmlNode*>(node.get());
}
/// The document owns its nodes; a handle on one owns nothing.
std::shared_ptr<void> HandleOf(xmlNode* node) {
  return {std::shared_ptr<void>(), node};
}
const xmlChar* Bytes(const std::string& utf8) {
  return reinterpret_cast<const xmlChar*>(utf8.c_str());
}
std::string_view View(const xmlChar* utf8) {
  return utf8 ? reinterpret_cast<const char*>(utf8) : "";
}

xmlNode* ElementFrom(xmlNode* node) {
  while (node && node->type != XML_ELEMENT_NODE) node = node->next;
  return node;
}

bool IsOneText(const xmlNode* node) {
  const xmlNode* child = node->children;
  return child && !child->next && (child->type == XML_TEXT_NODE || child->type == XML_CDATA_SECTION_NODE);
}

struct XmlFreer {
  void operator()(xmlChar* text) const { xmlFree(text); }
  void operator()(xmlParserCtxt* context) const { xmlFreeParserCtxt(context); }
  void operator()(xmlXPathContext* context) const { xmlXPathFreeContext(context); }
  void operator()(xmlXPathObject* object) const { xmlXPathFreeObject(object); }
  void operator()(std::FILE* file) const { std::fclose(file); }
};
template <typename T>
using Owned = std::unique_ptr<T, XmlFreer>;

void RefuseDtd(void* parser, const xmlChar*, const xmlChar*, const xmlChar*) {
  auto* context = static_cast<xmlParserCtxt*>(parser);
  context->_private = context;  // what it was stopped for
  xmlStopParser(context);
  context->wellFormed = 0;
}

Owned<xmlParserCtxt> NewParser() {
  Owned<xmlParserCtxt> parser(xmlNewParserCtxt());
  if (!parser) throw std::bad_alloc();
  parser->sax->internalSubset = RefuseDtd;
  return parser;
}

XmlParseError ErrorOf(xmlParserCtxt* parser) {
  XmlParseError error;
  if (parser->_private) {
    error.Reason = StoredString(stored::kDtdRefused);
    error.Code = XML_ERR_USER_STOP;
  } else {
    error.Reason = Text(Trim(FromUtf8(parser->lastError.message ? parser->lastError.message : "")));
    error.Code = parser->lastError.code ? parser->lastError.code : XML_ERR_DOCUMENT_EMPTY;
  }
  error.Line = parser->lastError.line;
  error.LinePosition = parser->lastError.int2;
  error.FilePosition = std::max(0L, xmlByteConsumed(parser));
  return error;
}

int ReadChunk(void* file, char* buffer, int size) {
  auto* stream = static_cast<std::FILE*>(file);
  const auto count = std::fread(buffer, 1, static_cast<std::size_t>(size), stream);
  return std::ferror(stream) ? -1 : static_cast<int>(count);
}

/// Hands on a text as UTF-8, piece by piece: a query's answer may be so large that a
/// second copy would be felt.
int ReadFromText(void* unread, char* buffer, int size) {
  auto& rest = *static_cast<TextView*>(unread);
  TextView piece = rest.substr(0, static_cast<std::size_t>(size) / kUtf8PerUnit);
  const bool ends_within_pair = piece.size() > 1 && (piece.back() & 0xFC00) == 0xD800;
  if (ends_within_pair) piece.remove_suffix(1);
  rest.remove_prefix(piece.size());
  return static_cast<int>(ToUtf8(piece).copy(buffer, static_cast<std::size_t>(size)));
}

}  // namespace

Text XmlNode::Name() const {
  return FromUtf8(View(NodeOf(node_)->name));
}

Text XmlNode::Content() const {
  const xmlNode* node = NodeOf(node_);
  if (!node->children) return {};
  if (IsOneText(node)) return FromUtf8(View(node->children->content));
  return FromUtf8(View(Owned<xmlChar>(xmlNodeGetContent(node)).get()));
}

std::optional<Text> XmlNode::Attribute(TextView name) const {
  const Owned<xmlChar> value(xmlGetProp(NodeOf(node_), Bytes(ToUtf8(name))));
  if (!value) return std::nullopt;
  return FromUtf8(View(value.get()));
}

XmlNode XmlNode::FirstChild() const {
  return XmlNode(HandleOf(ElementFrom(NodeOf(node_)->children)));
}
XmlNode XmlNode::NextSibling() const {
  return XmlNode(HandleOf(ElementFrom(NodeOf(node_)->next)));
}

void XmlNode::SetContent(TextView text) {
  xmlNode* node = NodeOf(node_);
  xmlNodeSetContent(node, nullptr);
  const std::string utf8 = ToUtf8(text);
  xmlNodeAddContentLen(node, Bytes(utf8), static_cast<int>(utf8.size()));
}

XmlNode XmlNode::AppendElement(TextView name) {
  return XmlNode(HandleOf(xmlNewChild(NodeOf(node_), nullptr, Bytes(ToUtf8(name)), nullptr)));
}

struct XmlDocument::Peer {
  ~Peer() { Clear(); }

  void Clear() {
    xmlFreeDoc(document);
    document = nullptr;
    error = {};
  }

  bool Take(xmlParserCtxt* parser, xmlDoc* parsed) {
    document = parsed;
    if (!document) error = ErrorOf(parser);
    return document != nullptr;
  }

  std::vector<xmlNode*> Find(TextView xpath) const {
    if (!document) return {};
    const Owned<xmlXPathContext> context(xmlXPathNewContext(document));
    context->node = reinterpret_cast<xmlNode*>(document);
    context->error = [](void*, xmlError*) {};  // thrown below, not printed
    const Owned<xmlXPathObject> found(xmlXPathEvalExpression(Bytes(ToUtf8(xpath)), context.get()));
    if (!found) {
      throw AutomationError(error::kTypeMismatch, u"XmlDocument", Text(u"Not an XPath: ").append(xpath));
    }
    const xmlNodeSet* nodes = found->nodesetval;
    if (!nodes) return {};
    return {nodes->nodeTab, nodes->nodeTab + nodes->nodeNr};
  }

  xmlDoc* document = nullptr;
  XmlParseError error;
};

XmlDocument::XmlDocument() : peer_(std::make_unique<Peer>()) {}
XmlDocument::~XmlDocument() = default;
XmlDocument::XmlDocument(XmlDocument&&) noexcept = default;
XmlDocument& XmlDocument::operator=(XmlDocument&&) noexcept = default;

bool XmlDocument::LoadFile(const Text& path) {
  peer_->Clear();
  if (!IsFile(path)) return false;
  const Owned<std::FILE> file(std::fopen(ToUtf8(path).c_str(), "rb"));
  if (!file) return false;
  const auto parser = NewParser();
  return peer_->Take(parser.get(),
                     xmlCtxtReadIO(parser.get(), ReadChunk, nullptr, file.get(), nullptr, nullptr, kOptions));
}

bool XmlDocument::LoadText(TextView xml) {
  peer_->Clear();
  TextView unread = xml;
  const auto parser = NewParser();
  return peer_->Take(parser.get(),
                     xmlCtxtReadIO(parser.get(), ReadFromText, nullptr, &unread, nullptr, "UTF-8", kOptions));
}

const XmlParseError& XmlDocument::ParseError() const {
  return peer_->error;
}

XmlNode XmlDocument::SelectSingleNode(TextView xpath) const {
  const auto found = peer_->Find(xpath);
  return found.empty() ? XmlNode() : XmlNode(HandleOf(found.front()));
}

std::vector<XmlNode> XmlDocument::SelectNodes(TextView xpath) const {
  std::vector<XmlNode> nodes;
  for (xmlNode* node : peer_->Find(xpath)) nodes.push_back(XmlNode(HandleOf(node)));
  return nodes;
}

XmlNode XmlDocument::AppendRoot(TextView name) {
  peer_->Clear();
  peer_->document = xmlNewDoc(nullptr);
  xmlNode* root = xmlNewDocNode(peer_->document, nullptr, Bytes(ToUtf8(name)), nullptr);
  xmlDocSetRootElement(peer_->document, root);
  return XmlNode(HandleOf(root));
}

bool XmlDocument::Save(const Text& path) const {
  xmlChar* bytes = nullptr;
  int size = 0;
  xmlDocDumpFormatMemoryEnc(peer_->document, &bytes, &size, "UTF-8", 0);
  const Owned<xmlChar> owned(bytes);
  if (!owned) return false;
  try {
    WriteFile(path, {reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(size)});
    return true;
  } catch (const AutomationError&) {
    return false;
  }
}

}  // namespace kestrune
