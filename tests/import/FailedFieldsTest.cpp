// What the host refuses is said, costs as little as it can, and may be kept out of later imports.
#include "tests/import/ImportTest.h"

namespace kestrune {
namespace {

using standins::HostFaults;

constexpr auto kSave = HostFaults::Moment::kSave;
const AutomationError kRefusal(0x80004005, u"host", u"no");

Text ExcludeQuestion(const Text& fields) {
  return u"There was an error importing the following attribute(s): \r\n\r\n   " + fields +
         u"\r\n\r\nExclude them from future imports?\r\n";
}

struct FailedFieldsTest : testing::ImportFixture {
  FailedFieldsTest() { application->objects = testing::ObjectsOf(u"A B<A C<A"); }

  /// The rules with a target that are stored now.
  std::vector<Text> MappedRules() {
    Options options(doors);
    EXPECT_TRUE(options.Load(Package()));
    std::vector<Text> rules;
    for (const MappingRule& rule : options.UserRules())
      if (!rule.Target.empty()) rules.push_back(RuleText(rule));
    return rules;
  }
};

TEST_F(FailedFieldsTest, AreNamedAndCountedAndMayBeExcluded) {
  StoreRules({u"Object Heading --> Name", u"Mood --> (Tagged Value)", u"Object Number --> Status",
              u"Object Identifier --> Alias"});
  application->objects[2].pop_back();  // no mood, so that nothing of it is missed
  model.Faults().FailTaggedValue(u"Mood", kSave, kRefusal);
  model.Faults().FailElementField(u"Alias", kSave, kRefusal);
  const struct {
    Answer answer;
    Text counts;
  } imports[] = {{Answer::kNo, u"3 new, 0 changed, 0 moved, 0 archived, 0 restored, 0 unchanged, 3 failed"},
                 {Answer::kYes, u"0 new, 0 changed, 0 moved, 0 archived, 0 restored, 0 unchanged, 3 failed"}};
  for (const auto& each : imports) {
    NextMessage(ExcludeQuestion(u"Mood, Alias"), each.answer);
    const auto lines = Import();
    EXPECT_EQ(LinesThatBegin(u"ERROR: ", lines).size(), 2u) << "each is tried once";
    EXPECT_EQ(LinesThatBegin(u"Warning: ", lines),
              (std::vector<Text>{u"Warning: \"Mood\" of 'nA' was not written.",
                                 u"Warning: \"Alias\" of 'nA' was not written.",
                                 u"Warning: \"Mood\" was not written for 1 more element(s) after that.",
                                 u"Warning: \"Alias\" was not written for 2 more element(s) after that."}));
    EXPECT_EQ(lines.back(), u"*** Import Complete ***");
    EXPECT_EQ(lines[lines.size() - 2], each.counts);
  }
  EXPECT_EQ(MappedRules(), (std::vector<Text>{u"Object Heading --> Name", u"Object Number --> Status"}));
  Import();
}

TEST_F(FailedFieldsTest, BelongToAFieldAndNotToItsName) {
  const std::vector<Text> rules = {u"Mood --> Status", u"Position --> (Tagged Value)",
                                   u"Status --> (Tagged Value)"};
  const struct {
    Text failing_field, failing_tagged_value, excluded, status, status_value;
  } cases[] = {
      {u"Status", u"", u"Mood --> Status", u"", u"x"},
      {u"", u"Status", u"Status --> (Tagged Value)", u"calm", u""},
      {u"TreePos", u"", u"", u"calm", u"x"},  // the place in the tree is no tagged value "Position"
  };
  for (const char16_t* attribute : {u"Status", u"Position"}) application->attributes.push_back(attribute);
  for (auto& object : application->objects)
    for (const char* value : {"a13", "a14"}) object.emplace_back(value, u"x");
  for (const auto& each : cases) {
    SCOPED_TRACE(ToUtf8(each.excluded));
    GoOnWithAnotherPackage();
    StoreRules(rules);
    model.Faults().FailElementField(each.failing_field, kSave, kRefusal);
    model.Faults().FailTaggedValue(each.failing_tagged_value, kSave, kRefusal);
    if (!each.excluded.empty()) NextMessage(ExcludeQuestion(u"Status"), Answer::kYes);
    const auto lines = Import();
    model.Faults().Clear();
    EXPECT_TRUE(lines[lines.size() - 2].ends_with(u" 3 failed"));
    std::vector<Text> rules_left = rules;
    std::erase(rules_left, each.excluded);
    EXPECT_EQ(MappedRules(), rules_left);
    const Text kept =
        u"Warning: \"Position\" belongs to every import and cannot be excluded. Mend what the error names "
        u"and import again.";
    EXPECT_EQ(HasLine(lines, kept), each.excluded.empty());
    const orim::Element child = ElementOf(u"C");
    EXPECT_EQ(child.Field(u"Status"), each.status);
    EXPECT_EQ(child.TaggedValues().Find(u"Position").Value(), u"x");
    const auto value = child.TaggedValues().Find(u"Status");
    EXPECT_EQ(value ? value.Value() : u"", each.status_value);
  }
}

TEST_F(FailedFieldsTest, AnElementWithoutAnIdentifierIsTakenOutAgain) {
  StoreRules({u"Object Heading --> Name"});
  AddElement(u"drawn by hand");
  model.Faults().FailTaggedValue(u"Object Identifier", kSave, kRefusal);
  model.Counters().Reset();
  const auto lines = Import();
  EXPECT_EQ(model.Counters().Writes(), 4) << "the record, the trash package, the first element and its end";
  EXPECT_EQ(Tree(), "drawn by hand\nTrash Can\n");
  EXPECT_EQ(
      LinesThatBegin(u"Warning: ", lines),
      (std::vector<Text>{
          u"Warning: \"Object Identifier\" of 'nA' was not written.",
          u"Warning: No element was made for 'B': its Object Identifier could not be stored.",
          u"Warning: No element was made for 'C': its Object Identifier could not be stored.",
          u"Warning: 3 object(s) of the module were not imported. Import again; if they are left out once "
          u"more, the lines above say why.",
          u"Warning: \"Object Identifier\" belongs to every import and cannot be excluded. Mend what the "
          u"error names and import again."}));
  EXPECT_TRUE(HasLine(lines, u"0 new, 0 changed, 0 moved, 0 archived, 0 restored, 0 unchanged, 3 failed"));
  model.Faults().FailMember(u"Call Elements.DeleteAt", kRefusal);
  const auto with_a_rest = Import();
  EXPECT_EQ(Tree(), "drawn by hand\nnA\nTrash Can\n");
  EXPECT_TRUE(HasLine(with_a_rest, u"Warning: The element 'nA' (id " + ToText(model.Tree(package_id)[1].id) +
                                       u") was made without an Object Identifier and could not be removed. "
                                       u"Delete it by hand."));
  model.Faults().Clear();
  Import();
  EXPECT_EQ(Tree(), "drawn by hand\n[A] nA\n  [B] nB\n  [C] nC\nTrash Can\n");
}

}  // namespace
}  // namespace kestrune
