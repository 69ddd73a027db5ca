#include "tests/standins/host-model/Support.h"
#include "tests/support/XmlGroups.h"

namespace kestrune::standins {
namespace {

class OrimQuery : public ModelTest {
 protected:
  /// The rows of the answer, each as "Column=text" per column, joined by "|".
  std::vector<std::string> Rows(const Text& sql) const {
    std::vector<std::string> rows;
    const Text xml = repository.Call(u"Query", {sql}).ToText();
    for (const auto& row : testing::XmlGroups::InText(xml, u"ORIMDATA/Dataset_0/Data/Row")) {
      std::string cells;
      for (const auto& cell : row)
        cells += (cells.empty() ? "" : "|") + ToUtf8(cell.name + u"=" + cell.content);
      rows.push_back(cells);
    }
    return rows;
  }
};

TEST_F(OrimQuery, ColumnNamesAreSpelledAsTheHostSpellsThem) {
  const Text sql = u"SELECT Package_ID, Name AS aB FROM t_package WHERE Name = 'Model'";
  EXPECT_EQ(Rows(sql), std::vector<std::string>{"Package_ID=1|aB=Model"});
  model.SetColumnSpelling(ColumnSpelling::kUpper);
  EXPECT_EQ(Rows(sql), std::vector<std::string>{"PACKAGE_ID=1|AB=Model"});
  model.SetColumnSpelling(ColumnSpelling::kLower);
  EXPECT_EQ(Rows(sql), std::vector<std::string>{"package_id=1|ab=Model"});
}

TEST_F(OrimQuery, TextSurvivesTheWayThroughXml) {
  const std::pair<Text, Text> cases[] = {
      {u"<a href=\"x\">&amp;</a> ]]>", u"<a href=\"x\">&amp;</a> ]]>"},
      {u"one\r\ntwo\rthree\nfour\tfive", u"one\r\ntwo\rthree\nfour\tfive"},
      {u" \u00E4\u20AC\U0001F600 ", u" \u00E4\u20AC\U0001F600 "},
      {Text(u"a\0b", 3) + u"\x1\x8\xB\xC\x1F"
                          u"c",
       u"abc"},
      {u"a\xFFFE\xFFFF"
       u"b",
       u"ab"},
      {u"high \xD800, low \xDC00, swapped \xDE00\xD83D.", u"high , low , swapped ."},
      {u"ends high \xD83D", u"ends high "},
      {u"", u""},
  };
  for (const auto& [stored, read] : cases) {
    const Object element = AddElement(u"E");
    PutAndSave(element, u"Notes", stored);
    const Text sql = u"SELECT Note FROM t_object WHERE Object_ID=" + ToText(IdOf(element));
    EXPECT_EQ(Rows(sql), std::vector<std::string>{ToUtf8(u"Note=" + read)}) << ToUtf8(stored);
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
  EXPECT_EQ(Rows(u"SELECT count(*) AS n FROM t_object WHERE Name='E'"), std::vector<std::string>{"n=1"});
}

}  // namespace
}  // namespace kestrune::standins
