#include "standins/doors-database/xml/DomDocument.h"
#include "tests/standins/doors-database/DoorsTestFiles.h"

namespace kestrune::standins {
namespace {

class DomDocumentTest : public ::testing::Test {
 protected:
  Object Element(TextView name) { return document.Call(u"createElement", {name}).ToObject(); }
  std::string Saved() {
    document.Call(u"save", {folder.File(u"x.xml")});
    return ReadFile(folder.File(u"x.xml"));
  }

  Object document = MakeDomDocument();
  kestrune::testing::TempFolder folder;
};

TEST_F(DomDocumentTest, IsSavedWithoutIndentation) {
  document.Call(u"appendChild",
                {document.Call(u"createProcessingInstruction", {u"xml", u"version='1.0' encoding='UTF-8'"})});
  const Object root = Element(u"Root");
  document.Call(u"appendChild", {root});
  const Object child = root.Call(u"appendChild", {Element(u"a0")}).ToObject();
  child.Put(u"text", u"ä <&>\r\nx");
  child.Call(u"setAttribute", {u"Name", u"\"q\"\n"});
  root.Call(u"appendChild", {Element(u"empty")});
  const std::string expected =
      "<?xml version='1.0' encoding='UTF-8'?>\r\n"
      "<Root><a0 Name=\"&quot;q&quot;&#10;\">ä &lt;&amp;&gt;&#13;\nx</a0><empty/></Root>\r\n";
  EXPECT_EQ(Saved(), expected);
}

TEST_F(DomDocumentTest, TextIsKeptAsItComesAndReplacesWhatWasInTheElement) {
  const Object root = Element(u"r");
  document.Call(u"appendChild", {root});
  root.Call(u"appendChild", {Element(u"a")});
  root.Put(u"text", Text(u"a\0b\fc\x1", 6));
  root.Call(u"appendChild", {Element(u"b")});
  EXPECT_EQ(Saved(), std::string("<r>a\0b\fc\x1<b/></r>\r\n", 19));
}

TEST_F(DomDocumentTest, RefusesWhatMakesNoDocument) {
  const Object root = Element(u"r");
  document.Call(u"appendChild", {root});
  const Object child = root.Call(u"appendChild", {Element(u"c")}).ToObject();
  const Object loose = Element(u"loose");
  const Object inner = loose.Call(u"appendChild", {Element(u"inner")}).ToObject();
  const Object foreign = MakeDomDocument().Call(u"createElement", {u"x"}).ToObject();
  const std::pair<const char*, std::function<void()>> cases[] = {
      {"root element already", [&] { document.Call(u"appendChild", {Element(u"second")}); }},
      {"has a parent", [&] { root.Call(u"appendChild", {child}); }},
      {"contain itself", [&] { inner.Call(u"appendChild", {loose}); }},
      {"no node of this document", [&] { root.Call(u"appendChild", {foreign}); }},
      {"no XML name", [&] { Element(u"1a"); }},
      {"no XML name", [&] { Element(u"a b"); }},
      {"cannot be written", [&] { document.Call(u"save", {folder.File(u"no/such/folder")}); }},
      {"no such member", [&] { document.Call(u"load", {u"x"}); }},
      {"wrong number", [&] { document.Call(u"createElement"); }},
  };
  for (const auto& [says, action] : cases) {
    const std::string error = FailureOf(action);
    EXPECT_NE(error.find(says), std::string::npos) << error << ", not: " << says;
  }
}

TEST_F(DomDocumentTest, DeepAndWideDocumentsAreWritten) {
  Object node = Element(u"n");
  document.Call(u"appendChild", {node});
  for (int i = 0; i < 50000; ++i) node = node.Call(u"appendChild", {Element(u"n")}).ToObject();
  EXPECT_EQ(Saved().size(), 50000u * 7 + std::string("<n/>\r\n").size());
}

}  // namespace
}  // namespace kestrune::standins
