#include <algorithm>
#include <gtest/gtest.h>
#include <random>

#include "common/Resources.h"
#include "options/OptionsRecord.h"

namespace kestrune {
namespace {

/// Rules and texts at random, the same in every run.
class Dice {
 public:
  explicit Dice(unsigned seed) : engine_(seed) {}
  std::size_t Roll(std::size_t sides) {
    return std::uniform_int_distribution<std::size_t>(0, sides - 1)(engine_);
  }
  Text From(std::initializer_list<TextView> pieces, std::size_t count) {
    Text text;
    for (std::size_t i = 0; i < count; ++i) text += pieces.begin()[Roll(pieces.size())];
    return text;
  }
  /// A name that any module may have.
  Text PlainName() {
    return From({u"A", u"b", u"é", u"名", u"7", u"-", u"]", u"\"", u"'", u"&lt;"}, 1 + Roll(4)) + u" x";
  }
  Text WildText() {
    return From({u"A", u" ", u"[", u"]", u":", u" -->", u"--> ", u"\r\n", u"\r", u"\n", u"\t", u"Name",
                 u"RestrictToView=", u"OrimNameAttr=", u"(Tagged Value)"},
                Roll(9));
  }
  MappingRule PlainRule() {
    const Text target = From({u"", u"Name", u"(Tagged Value)"}, 1);
    if (Roll(2) == 0) return {PlainName(), u"", u"", target};
    return {PlainName(), PlainName(), From({u"", u":", u"[", u"->"}, 1), target};
  }
  MappingRule WildRule() { return {WildText(), WildText(), WildText(), WildText()}; }

 private:
  std::mt19937 engine_;
};

bool Contains(const std::vector<MappingRule>& rules, const MappingRule& rule) {
  return std::find(rules.begin(), rules.end(), rule) != rules.end();
}

TEST(OptionsRecord, KeepsEveryPlainRuleWhateverStandsBesideIt) {
  Dice dice(1);
  for (int run = 0; run < 2000; ++run) {
    std::vector<MappingRule> written, plain;
    for (std::size_t i = dice.Roll(8); i > 0; --i) {
      const bool is_plain = dice.Roll(2) == 0;
      written.push_back(is_plain ? dice.PlainRule() : dice.WildRule());
      if (is_plain) plain.push_back(written.back());
    }
    const Text text = WriteRecord(dice.WildText(), written);
    const OptionsRecord read = ReadRecord(text);
    ASSERT_TRUE(IsValidRecord(text)) << ToUtf8(text);
    ASSERT_TRUE(read.Complaints.empty()) << ToUtf8(text);
    ASSERT_EQ(WriteRecord(read.RestrictToView, read.Rules), text);
    for (const MappingRule& rule : plain)
      ASSERT_TRUE(Contains(read.Rules, rule)) << ToUtf8(RuleText(rule)) << " was lost from\n" << ToUtf8(text);
    for (const MappingRule& rule : read.Rules)
      ASSERT_TRUE(Contains(written, rule)) << ToUtf8(RuleText(rule)) << " was never written\n"
                                           << ToUtf8(text);
  }
}

TEST(OptionsRecord, StandsInTheMemoAsPeopleReadIt) {
  const MappingRule rules[] = {{u"A"}, {u"B", u"C", u":", u"Name"}};
  const Text help = LoadResText(text::kRecordHelp);
  EXPECT_EQ(WriteRecord(u"", rules), help + u"\r\n\r\nA\r\nB [: C] --> Name\r\n");
  EXPECT_EQ(WriteRecord(u"Mine", rules),
            help + u"\r\n\r\nRestrictToView=Mine\r\n\r\nA\r\nB [: C] --> Name\r\n");
  EXPECT_EQ(WriteRecord(u"Standard view", {}), help + u"\r\n\r\n");
  EXPECT_EQ(WriteRecord(u"standard view", {}), help + u"\r\n\r\nRestrictToView=standard view\r\n\r\n");
}

struct ViewCase {
  const char* text;
  const char* view;
  std::vector<MappingRule> rules;
};

TEST(OptionsRecord, FindsTheViewOnItsLineOnly) {
  const ViewCase cases[] = {
      {"1\r\n2\r\n\r\nRestrictToView=My View \r\n\r\nA", "My View ", {{u"A"}}},
      {"1\r\n2\r\n\r\nRestrictToView=V", "V", {}},
      {"1\r\n2\r\n\r\nrestricttoview=V\r\nA", "", {{u"restricttoview=V"}, {u"A"}}},
      {"1\r\n2\r\n\r\nA\r\nRestrictToView=V", "", {{u"A"}, {u"RestrictToView=V"}}},
      {"1\r\n2\r\n\r\n", "", {}},
      {"1\r\n2\r\n\r\n A \r\n\r\nB", "", {{u"A"}}},
      {"RestrictToView=V", "", {}},
  };
  for (const ViewCase& each : cases) {
    const OptionsRecord record = ReadRecord(FromUtf8(each.text));
    EXPECT_EQ(record.RestrictToView, FromUtf8(each.view)) << each.text;
    EXPECT_EQ(record.Rules, each.rules) << each.text;
  }
}

TEST(OptionsRecord, IsValidFromFourLinesOnUnlessOfTheOlderLayout) {
  EXPECT_FALSE(IsValidRecord(u""));
  EXPECT_FALSE(IsValidRecord(u"1\r\n2\r\n3"));
  EXPECT_TRUE(IsValidRecord(u"1\r\n2\r\n3\r\n"));
  EXPECT_FALSE(IsValidRecord(u"1\r\n2\r\n3\r\nOrimNameAttr=Object Text"));
  EXPECT_TRUE(IsValidRecord(u"OrimNameAttr=\r\n2\r\n3\r\nA OrimNameAttr="));
}

}  // namespace
}  // namespace kestrune
