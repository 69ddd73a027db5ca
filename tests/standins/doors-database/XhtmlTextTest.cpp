#include <gtest/gtest.h>
#include <libxml/parser.h>
#include <memory>

#include "standins/doors-database/reqif/XhtmlText.h"

namespace kestrune::standins {
namespace {

std::string Nested(int depth) {
  std::string open, close;
  for (int i = 0; i < depth; ++i) {
    open += "<x:div>";
    close += "</x:div>";
  }
  return open + "deep" + close;
}

TEST(XhtmlToText, GivesLinesAndMarkup) {
  const struct {
    std::string xhtml;
    TextView plain;
    TextView rich = u"";
  } cases[] = {
      {"<x:div>A &amp; B</x:div>", u"A & B"},
      {"Anon", u"Anon"},
      {"<x:div/>", u""},
      {"<x:div>2.3.1&#9;Title  here</x:div>", u"2.3.1\tTitle  here"},
      {"<x:div>a" + std::string(300'000, ' ') + "\n</x:div>", u"a"},
      {"\n   <x:div>Text</x:div>\n  ", u"Text"},
      {"<x:div>one\n    two</x:div>", u"one two"},
      {"<x:div>a<x:br/>b<x:br/><x:br/>c</x:div>", u"a\nb\n\nc"},
      {"<x:div><x:p>a</x:p><x:p>b</x:p>c<x:div>d</x:div></x:div>", u"a\nb\nc\nd"},
      {"<x:div>Do:<x:br/><x:ul>\n  <x:li>one </x:li>\n <x:li>two</x:li>\n</x:ul>So.</x:div>",
       u"Do:\none \ntwo\nSo.", u"Do:\n\\bullet one \n\\bullet two\nSo."},
      {"<x:table><x:tr><x:td>a</x:td><x:td>b</x:td></x:tr>\n<x:tr><x:th>c</x:th></x:tr></x:table>",
       u"a\tb\nc"},
      {"<x:div>x<x:sub>2</x:sub> <x:b>b</x:b><x:em>i</x:em><x:u>u</x:u><x:sup>3</x:sup></x:div>", u"x2 biu3",
       u"x{\\sub 2} {\\b b}{\\i i}{\\ul u}{\\super 3}"},
      {"<x:strong>a<x:i>b</x:i></x:strong>", u"ab", u"{\\b a{\\i b}}"},
      {"<x:div>{\\<x:b>}</x:b></x:div>", u"{\\}", u"\\{\\\\{\\b \\}}"},
      {"<x:div>a\n  <x:b>b</x:b></x:div>", u"a b", u"a {\\b b}"},
      {"<x:div><x:object data='a.ole'><x:object data='a.png'>alt</x:object></x:object><x:br/></x:div>",
       u"OLE Object"},
      {"<x:div>a<x:span>b</x:span><x:q>c</x:q></x:div>", u"abc"},
      {Nested(20000), u"deep"},
  };
  for (const auto& [xhtml, plain, rich] : cases) {
    SCOPED_TRACE(xhtml.substr(0, 100));
    const std::string xml = "<v xmlns:x='http://www.w3.org/1999/xhtml'>" + xhtml + "</v>";
    const std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)> document(
        xmlReadMemory(xml.data(), static_cast<int>(xml.size()), nullptr, nullptr, XML_PARSE_HUGE),
        xmlFreeDoc);
    ASSERT_TRUE(document);
    const XhtmlText text = ReadXhtml(xmlDocGetRootElement(document.get()));
    EXPECT_EQ(text.plain, plain) << ToUtf8(text.plain);
    EXPECT_EQ(text.rich, rich) << ToUtf8(text.rich);
  }
}

}  // namespace
}  // namespace kestrune::standins
