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

/// What reading a file or a text into such a document has come to: the document, or nothing and why. Code 0: there is
/// no such file.
struct MsxmlOutcome {
  ComPtr<IXMLDOMDocument> Document;
  XmlParseError Error;
};
MsxmlOutcome LoadMsxmlFile(const Text& path);
MsxmlOutcome LoadMsxmlText(TextView xml);

}  // namespace kestrune
