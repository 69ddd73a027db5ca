#include <functional>
#include <gtest/gtest.h>

#include "platform/Automation.h"

namespace kestrune {
namespace {

TEST(VariantTest, ComparesAsAutomationDoes) {
  const Variant empty;
  const struct {
    const char* name;
    Variant a;
    Variant b;
    bool equal;
  } cases[] = {
      {"empty and empty", empty, empty, true},
      {"empty and no text", empty, u"", true},
      {"empty and zero", empty, 0, true},
      {"empty and 0.0", empty, 0.0, true},
      {"empty and false", empty, false, true},
      {"empty and a text", empty, u"0", false},
      {"empty and a number", empty, 10, false},
      {"numbers of two types", 10, 10.0, true},
      {"true is -1", true, -1, true},
      {"different numbers", 10, 10.5, false},
      {"number and its text", 10, u"10", false},
      {"zero and no text", 0, u"", false},
      {"texts", u"a", u"a", true},
      {"texts of other case", u"a", u"A", false},
      {"texts with other line ends", u"a\n", u"a\r\n", false},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(each.a == each.b, each.equal) << each.name;
    EXPECT_EQ(each.b == each.a, each.equal) << each.name << ", turned round";
  }
}

TEST(VariantTest, ConvertsOrRefuses) {
  EXPECT_EQ(Variant(u" 42 ").ToInt(), 42);
  EXPECT_EQ(Variant(true).ToInt(), -1);
  EXPECT_EQ(Variant().ToInt(), 0);
  EXPECT_EQ(Variant(17.0).ToText(), u"17");
  EXPECT_EQ(Variant(true).ToText(), u"True");
  EXPECT_FALSE(Variant().ToObject());
  const std::function<void()> refused[] = {
      [] { Variant(u"forty").ToInt(); }, [] { Variant(u"12 mm").ToDouble(); }, [] { Variant(3e9).ToInt(); },
      [] { Variant(u"x").ToObject(); },  [] { Variant(u"x").ToTextArray(); },  [] { Variant(u"").ToInt(); },
      [] { Variant(Object()).ToText(); }};
  for (const auto& convert : refused) EXPECT_THROW(convert(), AutomationError);
}

TEST(ObjectTest, AMemberOfNothingIsAnErrorThatNamesIt) {
  try {
    Object().Get(u"Name");
    FAIL() << "nothing has no members";
  } catch (const AutomationError& failure) {
    EXPECT_EQ(failure.Number, error::kObjectMissing);
    EXPECT_NE(failure.Description.find(u"Name"), Text::npos);
  }
}

}  // namespace
}  // namespace kestrune
