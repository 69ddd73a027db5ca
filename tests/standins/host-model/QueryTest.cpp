#include "tests/standins/host-model/Support.h"

namespace kestrune::standins {
namespace {

struct OrimQuery : ModelTest {
  std::string Query(const Text& sql) const { return ToUtf8(repository.Call(u"Query", {sql}).ToText()); }
  static std::string Answer(const std::string& row) {
    return "<ORIMDATA><Dataset_0><Data><Row>" + row + "</Row></Data></Dataset_0></ORIMDATA>";
  }
};

TEST_F(OrimQuery, ColumnNamesAreSpelledAsTheHostSpellsThem) {
  const Text sql = u"SELECT Package_ID, Name AS aB FROM t_package WHERE Name = 'Model'";
  EXPECT_EQ(Query(sql), Answer("<Package_ID>1</Package_ID><aB>Model</aB>"));
  model.SetColumnSpelling(ColumnSpelling::kUpper);
  EXPECT_EQ(Query(sql), Answer("<PACKAGE_ID>1</PACKAGE_ID><AB>Model</AB>"));
  model.SetColumnSpelling(ColumnSpelling::kLower);
  EXPECT_EQ(Query(sql), Answer("<package_id>1</package_id><ab>Model</ab>"));
}

TEST_F(OrimQuery, TextIsWrittenSoThatItSurvivesXml) {
  const std::pair<Text, const char*> cases[] = {
      {u"<a href=\"x\">&amp;</a> ]]>", "&lt;a href=\"x\"&gt;&amp;amp;&lt;/a&gt; ]]&gt;"},
      {u"one\r\ntwo\rthree\nfour\tfive", "one&#xD;\ntwo&#xD;three\nfour\tfive"},
      {u" \u00E4\u20AC\U0001F600 ", " \u00E4\u20AC\U0001F600 "},
      {Text(u"a\0b", 3) + u"\x1\x8\xB\xC\x1F"
                          u"c",
       "abc"},
      {u"a\xFFFE\xFFFF"
       u"b",
       "ab"},
      {u"high \xD800, low \xDC00, swapped \xDE00\xD83D.", "high , low , swapped ."},
      {u"ends high \xD83D", "ends high "},
      {u"", ""},
  };
  for (const auto& [stored, written] : cases) {
    const Object element = AddElement(u"E");
    PutAndSave(element, u"Notes", stored);
    EXPECT_EQ(Query(u"SELECT Note FROM t_object WHERE Object_ID=" + ToText(IdOf(element))),
              Answer(std::string("<Note>").append(written).append("</Note>")));
  }
}

TEST_F(OrimQuery, NothingIsRunThatIsNotAQuery) {
  AddElement(u"E");
  const TempFolder folder;
  const Text attach = u"ATTACH '" + folder.File(u"side.db") + u"' AS side";
  const std::pair<Text, const char*> cases[] = {
      {u"DELETE FROM t_object", "A query must not write"},
      {u"UPDATE t_object SET Name='x' RETURNING Name", "A query must not write"},
      {u"SELECT 1 AS a; DELETE FROM t_object", "more than one SQL statement"},
      {Text(u"SELECT 1 AS a;") + u'\0' + u"DELETE FROM t_object", "more than one SQL statement"},
      {attach, "Only a SELECT can be queried"},
      {u"BEGIN", "Only a SELECT can be queried"},
      {u"PRAGMA locking_mode=EXCLUSIVE", "Only a SELECT can be queried"},
      {u"", "no SQL statement"},
      {u"SELECT * FROM t_nothing", "no such table: t_nothing"},
      {u"SELECT FROM", "near \"FROM\": syntax error"},
      {u"SELECT count(*) FROM t_object", "The column \"count(*)\" needs a name of letters and digits (AS)"},
      {u"SELECT abs(-9223372036854775807 - 1) AS a", "integer overflow"},
  };
  for (const auto& [sql, reason] : cases)
    EXPECT_EQ(FailureOf([&, sql = sql] { repository.Call(u"Query", {sql}); }), reason) << ToUtf8(sql);
  EXPECT_TRUE(ListFolder(folder.Path()).empty());
  EXPECT_EQ(Query(u"SELECT count(*) AS n FROM t_object WHERE Name='E'"), Answer("<n>1</n>"));
}

}  // namespace
}  // namespace kestrune::standins
