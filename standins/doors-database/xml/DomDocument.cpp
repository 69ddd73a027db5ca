#include "standins/doors-database/xml/DomDocument.h"

#include <fstream>
#include <sstream>

#include "platform/Files.h"
#include "standins/StandInObject.h"
#include "standins/doors-database/xml/XmlTree.h"

namespace kestrune::standins {

namespace {

using SharedTree = std::shared_ptr<XmlTree>;

bool IsNameStart(char16_t c) {
  return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || c == u'_' || c == u':' || c >= 0xC0;
}

bool IsXmlName(TextView name) {
  if (name.empty() || !IsNameStart(name.front())) return false;
  for (const char16_t c : name)
    if (!IsNameStart(c) && !(c >= u'0' && c <= u'9') && c != u'-' && c != u'.') return false;
  return true;
}

Text TextOf(const XmlTree& tree, XmlTree::Node node) {
  std::ostringstream out;
  tree.Write(node, out);
  return FromUtf8(out.view());
}

/// An element or instruction as a script holds it; the node itself belongs to the tree.
class DomNode : public StandInObject<DomNode> {
 public:
  static constexpr const char16_t* kClassName = u"MSXML2.DOMNode";

  DomNode(SharedTree tree, XmlTree::Node node) : tree_(std::move(tree)), node_(node) {}

  static const Members& Table() {
    static const Members table = {
        {u"appendChild",
         {.call = [](DomNode& self, const Args& args) { return self.AppendChild(args[0]); }, .arg_count = 1}},
        {u"setAttribute",
         {.call = [](DomNode& self, const Args& args) { return self.SetAttribute(args); }, .arg_count = 2}},
        {u"text", {.put = [](DomNode& self, const Variant& value) { self.SetText(value.ToText()); }}},
        {u"xml", {.get = [](DomNode& self) { return Variant(TextOf(*self.tree_, self.node_)); }}},
    };
    return table;
  }

  /// The node behind an argument; refuses what is no free node of `tree`.
  static XmlTree::Node FreeNode(const Variant& argument, const SharedTree& tree) {
    const Object object = argument.ToObject();
    const auto* node = dynamic_cast<const DomNode*>(object.Peer().get());
    if (!node || node->tree_ != tree)
      Refuse(error::kTypeMismatch, u"appendChild", u"the argument is no node of this document");
    if (tree->ParentOf(node->node_) != XmlTree::kNone)
      Refuse(error::kTypeMismatch, u"appendChild", u"moving a node that has a parent is not supported");
    return node->node_;
  }

 private:
  void RequireElement(TextView member) const {
    if (tree_->KindOf(node_) != XmlTree::Kind::kElement)
      Refuse(error::kUnknownMember, member, u"the node is no element");
  }

  Variant AppendChild(const Variant& argument) {
    RequireElement(u"appendChild");
    const XmlTree::Node child = FreeNode(argument, tree_);
    // A node without children can contain nothing but itself; going up from every new
    // leaf would be quadratic.
    XmlTree::Node above = node_;
    while (above != child && tree_->HasChildren(child) && above != XmlTree::kNone)
      above = tree_->ParentOf(above);
    if (above == child) Refuse(error::kTypeMismatch, u"appendChild", u"the node would contain itself");
    tree_->Append(node_, child);
    return argument;
  }

  Variant SetAttribute(const Args& args) {
    RequireElement(u"setAttribute");
    const Text name = args[0].ToText();
    if (!IsXmlName(name)) Refuse(error::kTypeMismatch, u"setAttribute", u"the name is no XML name");
    tree_->SetAttribute(node_, ToUtf8(name), ToUtf8(args[1].ToText()));
    return {};
  }

  void SetText(const Text& text) {
    RequireElement(u"text");
    tree_->SetText(node_, ToUtf8(text));
  }

  SharedTree tree_;
  XmlTree::Node node_;
};

class DomDocument : public StandInObject<DomDocument> {
 public:
  static constexpr const char16_t* kClassName = u"MSXML2.DOMDocument";

  static const Members& Table() {
    static const Members table = {
        {u"createElement",
         {.call = [](DomDocument& self, const Args& args) { return self.CreateElement(args[0].ToText()); },
          .arg_count = 1}},
        {u"createProcessingInstruction",
         {.call = [](DomDocument& self,
                     const Args& args) { return self.CreateInstruction(args[0].ToText(), args[1].ToText()); },
          .arg_count = 2}},
        {u"appendChild",
         {.call = [](DomDocument& self, const Args& args) { return self.AppendChild(args[0]); },
          .arg_count = 1}},
        {u"xml", {.get = [](DomDocument& self) { return Variant(TextOf(*self.tree_, XmlTree::kDocument)); }}},
        {u"save",
         {.call = [](DomDocument& self, const Args& args) { return self.Save(args[0].ToText()); },
          .arg_count = 1}},
    };
    return table;
  }

 private:
  Variant Wrap(XmlTree::Node node) const { return Object(std::make_shared<DomNode>(tree_, node)); }

  Variant CreateElement(const Text& name) {
    if (!IsXmlName(name)) Refuse(error::kTypeMismatch, u"createElement", u"\"" + name + u"\" is no XML name");
    return Wrap(tree_->NewElement(ToUtf8(name)));
  }

  Variant CreateInstruction(const Text& target, const Text& data) {
    if (!IsXmlName(target) || data.find(u"?>") != Text::npos)
      Refuse(error::kTypeMismatch, u"createProcessingInstruction", u"the target or the data is not allowed");
    if (target == u"xml" && data.find(u"encoding") != Text::npos &&
        AsciiUpper(data).find(u"UTF-8") == Text::npos)
      Refuse(error::kTypeMismatch, u"createProcessingInstruction",
             u"encodings other than UTF-8 are not supported");
    return Wrap(tree_->NewInstruction(ToUtf8(target), ToUtf8(data)));
  }

  Variant AppendChild(const Variant& argument) {
    const XmlTree::Node child = DomNode::FreeNode(argument, tree_);
    if (tree_->KindOf(child) == XmlTree::Kind::kElement && tree_->Root() != XmlTree::kNone)
      Refuse(error::kTypeMismatch, u"appendChild", u"the document has a root element already");
    tree_->Append(XmlTree::kDocument, child);
    return argument;
  }

  Variant Save(const Text& path) {
    std::ofstream out(ToPath(path), std::ios::binary);
    tree_->Write(XmlTree::kDocument, out);
    out.close();
    if (!out) Refuse(error::kFileFailure, u"save", u"the file " + path + u" cannot be written");
    return {};
  }

  SharedTree tree_ = std::make_shared<XmlTree>();
};

}  // namespace

Object MakeDomDocument() {
  return Object(std::make_shared<DomDocument>());
}

}  // namespace kestrune::standins
