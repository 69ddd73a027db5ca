// Names that DOORS allows and that are signs elsewhere on their way: in rules, in parameters, in XML.
#include "tests/workbench/PackageState.h"

namespace kestrune {
namespace {

using testing::DoorsModule;
using testing::EndToEnd;
using testing::ImportRun;

struct PeculiarNames : ::testing::Test {
  PeculiarNames() {
    module.AddObject(1, 0, 1);
    setup.mapping = {u"Absolute Number --> Name"};
  }
  EndToEnd setup;
  DoorsModule module{setup.database, u"M"};
};

TEST_F(PeculiarNames, OfAttributesAreImportedAsTheyAre) {
  std::map<Text, Text> values = {{u"Name", u"1"}};
  for (const Text name : {u"say \"so\"", u"it's", u"a & <b>", u"100 %s", u"x]", u"~", u"a: b",
                          u"\u00C4\U0001F600", u"RestrictToView", u"<memo>", u"Object Identifier (2)"}) {
    module.AddAttribute(name);
    module.Set(1, name, u"value of " + name);
    setup.mapping.push_back(name + u" --> (Tagged Value)");
    values[name] = u"value of " + name;
  }
  setup.Link(module.Path());
  EXPECT_TRUE(setup.Import().completed);
  ExpectPackage(ReadPackage(setup, {u"Name"}), {{u"R1", {.position = 10, .values = values}}});
  EXPECT_EQ(setup.Import().writes, 0);
}

TEST_F(PeculiarNames, ThatCannotBeMappedSpoilNothing) {
  for (const auto* name : {u"a [b]", u"x --> y", u"[", u" blank at its ends ", u"OrimNameAttr=", u"Status"}) {
    module.AddAttribute(name);
    module.Set(1, name, u"value");
  }
  setup.mapping.push_back(u"Status --> Status");
  setup.Link(module.Path());
  for (int i = 0; i < 2; ++i) {
    const ImportRun run = setup.Import();
    EXPECT_TRUE(run.completed);
    EXPECT_TRUE(run.messages.empty());
    ExpectPackage(ReadPackage(setup, {u"Name", u"Status"}),
                  {{u"R1", {.position = 10, .values = {{u"Name", u"1"}, {u"Status", u"value"}}}}});
    setup.EditOptions();
  }
  EXPECT_EQ(setup.Import().writes, 0);
}

TEST_F(PeculiarNames, OfViewsAreFound) {
  module.AddObject(2, 0, 2);
  module.Set(2, u"Object Text", u"shown");
  setup.Link(module.Path());
  setup.EditOptions();
  for (const Text name : {u"it's \"so\"", u"100 %s", u"a = b", u"\u00C4 & <b>", u"[x] --> y"}) {
    SCOPED_TRACE(ToUtf8(name));
    module.AddView(name, {{u"Object Text", u"equals", u"shown"}});
    setup.view = name;
    setup.EditOptions();
    EXPECT_TRUE(setup.Import().completed);
    EXPECT_FALSE(ReadPackage(setup, {}).at(u"R2").in_trash);
    EXPECT_EQ(ReadPackage(setup, {}).size(), 1u);
    setup.doors.UserClosesAll();
  }
}

// "~" stands between the parameters of a script.
TEST_F(PeculiarNames, WithATildeAreRefusedInWords) {
  const DoorsModule tilde(setup.database, u"A~B");
  module.AddView(u"C~D", {});
  const auto expect_refusal = [this](TextView name) {
    const ImportRun run = setup.Import();
    EXPECT_FALSE(run.completed);
    ASSERT_EQ(run.messages.size(), 1u);
    EXPECT_NE(run.messages[0].find(Text(name) + u" holds a \"~\""), Text::npos) << ToUtf8(run.messages[0]);
    EXPECT_EQ(run.writes, 0);
  };
  setup.Link(tilde.Path());
  expect_refusal(u"\"/P/A~B\"");
  setup.Link(module.Path());
  EXPECT_TRUE(setup.Import().completed);
  setup.view = u"C~D";
  setup.EditOptions();
  expect_refusal(u"\"C~D\"");
}

}  // namespace
}  // namespace kestrune
