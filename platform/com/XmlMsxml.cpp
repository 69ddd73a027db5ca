#include "platform/Automation.h"
#include "platform/XmlFeed.h"
#include "platform/com/ComText.h"
#include "platform/com/ComVariant.h"
#include "platform/com/Failure.h"
#include "platform/com/Msxml.h"
#include "platform/com/XmlLite.h"

namespace kestrune {

namespace {

IXMLDOMNode* NodeOf(const std::shared_ptr<void>& node) {
  return static_cast<IXMLDOMNode*>(node.get());
}
std::shared_ptr<void> HandleOf(ComPtr<IXMLDOMNode> node) {
  if (!node) return nullptr;
  auto owner = std::make_shared<ComPtr<IXMLDOMNode>>(std::move(node));
  return {owner, owner->Get()};
}

using Step = HRESULT (STDMETHODCALLTYPE IXMLDOMNode::*)(IXMLDOMNode**);

ComPtr<IXMLDOMNode> Take(IXMLDOMNode* from, Step step) {
  ComPtr<IXMLDOMNode> to;
  Require((from->*step)(to.Out()));
  return to;
}

DOMNodeType TypeOf(IXMLDOMNode* node) {
  DOMNodeType type = NODE_INVALID;
  node->get_nodeType(&type);
  return type;
}

// Not get_text, which trims and folds blanks.
void AppendText(IXMLDOMNode* node, Text& text) {
  const DOMNodeType type = TypeOf(node);
  if (type != NODE_TEXT && type != NODE_CDATA_SECTION) return;
  ComVariant value;
  Require(node->get_nodeValue(value.Out()));
  if (value.Get().vt == VT_BSTR) text += ViewOf(value.Get().bstrVal);
}

/// The node after `node` in document order, without leaving `root`; a loop, since documents may nest deeply.
ComPtr<IXMLDOMNode> Following(ComPtr<IXMLDOMNode> node, int& depth) {
  if (auto child = Take(node.Get(), &IXMLDOMNode::get_firstChild)) {
    ++depth;
    return child;
  }
  while (depth > 0) {
    if (auto next = Take(node.Get(), &IXMLDOMNode::get_nextSibling)) return next;
    node = Take(node.Get(), &IXMLDOMNode::get_parentNode);
    --depth;
  }
  return {};
}

ComPtr<IXMLDOMNode> AppendTo(IXMLDOMNode* parent, IXMLDOMDocument* document, TextView name) {
  ComPtr<IXMLDOMElement> element;
  Require(document->createElement(Bstr(name).Get(), element.Out()));
  ComPtr<IXMLDOMNode> appended;
  Require(parent->appendChild(element.Get(), appended.Out()));
  return appended;
}

Text LocalName(IXMLDOMNode* node) {
  Bstr name;
  Require(node->get_baseName(name.Out()));
  return Text(name.View());
}

XmlAttributes AttributesOf(IXMLDOMNode* node) {
  XmlAttributes attributes;
  ComPtr<IXMLDOMNamedNodeMap> all;
  Require(node->get_attributes(all.Out()));
  ComPtr<IXMLDOMNode> attribute;
  while (all->nextNode(attribute.Out()) == S_OK) {
    Bstr prefix;
    attribute->get_prefix(prefix.Out());
    Text name = LocalName(attribute.Get());
    ComVariant value;
    Require(attribute->get_nodeValue(value.Out()));
    const bool is_namespace = name == u"xmlns" || prefix.View() == u"xmlns";
    if (!is_namespace) attributes.emplace_back(std::move(name), FromComVariant(value.Get()).ToText());
  }
  return attributes;
}

/// Hands on the root element and what lies in it; a loop, since documents may nest deeply.
void Walk(ComPtr<IXMLDOMNode> node, XmlFeed& feed) {
  for (int depth = 0;;) {
    const bool is_element = TypeOf(node.Get()) == NODE_ELEMENT;
    if (is_element)
      feed.Start(LocalName(node.Get()), AttributesOf(node.Get()));
    else if (feed.WantsText())
      AppendText(node.Get(), feed.Content());
    if (auto child = is_element ? Take(node.Get(), &IXMLDOMNode::get_firstChild) : ComPtr<IXMLDOMNode>()) {
      node = std::move(child);
      ++depth;
      continue;
    }
    if (is_element) feed.End();
    while (depth > 0) {
      if (auto next = Take(node.Get(), &IXMLDOMNode::get_nextSibling)) {
        node = std::move(next);
        break;
      }
      node = Take(node.Get(), &IXMLDOMNode::get_parentNode);
      --depth;
      feed.End();
    }
    if (depth == 0) return;
  }
}

std::optional<XmlParseError> HandOn(const MsxmlOutcome& outcome, XmlHandler& handler) {
  if (!outcome.Document) return outcome.Error;
  ComPtr<IXMLDOMElement> root;
  Require(outcome.Document->get_documentElement(root.Out()));
  XmlFeed feed(handler);
  Walk(root.As<IXMLDOMNode>(IID_IXMLDOMNode), feed);
  return std::nullopt;
}

}  // namespace

// What the lean reader cannot read the tree may, as one with an encoding that only it knows, or else says why not.
std::optional<XmlParseError> ReadXmlFile(const Text& path, XmlHandler& handler) {
  if (ReadWithXmlLite(path, handler)) return std::nullopt;
  return HandOn(LoadMsxmlFile(path), handler);
}

std::optional<XmlParseError> ReadXmlText(TextView xml, XmlHandler& handler) {
  if (ReadTextWithXmlLite(xml, handler)) return std::nullopt;
  return HandOn(LoadMsxmlText(xml), handler);
}

Text XmlNode::Content() const {
  Text text;
  int depth = 0;
  for (ComPtr<IXMLDOMNode> node(NodeOf(node_)); (node = Following(std::move(node), depth));)
    AppendText(node.Get(), text);
  return text;
}

void XmlNode::SetContent(TextView text) {
  Require(NodeOf(node_)->put_text(Bstr(text).Get()));
}

XmlNode XmlNode::AppendElement(TextView name) {
  ComPtr<IXMLDOMDocument> document;
  Require(NodeOf(node_)->get_ownerDocument(document.Out()));
  return XmlNode(HandleOf(AppendTo(NodeOf(node_), document.Get(), name)));
}

struct XmlDocument::Peer {
  ComPtr<IXMLDOMDocument> document;
};

XmlDocument::XmlDocument() : peer_(std::make_unique<Peer>()) {}
XmlDocument::~XmlDocument() = default;
XmlDocument::XmlDocument(XmlDocument&&) noexcept = default;
XmlDocument& XmlDocument::operator=(XmlDocument&&) noexcept = default;

bool XmlDocument::LoadFile(const Text& path) {
  peer_->document = LoadMsxmlFile(path).Document;
  return static_cast<bool>(peer_->document);
}

XmlNode XmlDocument::SelectSingleNode(TextView xpath) const {
  ComPtr<IXMLDOMNode> found;
  if (peer_->document) peer_->document->selectSingleNode(Bstr(xpath).Get(), found.Out());
  return XmlNode(HandleOf(std::move(found)));
}

XmlNode XmlDocument::AppendRoot(TextView name) {
  peer_->document = NewMsxmlDocument();
  IXMLDOMDocument* document = peer_->document.Get();
  ComPtr<IXMLDOMProcessingInstruction> declaration;
  Require(document->createProcessingInstruction(
      Bstr(u"xml").Get(), Bstr(u"version=\"1.0\" encoding=\"UTF-8\"").Get(), declaration.Out()));
  Require(document->appendChild(declaration.Get(), nullptr));
  return XmlNode(HandleOf(AppendTo(document, document, name)));
}

bool XmlDocument::Save(const Text& path) const {
  return SUCCEEDED(peer_->document->save(ComVariant(path).Get()));
}

}  // namespace kestrune
