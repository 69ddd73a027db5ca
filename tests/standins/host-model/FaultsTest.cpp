#include "tests/standins/host-model/Support.h"

namespace kestrune::standins {
namespace {

class OrimFaults : public ModelTest {
 protected:
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
  model.Faults().FailCall(3, {0x80001234, u"Host", u"as ordered"});
  element.Get(u"Name");
  element.Get(u"Name");
  EXPECT_EQ(FailureOf([&] { element.Get(u"Name"); }), "as ordered");
  EXPECT_EQ(element.Get(u"Name").ToText(), u"E");
}

TEST_F(OrimFaults, AFieldFailsInTheSaveThatChangesItOnlyATaggedValueWhenItIsPutAndAMemberInOneUse) {
  const AutomationError failure{0x80001234, u"Host", u"as ordered"};
  PutAndSave(element, u"Name", u"Other");
  model.Faults().FailElementField(u"Name", HostFaults::Moment::kSave, failure);
  PutAndSave(element, u"Alias", u"x");
  EXPECT_EQ(FailureOf([&] { PutAndSave(element, u"Name", u"x"); }), "as ordered");
  const Object tag = AddTaggedValue(element, u"Tag", u"v");
  model.Faults().FailTaggedValue(u"Tag", HostFaults::Moment::kPut, failure);
  EXPECT_EQ(FailureOf([&] { tag.Put(u"Notes", u"x"); }), "as ordered");
  model.Faults().FailMember(u"Get Element.Alias", failure);
  element.Put(u"Alias", u"y");
  EXPECT_EQ(FailureOf([&] { element.Get(u"Alias"); }), "as ordered");
}

}  // namespace
}  // namespace kestrune::standins
