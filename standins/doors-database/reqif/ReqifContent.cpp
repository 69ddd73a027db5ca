#include "standins/doors-database/reqif/ReqifContent.h"

#include <libxml/xmlreader.h>
#include <limits>
#include <memory>

namespace kestrune::standins {

namespace {

constexpr int kOptions = XML_PARSE_HUGE | XML_PARSE_NONET | XML_PARSE_NOCDATA | XML_PARSE_BIG_LINES;

struct ReaderFreer {
  void operator()(xmlTextReader* reader) const { xmlFreeTextReader(reader); }
};

/// The hierarchy below a specification. Goes up and down by the tree's own links, however deep it is.
std::vector<ReqifPlace> ReadPlaces(const xmlNode* specification) {
  std::vector<ReqifPlace> places;
  std::vector<int> above;
  const xmlNode* top = Child(specification, "CHILDREN");
  const xmlNode* node = FirstElement(top);
  while (node) {
    const int self = static_cast<int>(places.size());
    places.push_back({TextOf(Child(node, "OBJECT")), above.empty() ? -1 : above.back(), xmlGetLineNo(node)});
    if (const xmlNode* child = Wrapped(node, "CHILDREN")) {
      above.push_back(self);
      node = child;
      continue;
    }
    while (!NextElement(node) && node->parent != top) {
      node = node->parent->parent;
      above.pop_back();
    }
    node = NextElement(node);
  }
  return places;
}

class Reader {
 public:
  Reader(const std::string& xml, const Text& file) : file_(file) {
    if (xml.size() > std::numeric_limits<int>::max()) RefuseFile(file_, 0, u"the file is larger than 2 GB");
    reader_.reset(xmlReaderForMemory(xml.data(), static_cast<int>(xml.size()), nullptr, nullptr, kOptions));
    if (!reader_) throw std::bad_alloc();
    xmlTextReaderSetStructuredErrorHandler(reader_.get(), KeepError, this);
  }

  ReqifContent Read() {
    int more = Check(xmlTextReaderRead(reader_.get()));
    while (more) {
      CheckKind();
      const bool is_done = xmlTextReaderNodeType(reader_.get()) == XML_READER_TYPE_ELEMENT && TakeElement();
      more = Check(is_done ? xmlTextReaderNext(reader_.get()) : xmlTextReaderRead(reader_.get()));
    }
    return std::move(content_);
  }

 private:
  static void KeepError(void* self, xmlError* error) {
    auto& reader = *static_cast<Reader*>(self);
    if (error->level == XML_ERR_WARNING || !reader.error_.empty()) return;
    reader.error_ = Trim(FromUtf8(error->message ? error->message : ""));
    reader.error_line_ = error->line;
  }

  /// The reader's answer, once it is no failure.
  int Check(int result) const {
    if (result < 0 || !error_.empty())
      RefuseFile(file_, error_line_, error_.empty() ? Text(u"the file is no XML") : error_);
    return result;
  }

  void CheckKind() const {
    const int kind = xmlTextReaderNodeType(reader_.get());
    const long line = xmlTextReaderGetParserLineNumber(reader_.get());
    if (kind == XML_READER_TYPE_DOCUMENT_TYPE)
      RefuseFile(file_, line, u"a document type definition is not accepted");
    if (kind != XML_READER_TYPE_ELEMENT || xmlTextReaderDepth(reader_.get()) > 0) return;
    const auto* name = reinterpret_cast<const char*>(xmlTextReaderConstLocalName(reader_.get()));
    if (std::string_view(name) != "REQ-IF") {
      RefuseFile(file_, line, Text(u"the root element is ").append(FromUtf8(name)).append(u", not REQ-IF"));
    }
  }

  /// True when the element is one that was taken in whole.
  bool TakeElement() {
    const std::string_view name = reinterpret_cast<const char*>(xmlTextReaderConstLocalName(reader_.get()));
    if (name == "REQ-IF-TOOL-EXTENSION") return true;
    const bool is_datatype = name.starts_with("DATATYPE-DEFINITION-") && !name.ends_with("-REF");
    if (!is_datatype && name != "REQ-IF-HEADER" && name != "SPEC-OBJECT-TYPE" &&
        name != "SPECIFICATION-TYPE" && name != "SPEC-OBJECT" && name != "SPECIFICATION")
      return false;
    const xmlNode* element = xmlTextReaderExpand(reader_.get());
    Check(element ? 1 : -1);
    if (is_datatype) content_.types.AddDatatype(element);
    if (name == "REQ-IF-HEADER") content_.title = FromUtf8(TextOf(Child(element, "TITLE")));
    if (name == "SPEC-OBJECT-TYPE") content_.types.AddObjectType(element);
    if (name == "SPECIFICATION-TYPE") content_.types.AddModuleType(element);
    if (name == "SPEC-OBJECT") TakeObject(element);
    if (name == "SPECIFICATION") TakeSpecification(element);
    return true;
  }

  void TakeObject(const xmlNode* element) {
    const bool is_new = content_.objects
                            .try_emplace(AttributeOf(element, "IDENTIFIER"), TextOf(Child(element, "TYPE")),
                                         content_.types.ReadValues(element))
                            .second;
    if (!is_new) RefuseFile(file_, xmlGetLineNo(element), u"two objects have the same identifier");
  }

  void TakeSpecification(const xmlNode* element) {
    Text name = FromUtf8(AttributeOf(element, "LONG-NAME"));
    if (name.empty()) name = FromUtf8(AttributeOf(element, "IDENTIFIER"));
    content_.specifications.push_back({std::move(name), TextOf(Child(element, "TYPE")),
                                       content_.types.ReadValues(element), ReadPlaces(element)});
  }

  const Text& file_;
  std::unique_ptr<xmlTextReader, ReaderFreer> reader_;
  Text error_;
  long error_line_ = 0;
  ReqifContent content_;
};

}  // namespace

ReqifContent ReadReqifContent(const std::string& xml, const Text& file) {
  return Reader(xml, file).Read();
}

}  // namespace kestrune::standins
