#include "documents/ElementFieldWriter.h"
#include "tests/support/TestHost.h"
#include "tests/support/TestPlatform.h"

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

struct FieldWriterTest : ::testing::Test, TestHost {
  static constexpr std::size_t kRationale = 5, kStatus = 6, kAlias = 7, kNotes = 8;

  FieldWriterTest() {
    for (const TextView fixed : kFixedRules) doc.AddField(ColumnOf(*ParseRule(fixed)));
    for (const char16_t* rule :
         {u"Rationale --> (Tagged Value)", u"A --> Status", u"B --> Alias", u"C --> Notes"})
      doc.AddField(ColumnOf(*ParseRule(rule)));
    doc.Load();
    for (std::size_t row = 1; row <= doc.GetData().UpperRow(); ++row)
      index.Add(doc.GetData().At(row, 1).AsText(), row);
  }
  WriteResult Write(ElementFieldWriter& by, std::vector<FieldValue> values) {
    WrittenElement first{Fresh(), 1, u"First"};
    return by.Write(first, std::move(values));
  }
  orim::TaggedValue Rationale() { return Fresh().TaggedValues().Find(u"Rationale"); }
  orim::Element Fresh() { return repository.ElementByID(element.ElementID()); }

  orim::Element element = AddElement(u"First", {{u"Object Identifier", u"R1"}});
  OrimDoc doc{repository, Package()};
  ElementIndex index{doc.GetData()};
  RecordedProgress progress;
  ElementFieldWriter writer{repository, progress, doc, index};
};

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
    Write(writer, {{kRationale, each.value}});
    EXPECT_EQ(Rationale().Value(), each.is_memo ? u"<memo>" : each.value) << each.name;
    EXPECT_EQ(Rationale().Notes(), each.is_memo ? each.value : u"") << each.name;
    EXPECT_EQ(Fresh().TaggedValues().Count(), 2) << each.name;
  }
}

TEST_F(FieldWriterTest, NotesThatAUserKeptBesideAShortValueStay) {
  Write(writer, {{kRationale, u"one"}});
  const orim::TaggedValue kept = Rationale();
  kept.SetNotes(u"mine");
  kept.Save();
  Write(writer, {{kRationale, u"two"}});
  EXPECT_EQ(Rationale().Notes(), u"mine");
}

TEST_F(FieldWriterTest, ATaggedValueThatTheHostGivesToNewElementsIsUsed) {
  WrittenElement made{AddElement(u"New", {{u"Rationale", u"of the host"}}), index.NextRow(), u"New"};
  EXPECT_TRUE(writer.Write(made, {{1, u"R2"}, {kRationale, u"ours"}}).HasAll);
  const auto tagged_values = made.Element.TaggedValues();
  EXPECT_EQ(tagged_values.Count(), 2);
  EXPECT_EQ(tagged_values.Find(u"Rationale").Value(), u"ours");
  EXPECT_TRUE(progress.lines.empty());
  model.Faults().FailMember(u"Call TaggedValues.GetByName", {error::kCallFailed, u"host", u"gone"});
  WrittenElement lost{AddElement(u"Lost", {{u"Rationale", u"of the host"}}), index.NextRow(), u"Lost"};
  EXPECT_FALSE(writer.Write(lost, {{1, u"R3"}, {kRationale, u"ours"}}).HasAny);
  EXPECT_EQ(lost.Element.TaggedValues().Count(), 1) << "a host that is gone has not said that there is none";
}

TEST_F(FieldWriterTest, AFieldThatFailedOnceIsLeftAloneAndOthersAreNot) {
  const AutomationError refusal(0x80004005, u"host", u"The host says no");
  for (const auto moment : {HostFaults::Moment::kPut, HostFaults::Moment::kSave}) {
    ElementFieldWriter fresh(repository, progress, doc, index);
    model.Faults().FailElementField(u"Status", moment, refusal);
    model.Faults().FailTaggedValue(u"Rationale", moment, refusal);
    for (const char16_t* value : {u"one", u"two"}) {
      const WriteResult result =
          Write(fresh, {{kAlias, value}, {kStatus, value}, {kRationale, value}, {kNotes, value}});
      EXPECT_TRUE(result.HasAny && !result.HasAll);
      EXPECT_EQ(Fresh().Field(u"Alias"), value);
      EXPECT_EQ(Fresh().Field(u"Notes"), value);
    }
    ASSERT_EQ(fresh.FailedFields().size(), 2u);
    EXPECT_EQ(fresh.FailedFields()[0].Column, kRationale);
    EXPECT_EQ(fresh.FailedFields()[1].Column, kStatus);
    EXPECT_EQ(fresh.FailedFields()[1].Skipped, 1u);
    EXPECT_EQ(
        progress.lines,
        (std::vector<Text>{u"First | Alias:  --> one", u"First | Status:  --> one",
                           u"First | Rationale:  --> one", u"First | Notes:  --> one",
                           u"ERROR: The host says no", u"Warning: \"Rationale\" of 'First' was not written.",
                           u"ERROR: The host says no", u"Warning: \"Status\" of 'First' was not written.",
                           u"First | Alias:  --> two", u"First | Notes:  --> two"}));
    EXPECT_FALSE(Write(fresh, {{kStatus, u"three"}}).HasAny);
    EXPECT_EQ(Fresh().Field(u"Status"), u"");
    progress.lines.clear();
  }
}

}  // namespace
}  // namespace kestrune
