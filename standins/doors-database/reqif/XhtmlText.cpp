#include "standins/doors-database/reqif/XhtmlText.h"

#include <map>
#include <string_view>

#include "standins/doors-database/RichText.h"

namespace kestrune::standins {

namespace {

enum class Layout { kInline, kBlock, kListItem, kCell, kBreak, kObject };

struct Element {
  Layout layout = Layout::kInline;
  TextView control = {};  // DOORS' markup for its content
};

const Element& ElementNamed(std::string_view name) {
  static const std::map<std::string_view, Element> elements = {
      {"div", {Layout::kBlock}},
      {"p", {Layout::kBlock}},
      {"ul", {Layout::kBlock}},
      {"ol", {Layout::kBlock}},
      {"li", {Layout::kListItem}},
      {"dl", {Layout::kBlock}},
      {"dt", {Layout::kBlock}},
      {"dd", {Layout::kBlock}},
      {"h1", {Layout::kBlock}},
      {"h2", {Layout::kBlock}},
      {"h3", {Layout::kBlock}},
      {"h4", {Layout::kBlock}},
      {"h5", {Layout::kBlock}},
      {"h6", {Layout::kBlock}},
      {"pre", {Layout::kBlock}},
      {"blockquote", {Layout::kBlock}},
      {"table", {Layout::kBlock}},
      {"tr", {Layout::kBlock}},
      {"td", {Layout::kCell}},
      {"th", {Layout::kCell}},
      {"br", {Layout::kBreak}},
      {"object", {Layout::kObject}},
      {"b", {Layout::kInline, u"b"}},
      {"strong", {Layout::kInline, u"b"}},
      {"i", {Layout::kInline, u"i"}},
      {"em", {Layout::kInline, u"i"}},
      {"u", {Layout::kInline, u"ul"}},
      {"ins", {Layout::kInline, u"ul"}},
      {"sub", {Layout::kInline, u"sub"}},
      {"sup", {Layout::kInline, u"super"}},
  };
  static const Element unknown;
  const auto found = elements.find(name);
  return found == elements.end() ? unknown : found->second;
}

const Element& ElementOf(const xmlNode* node) {
  return ElementNamed(reinterpret_cast<const char*>(node->name));
}

bool IsSpace(char16_t c) {
  return c == u' ' || c == u'\t' || c == u'\n' || c == u'\r';
}

/// Writes the plain and the marked-up text side by side.
class Writer {
 public:
  void Enter(const Element& element) {
    switch (element.layout) {
      case Layout::kBlock:
        return StartLine();
      case Layout::kListItem:
        StartLine();
        starts_item_ = true;
        return;
      case Layout::kCell:
        if (!AtLineStart()) Put(u'\t');
        return;
      case Layout::kBreak:
        return Put(u'\n');
      case Layout::kObject:
        return PutText(u"OLE Object");
      case Layout::kInline:
        if (!element.control.empty()) Open(element.control);
    }
  }

  void Leave(const Element& element) {
    if (element.layout == Layout::kBlock || element.layout == Layout::kListItem) StartLine();
    if (!element.control.empty()) text_.rich += u'}';
  }

  void PutText(TextView text) {
    for (std::size_t i = 0; i < text.size();) {
      if (!IsSpace(text[i])) {
        Put(text[i++]);
        continue;
      }
      const TextView space = text.substr(i, EndOfSpace(text, i) - i);
      i += space.size();
      if (space.find(u'\n') != TextView::npos) {
        waiting_blank_ = true;
      } else {
        for (const char16_t c : space) Put(c);
      }
    }
  }

  XhtmlText Finish() {
    text_.plain = Trim(text_.plain);
    text_.rich = is_formatted_ ? Text(Trim(text_.rich)) : Text();
    if (text_.plain.empty()) text_.rich.clear();
    return std::move(text_);
  }

 private:
  static std::size_t EndOfSpace(TextView text, std::size_t i) {
    while (i < text.size() && IsSpace(text[i])) ++i;
    return i;
  }

  bool AtLineStart() const { return text_.plain.empty() || text_.plain.back() == u'\n'; }

  void StartLine() {
    waiting_blank_ = false;
    if (!AtLineStart()) Put(u'\n');
  }

  void Open(TextView control) {
    is_formatted_ = true;
    if (waiting_blank_ && !AtLineStart()) PutChar(u' ');
    waiting_blank_ = false;
    text_.rich.append(u"{\\").append(control) += u' ';
  }

  void Put(char16_t c) {
    if (starts_item_) {
      starts_item_ = false;
      is_formatted_ = true;
      text_.rich += u"\\bullet ";
    }
    if (waiting_blank_ && !AtLineStart() && c != u'\n') PutChar(u' ');
    waiting_blank_ = false;
    PutChar(c);
  }

  void PutChar(char16_t c) {
    text_.plain += c;
    text_.rich += EscapeMarkup({&c, 1});
  }

  XhtmlText text_;
  bool is_formatted_ = false;
  bool starts_item_ = false;    // the next character is the first of a list item
  bool waiting_blank_ = false;  // white space that counts only if text follows on the same line
};

/// The node after `node` when its own content is done; elements that end on the way are left.
const xmlNode* After(const xmlNode* node, const xmlNode* top, Writer& writer) {
  for (; node != top; node = node->parent) {
    if (node->type == XML_ELEMENT_NODE) writer.Leave(ElementOf(node));
    if (node->next) return node->next;
  }
  return nullptr;
}

}  // namespace

XhtmlText ReadXhtml(const xmlNode* value) {
  Writer writer;
  const xmlNode* node = value->children;
  while (node) {
    bool goes_down = false;
    if (node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE) {
      writer.PutText(FromUtf8(reinterpret_cast<const char*>(node->content)));
    } else if (node->type == XML_ELEMENT_NODE) {
      writer.Enter(ElementOf(node));
      goes_down = node->children && ElementOf(node).layout != Layout::kObject;
    }
    node = goes_down ? node->children : After(node, value, writer);
  }
  return writer.Finish();
}

}  // namespace kestrune::standins
