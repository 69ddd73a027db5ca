#include <gtest/gtest.h>

#include "documents/ImportColumn.h"
#include "tests/support/FailureOf.h"

namespace kestrune {
namespace {

using Place = enum ImportColumn::Place;

TEST(ImportColumnTest, SaysWhatARuleFillsAndFromWhat) {
  const struct {
    TextView rule;
    ImportColumn column;
  } cases[] = {
      {u"Object Identifier --> (Tagged Value)",
       {u"Object Identifier", u"", u"", Place::kTaggedValue, u"Object Identifier"}},
      {u"Object Level --> (Calculated) Level", {u"Object Level", u"", u"", Place::kLevel, u"Level"}},
      {u"Object Parent --> (Calculated) Parent", {u"Object Parent", u"", u"", Place::kParent, u"Parent"}},
      {u"Field Position --> (Calculated) Position",
       {u"Field Position", u"", u"", Place::kPosition, u"Position"}},
      {u"Object Number [: Object Heading] --> Name",
       {u"Object Number", u": ", u"Object Heading", Place::kElementField, u"Name"}},
  };
  for (const auto& each : cases) EXPECT_EQ(ColumnOf(*ParseRule(each.rule)), each.column) << ToUtf8(each.rule);
}

TEST(ImportColumnTest, AFieldThatNoElementHasIsNamed) {
  for (const char16_t* field : {u"PackageID", u"Colour", u"name"}) {
    const auto failure = testing::FailureOf([&] { ColumnOf({.Attribute = u"Mood", .Target = field}); });
    EXPECT_EQ(failure, "Unknown field: " + ToUtf8(field));
  }
}

}  // namespace
}  // namespace kestrune
