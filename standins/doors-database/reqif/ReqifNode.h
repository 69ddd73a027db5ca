// The few questions that the ReqIF reader asks of an XML element. Names are compared
// without their namespace prefix.
#pragma once

#include <libxml/tree.h>
#include <string>
#include <string_view>

#include "platform/Text.h"

namespace kestrune::standins {

std::string_view NameOf(const xmlNode* element);
/// The attribute's value, "" without one.
std::string AttributeOf(const xmlNode* element, const char* name);
/// The trimmed text below the element, "" for a null pointer.
std::string TextOf(const xmlNode* element);

const xmlNode* FirstElement(const xmlNode* parent);
const xmlNode* NextElement(const xmlNode* element);
/// The first child element of that name, or null.
const xmlNode* Child(const xmlNode* parent, std::string_view name);
/// The one child element of parent's child `name`: how references and values are wrapped. Null without one.
const xmlNode* Wrapped(const xmlNode* parent, std::string_view name);

/// "file(line): reason"; line 0 is left out.
Text FileMessage(const Text& file, long line, TextView reason);
/// Throws that as AutomationError.
[[noreturn]] void RefuseFile(const Text& file, long line, TextView reason);

}  // namespace kestrune::standins
