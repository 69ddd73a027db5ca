#include <array>
#include <cstdio>
#include <exception>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <libxml/xpath.h>

#include "platform/Automation.h"
#include "platform/Files.h"
#include "platform/ResourceStore.h"
#include "platform/XmlFeed.h"

namespace kestrune {

namespace {

constexpr int kOptions = XML_PARSE_HUGE | XML_PARSE_NONET | XML_PARSE_COMPACT | XML_PARSE_NOCDATA |
                         XML_PARSE_NOENT | XML_PARSE_BIG_LINES | XML_PARSE_NOERROR | XML_PARSE_NOWARNING;

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

/// What a parser is used for.
struct Reading {
  XmlFeed* Feed = nullptr;  // none: a tree is made
  // The parser keeps each name at one place, where it is found by as long as the document is read.
  std::array<std::pair<const xmlChar*, Text>, 256> Names = {};
  XmlAttributes Attributes = {};
  std::exception_ptr Failure = {};
  bool HasDtd = false;
};

Reading& ReadingOf(void* parser) {
  return *static_cast<Reading*>(static_cast<xmlParserCtxt*>(parser)->_private);
}

void Stop(void* parser) {
  xmlStopParser(static_cast<xmlParserCtxt*>(parser));
  static_cast<xmlParserCtxt*>(parser)->wellFormed = 0;
}

/// No exception may cross the parser's own frames.
template <typename Work>
void Guarded(void* parser, Work work) {
  Reading& reading = ReadingOf(parser);
  try {
    work(reading, *reading.Feed);
  } catch (...) {
    reading.Failure = std::current_exception();
    Stop(parser);
  }
}

void RefuseDtd(void* parser, const xmlChar*, const xmlChar*, const xmlChar*) {
  ReadingOf(parser).HasDtd = true;
  Stop(parser);
}

/// `attributes` are five pointers each: name, prefix, name space, begin and end of the value.
void StartElement(void* parser, const xmlChar* name, const xmlChar*, const xmlChar*, int, const xmlChar**,
                  int count, int, const xmlChar** attributes) {
  Guarded(parser, [&](Reading& reading, XmlFeed& feed) {
    auto& [place, known] = reading.Names[reinterpret_cast<std::uintptr_t>(name) / 8 % reading.Names.size()];
    if (place != name) {
      place = name;
      known = FromUtf8(View(name));
    }
    reading.Attributes.clear();
    for (const xmlChar** each = attributes; each < attributes + 5 * count; each += 5) {
      const auto* begin = reinterpret_cast<const char*>(each[3]);
      const auto* end = reinterpret_cast<const char*>(each[4]);
      reading.Attributes.emplace_back(FromUtf8(View(each[0])), FromUtf8({begin, end}));
    }
    feed.Start(known, reading.Attributes);
  });
}

void Characters(void* parser, const xmlChar* text, int length) {
  Guarded(parser, [&](Reading&, XmlFeed& feed) {
    if (feed.WantsText())
      AppendUtf8(feed.Content(), {reinterpret_cast<const char*>(text), static_cast<std::size_t>(length)});
  });
}

void EndElement(void* parser, const xmlChar*, const xmlChar*, const xmlChar*) {
  Guarded(parser, [](Reading&, XmlFeed& feed) { feed.End(); });
}

Owned<xmlParserCtxt> NewParser(Reading& reading) {
  Owned<xmlParserCtxt> parser(xmlNewParserCtxt());
  if (!parser) throw std::bad_alloc();
  parser->_private = &reading;
  parser->sax->internalSubset = RefuseDtd;
  if (!reading.Feed) return parser;
  parser->sax->startElementNs = StartElement;
  parser->sax->endElementNs = EndElement;
  parser->sax->characters = parser->sax->ignorableWhitespace = Characters;
  parser->sax->comment = nullptr;
  parser->sax->processingInstruction = nullptr;
  return parser;
}

XmlParseError ErrorOf(xmlParserCtxt* parser) {
  XmlParseError error;
  if (ReadingOf(parser).HasDtd) {
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

using ReadBytes = int (*)(void* source, char* buffer, int size);

/// The document, without any content where a feed has been given that; nothing and why, when it cannot be read.
struct Outcome {
  xmlDoc* Document;
  XmlParseError Error;
};

Outcome Parse(Reading& reading, ReadBytes read, void* source, const char* encoding) {
  const auto parser = NewParser(reading);
  xmlDoc* document = xmlCtxtReadIO(parser.get(), read, nullptr, source, nullptr, encoding, kOptions);
  if (reading.Failure) std::rethrow_exception(reading.Failure);
  return document ? Outcome{document, {}} : Outcome{nullptr, ErrorOf(parser.get())};
}

/// Nothing and code 0 when there is no such file.
Outcome ParseFile(const Text& path, Reading& reading) {
  const Owned<std::FILE> file(IsFile(path) ? std::fopen(ToUtf8(path).c_str(), "rb") : nullptr);
  return file ? Parse(reading, ReadChunk, file.get(), nullptr) : Outcome{};
}

Outcome ParseText(TextView xml, Reading& reading) {
  const ReadBytes read = [](void* unread, char* buffer, int size) {
    return static_cast<int>(
        TakeUtf8(*static_cast<TextView*>(unread), buffer, static_cast<std::size_t>(size)));
  };
  return Parse(reading, read, &xml, "UTF-8");
}

std::optional<XmlParseError> WhyNot(const Outcome& outcome) {
  if (!outcome.Document) return outcome.Error;
  xmlFreeDoc(outcome.Document);
  return std::nullopt;
}

}  // namespace

std::optional<XmlParseError> ReadXmlFile(const Text& path, XmlHandler& handler) {
  XmlFeed feed(handler);
  Reading reading{&feed};
  return WhyNot(ParseFile(path, reading));
}

std::optional<XmlParseError> ReadXmlText(TextView xml, XmlHandler& handler) {
  XmlFeed feed(handler);
  Reading reading{&feed};
  return WhyNot(ParseText(xml, reading));
}

Text XmlNode::Content() const {
  const xmlNode* node = NodeOf(node_);
  if (!node->children) return {};
  if (IsOneText(node)) return FromUtf8(View(node->children->content));
  return FromUtf8(View(Owned<xmlChar>(xmlNodeGetContent(node)).get()));
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
  ~Peer() { Take(nullptr); }

  void Take(xmlDoc* other) {
    xmlFreeDoc(document);
    document = other;
  }

  xmlDoc* document = nullptr;
};

XmlDocument::XmlDocument() : peer_(std::make_unique<Peer>()) {}
XmlDocument::~XmlDocument() = default;
XmlDocument::XmlDocument(XmlDocument&&) noexcept = default;
XmlDocument& XmlDocument::operator=(XmlDocument&&) noexcept = default;

bool XmlDocument::LoadFile(const Text& path) {
  Reading reading;
  peer_->Take(ParseFile(path, reading).Document);
  return peer_->document != nullptr;
}

XmlNode XmlDocument::SelectSingleNode(TextView xpath) const {
  if (!peer_->document) return {};
  const Owned<xmlXPathContext> context(xmlXPathNewContext(peer_->document));
  context->node = reinterpret_cast<xmlNode*>(peer_->document);
  const Owned<xmlXPathObject> found(xmlXPathEvalExpression(Bytes(ToUtf8(xpath)), context.get()));
  const bool has_node = found && !xmlXPathNodeSetIsEmpty(found->nodesetval);
  return has_node ? XmlNode(HandleOf(found->nodesetval->nodeTab[0])) : XmlNode();
}

XmlNode XmlDocument::AppendRoot(TextView name) {
  peer_->Take(xmlNewDoc(nullptr));
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
