#include "documents/OrimDoc.h"
#include "tests/support/FailureOf.h"
#include "tests/support/TestHost.h"

namespace kestrune {
namespace {

using standins::ColumnSpelling;
using testing::TestHost;

struct OrimDocTest : ::testing::Test, TestHost {
  OrimDocTest() {
    for (const TextView fixed : kFixedRules) Add(fixed);
  }
  void Add(TextView rule) { doc.AddField(ColumnOf(*ParseRule(rule))); }
  const DataTable& Load() {
    doc.Load();
    return doc.GetData();
  }

  OrimDoc doc{repository, Package()};
};

TEST_F(OrimDocTest, ReadsTheSameUnderEverySpelling) {
  const orim::Element parent =
      AddElement(u"Parent", {{u"Object Identifier", u"R1"}, {u"Created By", u"Ann"}});
  const orim::Element child =
      AddElement(u"Child", {{u"Object Identifier", u"R2"}, {u"created by", u"other case"}});
  const struct {
    TextView rule, field;
    Text stored, read;
  } fields[] = {
      {u"A --> Notes", u"Notes", u"one\ntwo", u"one\r\ntwo"},
      {u"B --> Priority", u"Priority", u"High", u"High"},
      {u"C --> Alias", u"Alias", u"an alias", u"an alias"},
      {u"D --> Status", u"Status", u"Open", u"Open"},
      {u"E --> Difficulty", u"Difficulty", u"Low", u"Low"},
      {u"F --> Author", u"Author", u"Bob", u"Bob"},
      {u"G --> KeyWords", u"KeyWords", u"brake", u"brake"},
      {u"H --> Phase", u"Phase", u"2.0", u"2.0"},
      {u"I --> Version", u"Version", u"1.1", u"1.1"},
      {u"J --> Name", u"Name", u"Child", u"Child"},
  };
  Add(u"Created By --> (Tagged Value)");
  for (const auto& each : fields) {
    Add(each.rule);
    child.SetField(each.field, each.stored);
  }
  child.SetParentID(parent.ElementID());
  child.SetTreePos(20);
  child.Save();
  for (const auto spelling : {ColumnSpelling::kAsWritten, ColumnSpelling::kUpper, ColumnSpelling::kLower}) {
    model.SetColumnSpelling(spelling);
    const DataTable& table = Load();
    ASSERT_EQ(table.UpperRow(), 2u);
    const Variant expected[2][6] = {{parent.ElementID(), u"R1", {}, u"", 0, u"Ann"},
                                    {child.ElementID(), u"R2", {}, u"R1", 20, {}}};
    for (std::size_t row = 1; row <= 2; ++row)
      for (std::size_t c = 0; c < 6; ++c)
        EXPECT_EQ(table.At(row, c), expected[row - 1][c]) << row << ", " << c;
    for (std::size_t i = 0; i < std::size(fields); ++i)
      EXPECT_EQ(table.At(2, 6 + i).ToText(), fields[i].read) << ToUtf8(fields[i].field);
    EXPECT_EQ(table.At(1, 6), Variant()) << "notes that nobody wrote";
  }
}

TEST_F(OrimDocTest, MemoTextsAreAskedForTogetherWhenOneIsNeeded) {
  Add(u"Rationale --> (Tagged Value)");
  Add(u"Object Text --> Notes");
  for (const char16_t* identifier : {u"R1", u"R2", u"R3"}) {
    const orim::Element element = AddElement(identifier, {{u"Object Identifier", identifier}});
    element.SetField(u"Notes", u"<memo>");
    element.Save();
    const orim::TaggedValue memo = element.TaggedValues().AddNew(u"Rationale", u"<memo>");
    memo.SetNotes(Text(u"long text of\n") + identifier);
    memo.Save();
  }
  Load();
  model.Counters().Reset();
  EXPECT_EQ(doc.StoredValue(1, 6).ToText(), u"<memo>") << "only tagged values have memos";
  EXPECT_EQ(model.Counters().Calls(), 0);
  EXPECT_EQ(doc.StoredValue(2, 5).ToText(), u"long text of\r\nR2");
  const auto calls = model.Counters().Calls();
  EXPECT_EQ(doc.StoredValue(3, 5).ToText(), u"long text of\r\nR3");
  EXPECT_EQ(model.Counters().Calls(), calls);
  EXPECT_EQ(doc.GetData().At(1, 5).ToText(), u"<memo>") << "the table holds what the value column holds";
}

/// A host whose answer to a query is given.
struct FixedAnswer : Dispatch {
  explicit FixedAnswer(Text xml) : xml(std::move(xml)) {}
  Variant Invoke(Access, TextView, Args) override { return xml; }
  Text xml;
};

TEST(QueryAnswerTest, AnswersThatAreNotAsExpected) {
  const auto rows_of = [](Text xml) {
    const orim::Repository host(Object(std::make_shared<FixedAnswer>(std::move(xml))));
    return RowsOf<int>(host, u"", {u"Object_ID"}, [](const QueryRow& row) { return row.GetNumber(0); })
        .size();
  };
  EXPECT_EQ(rows_of(u""), 0u);
  EXPECT_EQ(rows_of(u"<ORIMDATA/>"), 0u);
  EXPECT_EQ(rows_of(u"<ORIMDATA><Dataset_0><Data/></Dataset_0></ORIMDATA>"), 0u);
  EXPECT_EQ(rows_of(u"<ORIMDATA><Dataset_0><Data><Row/><Other/></Data></Dataset_0></ORIMDATA>"), 1u);
  try {
    rows_of(u"<ORIMDATA><Dataset_0><Data><Row>");
    FAIL() << "a cut-off answer is no empty package";
  } catch (const AutomationError& failure) {
    EXPECT_EQ(failure.Number, 0x80040004);
  }
  EXPECT_EQ(testing::FailureOf([&] {
              rows_of(
                  u"<ORIMDATA><Dataset_0><Data><Row><Object_ID>2147483648</Object_ID></Row></Data></"
                  u"Dataset_0></ORIMDATA>");
            }),
            "The model's answer to a query cannot be read: 2147483648");
}

TEST(QueryAnswerTest, TheQuerysOwnSpellingWins) {
  const orim::Repository host(Object(std::make_shared<FixedAnswer>(
      u"<ORIMDATA><Dataset_0><Data><Row><value>low</value><Value>own</Value><VALUE>up</VALUE></Row>"
      u"<Row><value>low</value><VALUE>up</VALUE></Row><Row/></Data></Dataset_0></ORIMDATA>")));
  const auto values = RowsOf<Text>(host, u"", {u"Value", u"None"}, [](const QueryRow& row) {
    EXPECT_FALSE(row.Has(1));
    EXPECT_EQ(row.GetNumber(1), 0);
    return Text(row.GetText(0));
  });
  EXPECT_EQ(values, (std::vector<Text>{u"own", u"up", u""}));
}

}  // namespace
}  // namespace kestrune
