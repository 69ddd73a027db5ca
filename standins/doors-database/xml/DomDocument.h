// "MSXML2.DOMDocument" as scripts in DOORS use it to build a file: createProcessingInstruction,
// createElement, appendChild, setAttribute, text (to write), xml, save. It neither loads
// nor queries. Like the real one it writes control characters as they come, so that a file with them in
// it is no XML.
#pragma once

#include "platform/Automation.h"

namespace kestrune::standins {

/// A new, empty document. Refusals are AutomationErrors with the
/// source "MSXML2.DOMDocument" or "MSXML2.DOMNode".
Object MakeDomDocument();

}  // namespace kestrune::standins
