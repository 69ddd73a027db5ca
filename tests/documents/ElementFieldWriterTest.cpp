#include "documents/ElementFieldWriter.h"
#include "tests/support/TestHost.h"

namespace kestrune {
namespace {

using standins::HostFaults;
using testing::TestHost;

struct RecordedProgress : ImportProgress {
  void Progress(const Text& msg) override { lines.push_back(msg); }
  void ProgressModify(const Text& ID, const Text& Modification) override {
    lines.push_back(ID + u" | " + Modification);
  }
  void ProgressShare(std::size_t, std::size_t) override {}
  std::vector<Text> lines;
};

constexpr std::size_t kTag = 5;
constexpr const char16_t* kFields[] = {u"Name",   u"Alias",    u"Status", u"Difficulty", u"Priority",
                                       u"Author", u"KeyWords", u"Phase",  u"Version",    u"Notes"};

struct FieldWriterTest : ::testing::Test, TestHost {
  FieldWriterTest() {
    for (const TextView fixed : kFixedRules) doc.AddField(ColumnOf(*ParseRule(fixed)));
    doc.AddField(ColumnOf(*ParseRule(u"Rationale --> (Tagged Value)")));
    for (const char16_t* field : kFields)
      doc.AddField(ColumnOf(*ParseRule(u"A" + Text(field) + u" --> " + field)));
    doc.Load();
    for (std::size_t row = 1; row <= doc.GetData().UpperRow(); ++row)
      index.Add(doc.GetData().At(row, 1).ToText(), row);
  }
  orim::TaggedValue Rationale() { return Fresh().TaggedValues().Find(u"Rationale"); }
  orim::Element Fresh() { return repository.ElementByID(element.ElementID()); }

  orim::Element element = AddElement(u"First", {{u"Object Identifier", u"R1"}});
  OrimDoc doc{repository, Package()};
  ElementIndex index{doc.GetData()};
  RecordedProgress progress;
  ElementFieldWriter writer{repository, progress, doc, index};
};

TEST_F(FieldWriterTest, EveryElementFieldIsSaved) {
  for (std::size_t i = 0; i < std::size(kFields); ++i) {
    const Text value = Text(u"new ") + kFields[i];
    EXPECT_TRUE(writer.Write(element, 1, kTag + 1 + i, value, u"First"));
    EXPECT_EQ(Fresh().Field(kFields[i]), value);
  }
  EXPECT_TRUE(writer.FailedFields().empty());
}

TEST_F(FieldWriterTest, ATaggedValueTakes255CharactersAndMoreAsAMemo) {
  const struct {
    const char* name;
    Text value;
    bool is_memo;
  } cases[] = {{"made", u"short", false},
               {"255", Text(255, u'x'), false},
               {"256", Text(256, u'x'), true},
               {"another memo", Text(1000, u'y'), true},
               {"back to short", u"short", false},
               {"the literal", u"<memo>", true},
               {"emptied", u"", false}};
  for (const auto& each : cases) {
    writer.Write(element, 1, kTag, each.value, u"First");
    EXPECT_EQ(Rationale().Value(), each.is_memo ? u"<memo>" : each.value) << each.name;
    EXPECT_EQ(Rationale().Notes(), each.is_memo ? each.value : u"") << each.name;
    EXPECT_EQ(Fresh().TaggedValues().Count(), 2) << each.name;
  }
}

TEST_F(FieldWriterTest, NotesThatAUserKeptBesideAShortValueStay) {
  writer.Write(element, 1, kTag, u"one", u"First");
  const orim::TaggedValue kept = Rationale();
  kept.SetNotes(u"mine");
  kept.Save();
  writer.Write(element, 1, kTag, u"two", u"First");
  EXPECT_EQ(Rationale().Notes(), u"mine");
}

TEST_F(FieldWriterTest, AFieldThatFailedOnceIsLeftAloneAndOthersAreNot) {
  const AutomationError refusal(0x80004005, u"host", u"The host says no");
  for (const auto moment : {HostFaults::Moment::kPut, HostFaults::Moment::kSave}) {
    ElementFieldWriter fresh(repository, progress, doc, index);
    model.Faults().FailElementField(u"Status", moment, refusal);
    model.Faults().FailTaggedValue(u"Rationale", moment, refusal);
    const std::size_t status = kTag + 3;
    for (const char16_t* value : {u"one", u"two"}) {
      orim::Element one = Fresh();
      for (const std::size_t column : {status, kTag, kTag + 2}) fresh.Write(one, 1, column, value, u"First");
    }
    ASSERT_EQ(fresh.FailedFields().size(), 2u);
    EXPECT_EQ(fresh.FailedFields()[0].Column, status);
    EXPECT_EQ(fresh.FailedFields()[1].Column, kTag);
    EXPECT_EQ(fresh.FailedFields()[1].Skipped, 1u);
    EXPECT_EQ(std::count(progress.lines.begin(), progress.lines.end(), u"ERROR: The host says no"), 2);
    EXPECT_EQ(Fresh().Field(u"Status"), u"");
    EXPECT_EQ(Fresh().Field(u"Alias"), u"two");
    progress.lines.clear();
  }
}

}  // namespace
}  // namespace kestrune
