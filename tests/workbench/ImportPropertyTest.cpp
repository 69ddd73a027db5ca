// Whatever becomes of a module, an import brings the package to what a user expects of it, and the next one
// finds nothing to do.
#include "tests/workbench/RandomEdits.h"

namespace kestrune {
namespace {

using testing::DoorsModule;
using testing::EndToEnd;
using testing::ImportRun;
using testing::PackageState;
using testing::ReferenceModule;
using testing::ReferenceObject;
using testing::ReferenceView;

constexpr int kRounds = 12;
const std::vector<Text> kFields = {u"Name", u"Notes", u"Status", u"Alias"};

class RandomModule : public ::testing::TestWithParam<unsigned> {
 protected:
  RandomModule() {
    doors_.AddView(u"Open", {{u"Status", u"equals", u"Open"}});
    doors_.AddView(u"Marked", {{u"Remark", u"contains", u"x"}, {u"Status", u"not equals", u"Closed"}});
    setup_.mapping = {u"Absolute Number [: Object Heading] --> Name",
                      u"Object Text --> Notes",
                      u"Status --> Status",
                      u"Owner --> Alias",
                      u"Remark [/ Extra] --> (Tagged Value)",
                      u"Rationale --> (Tagged Value)"};
    setup_.Link(doors_.Path());
  }

  void ChangeView() {
    static const std::vector<Text> kNames = {u"Standard view", u"Open", u"Marked"};
    setup_.view = kNames[static_cast<std::size_t>(edits_.Roll(3))];
    setup_.EditOptions();
  }

  ReferenceView ShownByView() const {
    if (setup_.view == u"Open")
      return [](const ReferenceObject& object) { return object.Value(u"Status") == u"Open"; };
    if (setup_.view == u"Marked")
      return [](const ReferenceObject& object) {
        return object.Value(u"Remark").find(u'x') != Text::npos && object.Value(u"Status") != u"Closed";
      };
    return {};
  }

  std::map<Text, Text> ValuesOf(int number, const ReferenceObject& object) const {
    const auto value = [&](const Text& attribute) { return module_.InTheHost(object.Value(attribute)); };
    const Text heading = value(u"Object Heading");
    const Text extra = value(u"Extra");
    return {{u"Name", ToText(number) + (heading.empty() ? heading : u": " + heading)},
            {u"Notes", value(u"Object Text")},
            {u"Status", value(u"Status")},
            {u"Alias", value(u"Owner")},
            {u"Remark", value(u"Remark") + (extra.empty() ? extra : u"/ " + extra)},
            {u"Rationale", value(u"Rationale")}};
  }

  /// Brings the expectation up to date with the module; returns the messages that the import must show.
  std::vector<Text> Expect() {
    PackageState now =
        module_.Package(ShownByView(), [this](int n, const ReferenceObject& o) { return ValuesOf(n, o); });
    long long archived = 0, restored = 0;
    for (auto& [identifier, element] : expected_) {
      const auto found = now.find(identifier);
      if (found != now.end()) {
        restored += element.in_trash;
        continue;
      }
      archived += !element.in_trash;
      element.in_trash = true;
      now.emplace(identifier, element);
    }
    expected_ = std::move(now);
    std::vector<Text> messages;
    if (archived > 0)
      messages.push_back(ToText(archived) +
                         u" item(s) no longer appear in the DOORS module and their corresponding Orim "
                         u"entries\r\nhave been moved to the 'Trash Can' package.");
    if (restored > 0)
      messages.push_back(ToText(restored) + u" item(s) restored from the 'Trash Can' package.");
    return messages;
  }

  EndToEnd setup_;
  DoorsModule doors_{setup_.database, u"M"};
  ReferenceModule module_;
  testing::RandomEdits edits_{GetParam(), doors_, module_};
  PackageState expected_;
};

TEST_P(RandomModule, IsMirroredByThePackageAfterEveryImport) {
  for (int round = 0; round < kRounds && !HasFailure(); ++round) {
    SCOPED_TRACE("seed " + std::to_string(GetParam()) + ", round " + std::to_string(round) + ", " +
                 ToUtf8(setup_.view));
    for (int edits = 1 + edits_.Roll(6) + (round == 0 ? 10 : 0); edits > 0; --edits) edits_.EditOnce();
    // An open module goes on showing what it was when it was opened.
    setup_.doors.UserClosesAll();
    if (round > 0 && edits_.Roll(3) == 0) ChangeView();

    const auto messages = Expect();
    const ImportRun run = setup_.Import();
    EXPECT_TRUE(run.completed);
    EXPECT_EQ(run.messages, messages);
    EXPECT_FALSE(run.HasLine(u"ERROR"));
    ExpectPackage(ReadPackage(setup_, kFields), expected_);

    const ImportRun again = setup_.Import();
    EXPECT_TRUE(again.completed);
    EXPECT_EQ(again.writes, 0);
    EXPECT_TRUE(again.messages.empty());
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomModule, ::testing::Range(1u, 31u));

}  // namespace
}  // namespace kestrune
