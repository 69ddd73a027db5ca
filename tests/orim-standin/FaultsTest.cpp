#include "tests/orim-standin/Support.h"

namespace kestrune::workbench {
namespace {

using Moment = HostFaults::Moment;

class OrimFaults : public ModelTest {
 protected:
  AutomationError failure{0x80001234, u"Host", u"as ordered"};
};

TEST_F(OrimFaults, CallsAndWritesAreCounted) {
  model.Counters().Reset();
  Object element = AddElement(u"E");  // PackageByID, Elements, AddNew, Save
  element.Put(u"Name", u"x");
  element.Get(u"Name");
  AddTaggedValue(element, u"Tag", u"v");  // TaggedValues, AddNew, Save
  TaggedValues(element).Call(u"DeleteAt", {0, true});
  EXPECT_NE(FailureOf([&] { element.Call(u"NoSuchMember"); }), "");
  EXPECT_EQ(model.Counters().Calls(), 4 + 2 + 3 + 2 + 1);
  EXPECT_EQ(model.Counters().Writes(), 3);
  EXPECT_EQ(model.Counters().ByMember().at(u"Call Element.Save"), 1);
  EXPECT_EQ(model.Counters().ByMember().at(u"Put Element.Name"), 1);
  EXPECT_EQ(model.Counters().ByMember().at(u"Get Element.Name"), 1);
  EXPECT_EQ(model.Counters().ByMember().at(u"Get Element.TaggedValues"), 2);
}

TEST_F(OrimFaults, TheNthCallFailsOnceAndAsOrdered) {
  const Object element = AddElement(u"E");
  model.Faults().FailCall(3, failure);
  element.Get(u"Name");
  element.Get(u"Name");
  try {
    element.Get(u"Name");
    FAIL() << "the third call did not fail";
  } catch (const AutomationError& e) {
    EXPECT_EQ(e.Number, 0x80001234);
    EXPECT_EQ(e.Source, u"Host");
    EXPECT_EQ(e.Description, u"as ordered");
  }
  EXPECT_EQ(element.Get(u"Name").ToText(), u"E");
}

TEST_F(OrimFaults, AnElementFieldFailsWhenItIsPutOrSaved) {
  Object element = AddElement(u"E");
  model.Faults().FailElementField(u"Status", Moment::kSave, failure);
  element.Put(u"Name", u"Other");
  element.Call(u"Save");
  element.Put(u"Status", u"Approved");
  for (int attempt = 0; attempt < 2; ++attempt)
    EXPECT_EQ(FailureOf([&] { element.Call(u"Save"); }), "as ordered");
  EXPECT_EQ(ElementOf(element.Get(u"ElementID").ToInt()).Get(u"Status").ToText(), u"");

  model.Faults().FailElementField(u"Status", Moment::kPut, failure);
  EXPECT_EQ(FailureOf([&] { element.Put(u"Status", u"Implemented"); }), "as ordered");
  EXPECT_EQ(element.Get(u"Status").ToText(), u"Approved");
  element.Call(u"Save");
  model.Faults().Clear();
  element.Put(u"Status", u"Implemented");

  model.Faults().FailElementField(u"Name", Moment::kSave, failure);
  EXPECT_EQ(FailureOf([&] { AddElement(u"New"); }), "as ordered");
  element.Put(u"Alias", u"x");
  element.Call(u"Save");  // its name changed before an earlier save
}

TEST_F(OrimFaults, ATaggedValueFailsWhenItIsPutOrSaved) {
  const Object element = AddElement(u"E");
  AddTaggedValue(element, u"Created By", u"me");
  Object tag = TaggedValues(element).Call(u"GetByName", {u"Created By"}).ToObject();
  const auto new_tag = [&] { AddTaggedValue(AddElement(u"F"), u"Created By", u"you"); };

  model.Faults().FailTaggedValue(u"Created By", Moment::kSave, failure);
  tag.Call(u"Save");  // nothing changed
  EXPECT_EQ(FailureOf(new_tag), "as ordered");
  tag.Put(u"Value", u"you");
  EXPECT_EQ(FailureOf([&] { tag.Call(u"Save"); }), "as ordered");
  AddTaggedValue(element, u"Other", u"x");

  model.Faults().FailTaggedValue(u"Created By", Moment::kPut, failure);
  EXPECT_EQ(FailureOf(new_tag), "as ordered");
  EXPECT_EQ(FailureOf([&] { tag.Put(u"Notes", u"x"); }), "as ordered");
  EXPECT_EQ(TaggedValues(element).Call(u"GetByName", {u"Created By"}).ToObject().Get(u"Value").ToText(),
            u"me");
}

}  // namespace
}  // namespace kestrune::workbench
