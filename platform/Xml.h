// XML, read in one of two ways: what may be large is handed on element by element, front to back; what is small is a
// tree. XmlLite and MSXML on Windows, libxml2 elsewhere. No external entity is ever fetched and a document type
// definition is refused, so that no entity can expand.
#pragma once

#include <memory>
#include <optional>
#include <utility>
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

/// Names, without a prefix, and values.
using XmlAttributes = std::vector<std::pair<Text, Text>>;

/// What a document is handed to, front to back. What it throws ends the reading and reaches the reader's caller.
class XmlHandler {
 public:
  virtual ~XmlHandler() = default;
  /// The document begins; what has been handed on before is void, since it has turned out not to be readable that way.
  virtual void OnDocument() = 0;
  /// An element begins. True when its content is wanted: what lies in it is not handed on by itself then.
  virtual bool OnStart(TextView name, const XmlAttributes& attributes) = 0;
  /// An element ends. The content, where it was wanted, is all text in it, as it stands in the document, with its line
  /// ends as line feeds.
  virtual void OnEnd(TextView content) = 0;
};

/// Reads a file or a text whole, of any size and depth. Answers why it could not be read to its end, if so; what has been
/// handed on is to be thrown away then.
std::optional<XmlParseError> ReadXmlFile(const Text& path, XmlHandler& handler);
std::optional<XmlParseError> ReadXmlText(TextView xml, XmlHandler& handler);

/// An element of a tree, or nothing (false). Valid as long as its document.
class XmlNode {
 public:
  XmlNode() = default;

  explicit operator bool() const { return node_ != nullptr; }
  /// All text below the element, as it stands in the document with its line ends as line feeds.
  Text Content() const;
  void SetContent(TextView text);
  XmlNode AppendElement(TextView name);

 private:
  friend class XmlDocument;
  explicit XmlNode(std::shared_ptr<void> node) : node_(std::move(node)) {}
  std::shared_ptr<void> node_;  // owns only where the parser hands out owners
};

/// A small document as a tree.
class XmlDocument {
 public:
  XmlDocument();
  ~XmlDocument();
  XmlDocument(XmlDocument&&) noexcept;
  XmlDocument& operator=(XmlDocument&&) noexcept;

  /// Reads a file whole. False when it is no well-formed document; this is empty then.
  bool LoadFile(const Text& path);
  /// The first element that the XPath finds from the document's root node, or nothing.
  XmlNode SelectSingleNode(TextView xpath) const;

  /// Makes the root element of an empty document.
  XmlNode AppendRoot(TextView name);
  /// Writes the document, encoded in UTF-8. False when the file cannot be written.
  bool Save(const Text& path) const;

 private:
  struct Peer;
  std::unique_ptr<Peer> peer_;
};

}  // namespace kestrune
