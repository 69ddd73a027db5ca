// The system's reader of XML that keeps nothing of what it has read.
#pragma once

#include "platform/Xml.h"

namespace kestrune {

/// Each hands the document on to `handler`. False when it cannot be read that way: there is no such reader or no such
/// file, the encoding is none that it knows, or the document is no well-formed one.
bool ReadWithXmlLite(const Text& path, XmlHandler& handler);
bool ReadTextWithXmlLite(TextView xml, XmlHandler& handler);

}  // namespace kestrune
