#include "bench/BareXml.h"

#include <libxml/parser.h>
#include <stdexcept>

namespace kestrune::bench {

namespace {

constexpr int kOptions = XML_PARSE_HUGE | XML_PARSE_NONET | XML_PARSE_COMPACT | XML_PARSE_NOCDATA |
                         XML_PARSE_BIG_LINES | XML_PARSE_NOERROR | XML_PARSE_NOWARNING;

void Free(xmlDoc* document) {
  if (!document) throw std::runtime_error("what was to be measured is no XML");
  xmlFreeDoc(document);
}

int ReadFromMemory(void* unread, char* buffer, int size) {
  auto& rest = *static_cast<std::string_view*>(unread);
  const auto count = rest.copy(buffer, static_cast<std::size_t>(size));
  rest.remove_prefix(count);
  return static_cast<int>(count);
}

}  // namespace

void ParseFile(const Text& path) {
  Free(xmlReadFile(ToUtf8(path).c_str(), nullptr, kOptions));
}

// Read in pieces: libxml2 takes a text in memory only up to 2 GB. It reads UTF-16 as it is.
void ParseText(TextView xml) {
  std::string_view unread(reinterpret_cast<const char*>(xml.data()), xml.size() * sizeof(char16_t));
  Free(xmlReadIO(ReadFromMemory, nullptr, &unread, nullptr, "UTF-16LE", kOptions));
}

void ScanFile(const Text& path) {
  xmlSAXHandler nobody{};
  nobody.initialized = XML_SAX2_MAGIC;
  if (xmlSAXUserParseFile(&nobody, nullptr, ToUtf8(path).c_str()) != 0)
    throw std::runtime_error("what was to be measured is no XML");
}

}  // namespace kestrune::bench
