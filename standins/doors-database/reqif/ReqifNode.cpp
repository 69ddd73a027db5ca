#include "standins/doors-database/reqif/ReqifNode.h"

#include <memory>

#include "platform/Automation.h"

namespace kestrune::standins {

namespace {

struct XmlFreer {
  void operator()(xmlChar* text) const { xmlFree(text); }
};
using OwnedText = std::unique_ptr<xmlChar, XmlFreer>;

std::string StringOf(const OwnedText& text) {
  return text ? reinterpret_cast<const char*>(text.get()) : "";
}

const xmlNode* ElementFrom(const xmlNode* node) {
  while (node && node->type != XML_ELEMENT_NODE) node = node->next;
  return node;
}

}  // namespace

std::string_view NameOf(const xmlNode* element) {
  return reinterpret_cast<const char*>(element->name);
}

std::string AttributeOf(const xmlNode* element, const char* name) {
  return StringOf(OwnedText(xmlGetProp(element, reinterpret_cast<const xmlChar*>(name))));
}

std::string TextOf(const xmlNode* element) {
  if (!element) return {};
  const std::string text = StringOf(OwnedText(xmlNodeGetContent(element)));
  const auto first = text.find_first_not_of(" \t\r\n");
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

const xmlNode* FirstElement(const xmlNode* parent) {
  return parent ? ElementFrom(parent->children) : nullptr;
}
const xmlNode* NextElement(const xmlNode* element) {
  return ElementFrom(element->next);
}

const xmlNode* Child(const xmlNode* parent, std::string_view name) {
  const xmlNode* child = FirstElement(parent);
  while (child && NameOf(child) != name) child = NextElement(child);
  return child;
}

const xmlNode* Wrapped(const xmlNode* parent, std::string_view name) {
  return FirstElement(Child(parent, name));
}

Text FileMessage(const Text& file, long line, TextView reason) {
  Text message = file;
  if (line > 0) message.append(u"(").append(ToText(line)).append(u")");
  return message.append(u": ").append(reason);
}

void RefuseFile(const Text& file, long line, TextView reason) {
  throw AutomationError(error::kFileFailure, u"ReqIF", FileMessage(file, line, reason));
}

}  // namespace kestrune::standins
