#include <gtest/gtest.h>
#include <set>

#include "common/Resources.h"

namespace kestrune {
namespace {

TEST(FormatTextTest, FillsPlaceholdersInOrder) {
  EXPECT_EQ(FormatResText(text::kRestoredSummary, {u"3", u"Trash Can"}),
            u"3 item(s) restored from the 'Trash Can' package.");
  EXPECT_EQ(FormatText(u"%s and %s", {u"one"}), u"one and %s");
  EXPECT_EQ(FormatText(u"%s", {u"one", u"two"}), u"one");
  EXPECT_EQ(FormatText(u"%s-%s", {u"%s", u"x"}), u"x-%s")
      << "a placeholder that came with an argument is the next";
  EXPECT_EQ(FormatText(u"a\\nb\nc\\", {}), u"a\r\nb\nc\\");
}

TEST(ResourcesTest, EveryIdHasItsTextOnce) {
  std::set<int> ids;
#define STRING(id, name, text) EXPECT_TRUE(ids.insert(id).second) << id;
#include "common/resources/strings.def"
#undef STRING
  for (int id = 101; id <= 189; ++id) EXPECT_FALSE(LoadResText(id).empty()) << id;
  EXPECT_EQ(LoadResText(100), u"");
}

TEST(ResourcesTest, ScriptsKeepToWhatTravelsSafely) {
  for (const int id : {101, 102, 103, 104}) {
    const Text script = LoadDxl(id);
    EXPECT_FALSE(script.empty());
    EXPECT_EQ(script.find(u'\r'), Text::npos) << id << ": line feeds only";
    for (const char16_t unit : script)
      ASSERT_LT(unit, 128) << id << ": the code page of the machine is not known";
    EXPECT_EQ(script.find(u"ack "), Text::npos) << id << ": a modal box would block the host";
  }
  EXPECT_ANY_THROW(LoadDxl(105));
}

}  // namespace
}  // namespace kestrune
