// Whatever becomes of a module, an import brings the package to what a user expects of it, and the next one
// finds nothing to do.
#include "tests/workbench/HandEdits.h"
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

constexpr int kRounds = 36;
const std::vector<Text> kFields = {u"Name", u"Notes", u"Status", u"Alias"};

struct RandomScene {
  explicit RandomScene(unsigned seed) : edits_(seed, doors_, module_) {
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
  testing::RandomEdits edits_;
  PackageState expected_;

  void EditModule(int more) {
    for (int edits = 1 + edits_.Roll(6) + more; edits > 0; --edits) edits_.EditOnce();
    // An open module goes on showing what it was when it was opened.
    setup_.doors.UserClosesAll();
  }
};

constexpr unsigned kSeedsOfATest = 30;

/// Ten tests of thirty seeds each, so that they can run side by side.
class RandomModule : public ::testing::TestWithParam<unsigned> {
 protected:
  static void ForEachSeed(const std::function<void(unsigned)>& check) {
    for (unsigned i = 0; i < kSeedsOfATest && !HasFailure(); ++i) check(GetParam() * kSeedsOfATest + i);
  }
};

TEST_P(RandomModule, IsMirroredByThePackageAfterEveryImport) {
  RandomScene scene(GetParam());
  for (int round = 0; round < kRounds && !HasFailure(); ++round) {
    SCOPED_TRACE("seed " + std::to_string(GetParam()) + ", round " + std::to_string(round) + ", " +
                 ToUtf8(scene.setup_.view));
    scene.EditModule(round == 0 ? 10 : 0);
    if (round > 0 && scene.edits_.Roll(3) == 0) scene.ChangeView();

    const auto messages = scene.Expect();
    const ImportRun run = scene.setup_.Import();
    EXPECT_TRUE(run.completed);
    EXPECT_EQ(run.messages, messages);
    EXPECT_FALSE(run.HasLine(u"ERROR"));
    ExpectPackage(ReadPackage(scene.setup_, kFields), scene.expected_);

    const ImportRun again = scene.setup_.Import();
    EXPECT_TRUE(again.completed);
    EXPECT_EQ(again.writes, 0);
    EXPECT_TRUE(again.messages.empty());
  }
}

TEST_P(RandomModule, IsMirroredWhateverUsersDoToTheModelMeanwhile) {
  ForEachSeed([](unsigned seed) {
    RandomScene scene(seed);
    testing::HandEdits hands(scene.setup_, scene.edits_);
    for (int round = 0; round < 4 && !HasFailure(); ++round) {
      SCOPED_TRACE("seed " + std::to_string(seed) + ", round " + std::to_string(round));
      scene.EditModule(round == 0 ? 8 : 0);
      if (round > 0) hands.Edit(1 + scene.edits_.Roll(4));
      scene.Expect();
      const auto present = hands.Present();
      std::erase_if(scene.expected_, [&](const auto& element) {
        return element.second.in_trash && !present.contains(element.first);
      });
      ImportRun run = scene.setup_.Import();
      for (int mends = 0; !run.completed && mends < 8; ++mends) {
        ASSERT_EQ(run.messages.size(), 1u);
        hands.MendAsTold(run.messages[0]);
        if (HasFatalFailure()) return;
        run = scene.setup_.Import();
      }
      EXPECT_TRUE(run.completed);
      EXPECT_FALSE(run.HasLine(u"ERROR"));
      hands.DeleteDoubledValues();
      scene.setup_.Import();
      int strays = 0;
      PackageState actual = ReadPackage(scene.setup_, kFields, &strays);
      for (const Text& edited : hands.Edited())  // what was edited and archived since keeps what it was given
        if (const auto found = scene.expected_.find(edited);
            found != scene.expected_.end() && found->second.in_trash)
          actual[edited].values = found->second.values;
      ExpectPackage(actual, scene.expected_);
      EXPECT_EQ(scene.setup_.Import().writes, 0);
    }
  });
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomModule, ::testing::Range(0u, 10u));

}  // namespace
}  // namespace kestrune
