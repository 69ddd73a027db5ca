// The nodes of a document that a script builds, and how they are written. Made for many small nodes: they lie
// in one array and know each other by their place in it.
#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <unordered_map>
#include <vector>

namespace kestrune::standins {

/// All texts are UTF-8 and are kept as they come, control characters and NUL included.
class XmlTree {
 public:
  using Node = std::uint32_t;
  static constexpr Node kDocument = 0;
  static constexpr Node kNone = UINT32_MAX;
  enum class Kind : std::uint8_t { kDocument, kElement, kInstruction };

  XmlTree();

  Node NewElement(const std::string& name) { return NewNode(Kind::kElement, name); }
  Node NewInstruction(const std::string& target, std::string data);

  Kind KindOf(Node node) const { return nodes_[node].kind; }
  Node ParentOf(Node node) const { return nodes_[node].parent; }
  bool HasChildren(Node node) const { return nodes_[node].first_child != kNone; }
  /// The document's root element, or kNone.
  Node Root() const;

  /// `child` must not have a parent yet.
  void Append(Node parent, Node child);
  void SetAttribute(Node element, const std::string& name, std::string value);
  /// Replaces everything in the element.
  void SetText(Node element, std::string text);

  /// Writes a node as it stands, without indentation; the document with a line end after each of
  /// its children. Only what a parser would take for markup, and carriage returns, which it
  /// would drop, are escaped.
  void Write(Node node, std::ostream& out) const;

 private:
  struct Entry {
    std::string text;  // an element's text, which precedes its child elements; an instruction's data
    std::uint32_t name = 0;
    Node parent = kNone;
    Node first_child = kNone;
    Node last_child = kNone;
    Node next = kNone;
    std::uint32_t attributes = kNone;  // place in attributes_
    Kind kind = Kind::kElement;
  };
  struct Attribute {
    std::string name;
    std::string value;
  };

  Node NewNode(Kind kind, const std::string& name);
  /// What follows `node` in document order below `top`, going up through `leave` where a node is done.
  template <typename Leave>
  Node After(Node node, Node top, Leave leave) const;
  void WriteStart(const Entry& entry, std::ostream& out) const;
  void WriteEnd(const Entry& entry, std::ostream& out) const;

  std::vector<Entry> nodes_;
  std::unordered_map<std::string, std::uint32_t> name_places_;
  std::vector<const std::string*> names_;
  std::vector<std::vector<Attribute>> attributes_;
};

}  // namespace kestrune::standins
