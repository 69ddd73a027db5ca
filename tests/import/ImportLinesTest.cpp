#include <algorithm>
#include <gtest/gtest.h>

#include "import/ImportLines.h"

namespace kestrune {
namespace {

TEST(ImportLinesTest, ChangesOfOneItemInARowAreGrouped) {
  using Change = std::pair<Text, Text>;
  const struct {
    const char* name;
    std::vector<Change> changes;
    std::vector<Text> lines;
  } cases[] = {
      {"three times",
       {{u"A", u"x"}, {u"A", u"y"}, {u"A", u"z"}},
       {u"before", u"   A:", u"    ... x", u"    ... y", u"    ... z"}},
      {"in turn",
       {{u"A", u"x"}, {u"B", u"y"}, {u"A", u"z"}},
       {u"before", u"   A: ... x", u"   B: ... y", u"   A: ... z"}},
      {"a name that another begins with",
       {{u"REQ-1", u"x"}, {u"REQ-12", u"y"}, {u"REQ-1", u"z"}},
       {u"before", u"   REQ-1: ... x", u"   REQ-12: ... y", u"   REQ-1: ... z"}},
  };
  for (const auto& each : cases) {
    ImportLines lines;
    lines.Add(u"before");
    std::vector<Text> shown = lines.All();
    for (const auto& [item, change] : each.changes) {
      const std::vector<Text> settled(shown.begin(), shown.begin() + lines.Settled());
      const std::size_t first = lines.AddChange(item, change);
      EXPECT_TRUE(std::equal(settled.begin(), settled.end(), lines.All().begin())) << each.name;
      if (first < shown.size()) shown[first] = lines.All()[first];
      shown.insert(shown.end(), lines.All().begin() + shown.size(), lines.All().end());
      EXPECT_EQ(shown, lines.All()) << each.name;
    }
    EXPECT_EQ(shown, each.lines) << each.name;
  }
}

}  // namespace
}  // namespace kestrune
