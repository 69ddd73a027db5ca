#include "platform/Xml.h"

#include "platform/Automation.h"
#include "platform/Files.h"
#include "platform/ResourceStore.h"
#include "platform/com/ComText.h"
#include "platform/com/ComVariant.h"
#include "platform/com/Failure.h"
#include "platform/com/Msxml.h"
#include "platform/com/Owned.h"
#include "platform/com/XmlProlog.h"

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

ComPtr<IXMLDOMNode> ElementFrom(ComPtr<IXMLDOMNode> node) {
  while (node && TypeOf(node.Get()) != NODE_ELEMENT) node = Take(node.Get(), &IXMLDOMNode::get_nextSibling);
  return node;
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

/// The bytes as an array of VT_UI1.
ComVariant ByteArray(std::string_view bytes) {
  OwnedArray array(SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(bytes.size())));
  if (!array) throw std::bad_alloc();
  void* data = nullptr;
  Require(SafeArrayAccessData(array.get(), &data));
  const Owned<SAFEARRAY*, SafeArrayUnaccessData> accessed(array.get());
  std::copy(bytes.begin(), bytes.end(), static_cast<char*>(data));
  ComVariant value;
  value.Out()->vt = VT_ARRAY | VT_UI1;
  value.Out()->parray = array.release();
  return value;
}

}  // namespace

Text XmlNode::Name() const {
  Bstr name;
  Require(NodeOf(node_)->get_nodeName(name.Out()));
  return Text(name.View());
}

Text XmlNode::Content() const {
  Text text;
  int depth = 0;
  for (ComPtr<IXMLDOMNode> node(NodeOf(node_)); (node = Following(std::move(node), depth));)
    AppendText(node.Get(), text);
  return text;
}

std::optional<Text> XmlNode::Attribute(TextView name) const {
  const auto element = ComPtr<IXMLDOMNode>(NodeOf(node_)).As<IXMLDOMElement>(IID_IXMLDOMElement);
  ComVariant value;
  if (element->getAttribute(Bstr(name).Get(), value.Out()) != S_OK) return std::nullopt;
  return FromComVariant(value.Get()).ToText();
}

XmlNode XmlNode::FirstChild() const {
  return XmlNode(HandleOf(ElementFrom(Take(NodeOf(node_), &IXMLDOMNode::get_firstChild))));
}
XmlNode XmlNode::NextSibling() const {
  return XmlNode(HandleOf(ElementFrom(Take(NodeOf(node_), &IXMLDOMNode::get_nextSibling))));
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
  void Clear() {
    document = {};
    error = {};
  }

  bool LoadBytes(std::string_view bytes) {
    const ComVariant source = ByteArray(bytes);
    document = NewMsxmlDocument();
    VARIANT_BOOL is_loaded = VARIANT_FALSE;
    const HRESULT result = document->load(source.Get(), &is_loaded);
    return Check(result == S_OK && is_loaded, source);
  }

  bool LoadText(TextView xml) {
    const ComVariant source{Variant(xml)};
    document = NewMsxmlDocument();
    VARIANT_BOOL is_loaded = VARIANT_FALSE;
    const HRESULT result = document->loadXML(source.Get().bstrVal, &is_loaded);
    return Check(result == S_OK && is_loaded, source);
  }

  bool Check(bool is_loaded, const ComVariant& source) {
    if (is_loaded) return true;
    error = MsxmlParseError(*document.Get(), source.Get());
    document = {};
    return false;
  }

  bool Refuse(Text why) {
    error.Code = E_FAIL;
    error.Reason = std::move(why);
    return false;
  }

  ComPtr<IXMLDOMDocument> document;
  XmlParseError error;
};

XmlDocument::XmlDocument() : peer_(std::make_unique<Peer>()) {}
XmlDocument::~XmlDocument() = default;
XmlDocument::XmlDocument(XmlDocument&&) noexcept = default;
XmlDocument& XmlDocument::operator=(XmlDocument&&) noexcept = default;

// Bytes in memory: reading from a path or a stream is many times slower in some versions.
bool XmlDocument::LoadFile(const Text& path) {
  peer_->Clear();
  if (!IsFile(path)) return false;
  std::string bytes;
  try {
    bytes = ReadFile(path);
  } catch (const AutomationError&) {
    return false;
  }
  if (XmlProlog<char>(bytes).HasDtd()) return peer_->Refuse(StoredString(stored::kDtdRefused));
  return peer_->LoadBytes(bytes);
}

bool XmlDocument::LoadText(TextView xml) {
  peer_->Clear();
  if (XmlProlog<char16_t>(xml).HasDtd()) return peer_->Refuse(StoredString(stored::kDtdRefused));
  return peer_->LoadText(xml);
}

const XmlParseError& XmlDocument::ParseError() const {
  return peer_->error;
}

XmlNode XmlDocument::SelectSingleNode(TextView xpath) const {
  const auto found = SelectNodes(xpath);
  return found.empty() ? XmlNode() : found.front();
}

std::vector<XmlNode> XmlDocument::SelectNodes(TextView xpath) const {
  std::vector<XmlNode> nodes;
  if (!peer_->document) return nodes;
  ComPtr<IXMLDOMNodeList> found;
  if (FAILED(peer_->document->selectNodes(Bstr(xpath).Get(), found.Out())) || !found) {
    throw AutomationError(error::kTypeMismatch, u"XmlDocument", Text(u"Not an XPath: ").append(xpath));
  }
  ComPtr<IXMLDOMNode> node;
  while (found->nextNode(node.Out()) == S_OK) nodes.push_back(XmlNode(HandleOf(std::move(node))));
  return nodes;
}

XmlNode XmlDocument::AppendRoot(TextView name) {
  peer_->Clear();
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
