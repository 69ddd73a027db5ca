#include "standins/doors-database/xml/XmlTree.h"

#include <algorithm>
#include <string_view>

namespace kestrune::standins {

namespace {

std::string_view EscapeOf(char c, bool in_attribute) {
  switch (c) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '\r':
      return "&#13;";
    case '"':
      return in_attribute ? "&quot;" : "";
    case '\n':
      return in_attribute ? "&#10;" : "";
    case '\t':
      return in_attribute ? "&#9;" : "";
    default:
      return "";
  }
}

void WriteEscaped(std::string_view text, bool in_attribute, std::ostream& out) {
  std::size_t written = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto escape = EscapeOf(text[i], in_attribute);
    if (escape.empty()) continue;
    out << text.substr(written, i - written) << escape;
    written = i + 1;
  }
  out << text.substr(written);
}

}  // namespace

XmlTree::XmlTree() {
  NewNode(Kind::kDocument, "");
}

XmlTree::Node XmlTree::NewNode(Kind kind, const std::string& name) {
  const auto [place, is_new] = name_places_.try_emplace(name, static_cast<std::uint32_t>(names_.size()));
  if (is_new) names_.push_back(&place->first);
  Entry& entry = nodes_.emplace_back();
  entry.kind = kind;
  entry.name = place->second;
  return static_cast<Node>(nodes_.size() - 1);
}

XmlTree::Node XmlTree::NewInstruction(const std::string& target, std::string data) {
  const Node node = NewNode(Kind::kInstruction, target);
  nodes_[node].text = std::move(data);
  return node;
}

XmlTree::Node XmlTree::Root() const {
  Node child = nodes_[kDocument].first_child;
  while (child != kNone && nodes_[child].kind != Kind::kElement) child = nodes_[child].next;
  return child;
}

void XmlTree::Append(Node parent, Node child) {
  Entry& above = nodes_[parent];
  nodes_[child].parent = parent;
  if (above.first_child == kNone) {
    above.first_child = child;
  } else {
    nodes_[above.last_child].next = child;
  }
  above.last_child = child;
}

void XmlTree::SetAttribute(Node element, const std::string& name, std::string value) {
  Entry& entry = nodes_[element];
  if (entry.attributes == kNone) {
    entry.attributes = static_cast<std::uint32_t>(attributes_.size());
    attributes_.emplace_back();
  }
  auto& attributes = attributes_[entry.attributes];
  const auto known = std::ranges::find(attributes, name, &Attribute::name);
  if (known == attributes.end()) {
    attributes.push_back({name, std::move(value)});
  } else {
    known->value = std::move(value);
  }
}

void XmlTree::SetText(Node element, std::string text) {
  Entry& entry = nodes_[element];
  for (Node child = entry.first_child; child != kNone;) {
    const Node next = nodes_[child].next;
    nodes_[child].parent = nodes_[child].next = kNone;
    child = next;
  }
  entry.first_child = entry.last_child = kNone;
  entry.text = std::move(text);
}

template <typename Leave>
XmlTree::Node XmlTree::After(Node node, Node top, Leave leave) const {
  if (nodes_[node].first_child != kNone) return nodes_[node].first_child;
  for (; node != top; node = nodes_[node].parent) {
    leave(nodes_[node]);
    if (nodes_[node].next != kNone) return nodes_[node].next;
  }
  return kNone;
}

void XmlTree::Write(Node node, std::ostream& out) const {
  const auto leave = [&](const Entry& entry) { WriteEnd(entry, out); };
  for (Node next = node; next != kNone; next = After(next, node, leave)) WriteStart(nodes_[next], out);
  leave(nodes_[node]);
}

void XmlTree::WriteStart(const Entry& entry, std::ostream& out) const {
  if (entry.kind == Kind::kDocument) return;
  const std::string& name = *names_[entry.name];
  if (entry.kind == Kind::kInstruction) {
    out << "<?" << name << ' ' << entry.text << "?>";
    return;
  }
  out << '<' << name;
  if (entry.attributes != kNone) {
    for (const auto& [key, value] : attributes_[entry.attributes]) {
      out << ' ' << key << "=\"";
      WriteEscaped(value, true, out);
      out << '"';
    }
  }
  if (entry.text.empty() && entry.first_child == kNone) return;
  out << '>';
  WriteEscaped(entry.text, false, out);
}

void XmlTree::WriteEnd(const Entry& entry, std::ostream& out) const {
  if (entry.kind == Kind::kElement) {
    if (entry.text.empty() && entry.first_child == kNone) {
      out << "/>";
    } else {
      out << "</" << *names_[entry.name] << '>';
    }
  }
  if (entry.parent == kDocument) out << "\r\n";
}

}  // namespace kestrune::standins
