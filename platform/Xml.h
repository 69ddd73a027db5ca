// XML documents: MSXML on Windows, libxml2 elsewhere. No external entity is ever fetched and a document type
// definition is refused, so that no entity can expand.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "platform/Text.h"

namespace kestrune {

/// What the parser says of a document that it could not read. Code 0: there was nothing
/// to parse (no such file).
struct XmlParseError {
  int Code = 0;
  Text Reason;
  int Line = 0;           // from 1
  int LinePosition = 0;   // from 1
  long FilePosition = 0;  // bytes from the front
};

/// An element of a document, or nothing (false). Valid as long as its document.
class XmlNode {
 public:
  XmlNode() = default;

  explicit operator bool() const { return node_ != nullptr; }
  Text Name() const;
  /// All text below the element, as it stands in the document with its line ends as line feeds.
  Text Content() const;
  /// The attribute's value; nothing when the element has no such attribute.
  std::optional<Text> Attribute(TextView name) const;
  /// The first child element, and the next element beside this one; nothing after the last.
  XmlNode FirstChild() const;
  XmlNode NextSibling() const;

  void SetContent(TextView text);
  XmlNode AppendElement(TextView name);

 private:
  friend class XmlDocument;
  explicit XmlNode(std::shared_ptr<void> node) : node_(std::move(node)) {}
  std::shared_ptr<void> node_;  // owns only where the parser hands out owners
};

class XmlDocument {
 public:
  XmlDocument();
  ~XmlDocument();
  XmlDocument(XmlDocument&&) noexcept;
  XmlDocument& operator=(XmlDocument&&) noexcept;

  /// Reads a file or a text whole. False when it is no well-formed document; the document is empty then and
  /// ParseError() says why.
  bool LoadFile(const Text& path);
  bool LoadText(TextView xml);
  const XmlParseError& ParseError() const;

  /// The first element that the XPath finds from the document's root node, or nothing.
  XmlNode SelectSingleNode(TextView xpath) const;
  /// Every element that it finds, in document order.
  std::vector<XmlNode> SelectNodes(TextView xpath) const;

  /// Makes the root element of an empty document.
  XmlNode AppendRoot(TextView name);
  /// Writes the document, encoded in UTF-8. False when the file cannot be written.
  bool Save(const Text& path) const;

 private:
  struct Peer;
  std::unique_ptr<Peer> peer_;
};

}  // namespace kestrune
