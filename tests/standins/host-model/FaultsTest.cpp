#include "tests/standins/host-model/Support.h"

namespace kestrune::standins {
namespace {

using Moment = HostFaults::Moment;

class OrimFaults : public ModelTest {
 protected:
  const AutomationError failure{0x80001234, u"Host", u"as ordered"};
  Object element = AddElement(u"E");
};

TEST_F(OrimFaults, CallsAndWritesAreCounted) {
  model.Counters().Reset();
  AddElement(u"F");  // PackageByID, Elements, AddNew, Save
  element.Put(u"Name", u"x");
  element.Get(u"Name");
  AddTaggedValue(element, u"Tag", u"v");  // TaggedValues, AddNew, Save
  TaggedValues(element).Call(u"DeleteAt", {0, true});
  EXPECT_NE(FailureOf([&] { element.Call(u"NoSuchMember"); }), "");
  EXPECT_EQ(model.Counters().Calls(), 4 + 2 + 3 + 2 + 1);
  EXPECT_EQ(model.Counters().Writes(), 3);
  EXPECT_EQ(model.Counters().ByMember().at(u"Put Element.Name"), 1);
  EXPECT_EQ(model.Counters().ByMember().at(u"Get Element.TaggedValues"), 2);
}

TEST_F(OrimFaults, TheNthCallFailsOnceAndAsOrdered) {
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
  model.Faults().FailElementField(u"Status", Moment::kSave, failure);
  PutAndSave(element, u"Name", u"Other");
  element.Put(u"Status", u"Approved");
  for (int attempt = 0; attempt < 2; ++attempt)
    EXPECT_EQ(FailureOf([&] { element.Call(u"Save"); }), "as ordered");
  EXPECT_EQ(ElementOf(IdOf(element)).Get(u"Status").ToText(), u"");

  model.Faults().FailElementField(u"Status", Moment::kPut, failure);
  EXPECT_EQ(FailureOf([&] { element.Put(u"Status", u"Implemented"); }), "as ordered");
  EXPECT_EQ(element.Get(u"Status").ToText(), u"Approved");
  element.Call(u"Save");

  model.Faults().FailElementField(u"Name", Moment::kSave, failure);
  EXPECT_EQ(FailureOf([&] { AddElement(u"New"); }), "as ordered");
  PutAndSave(element, u"Alias", u"x");  // its name changed before an earlier save
  model.Faults().Clear();
  AddElement(u"New");
}

TEST_F(OrimFaults, ATaggedValueFailsWhenItIsPutOrSaved) {
  AddTaggedValue(element, u"Created By", u"me");
  const Object tag = TaggedValues(element).Call(u"GetByName", {u"Created By"}).ToObject();
  const auto new_tag = [&] { AddTaggedValue(AddElement(u"F"), u"Created By", u"you"); };

  model.Faults().FailTaggedValue(u"Created By", Moment::kSave, failure);
  tag.Call(u"Save");  // nothing changed
  EXPECT_EQ(FailureOf(new_tag), "as ordered");
  EXPECT_EQ(FailureOf([&] { PutAndSave(tag, u"Value", u"you"); }), "as ordered");
  AddTaggedValue(element, u"Other", u"x");

  model.Faults().FailTaggedValue(u"Created By", Moment::kPut, failure);
  EXPECT_EQ(FailureOf(new_tag), "as ordered");
  EXPECT_EQ(FailureOf([&] { tag.Put(u"Notes", u"x"); }), "as ordered");
  EXPECT_EQ(StoredValue(element, u"Created By"), u"me");
}

}  // namespace
}  // namespace kestrune::standins
