// MSXML in the newest version that the machine has.
#pragma once

#include <msxml2.h>
#include <windows.h>

#include "platform/Xml.h"
#include "platform/com/ComPtr.h"

namespace kestrune {

/// An empty document that reads at once, loads nothing else, keeps blanks and understands XPath. Throws
/// AutomationError when the machine has no MSXML.
ComPtr<IXMLDOMDocument> NewMsxmlDocument();

/// Why `document` has refused `source`, which is a BSTR or an array of bytes. Where the document does not
/// tell the place, the SAX reader is asked, which is a parser of its own and may know better.
XmlParseError MsxmlParseError(IXMLDOMDocument& document, const VARIANT& source);

}  // namespace kestrune
