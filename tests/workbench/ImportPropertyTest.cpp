// Whatever becomes of a module, an import brings the package to what a user expects of it, and the next one
// finds nothing to do.
#include "tests/workbench/HandEdits.h"
#include "tests/workbench/RandomScene.h"

namespace kestrune {
namespace {

using testing::ImportRun;
using testing::PackageState;
using testing::RandomScene;

constexpr int kRounds = 36;
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
                 ToUtf8(scene.setup.view));
    scene.EditModule(round == 0 ? 10 : 0);
    if (round > 0 && scene.edits.Roll(3) == 0) scene.ChangeView();
    scene.ImportAndCheck();
  }
}

TEST_P(RandomModule, IsMirroredWhateverUsersDoToTheModelMeanwhile) {
  ForEachSeed([](unsigned seed) {
    RandomScene scene(seed);
    testing::HandEdits hands(scene.setup, scene.edits);
    for (int round = 0; round < 4 && !HasFailure(); ++round) {
      SCOPED_TRACE("seed " + std::to_string(seed) + ", round " + std::to_string(round));
      scene.EditModule(round == 0 ? 8 : 0);
      if (round > 0) hands.Edit(1 + scene.edits.Roll(4));
      scene.Expect();
      const auto present = hands.Present();
      std::erase_if(scene.expected, [&](const auto& element) {
        return element.second.in_trash && !present.contains(element.first);
      });
      ImportRun run = scene.setup.Import();
      for (int mends = 0; !run.completed && mends < 8; ++mends) {
        ASSERT_EQ(run.messages.size(), 1u);
        hands.MendAsTold(run.messages[0]);
        if (HasFatalFailure()) return;
        run = scene.setup.Import();
      }
      EXPECT_TRUE(run.completed);
      EXPECT_FALSE(run.HasLine(u"ERROR"));
      hands.DeleteDoubledValues();
      scene.setup.Import();
      int strays = 0;
      PackageState actual = scene.Read(&strays);
      for (const Text& edited : hands.Edited())  // what was edited and archived since keeps what it was given
        if (const auto found = scene.expected.find(edited);
            found != scene.expected.end() && found->second.in_trash)
          actual[edited].values = found->second.values;
      ExpectPackage(actual, scene.expected);
      EXPECT_EQ(scene.setup.Import().writes, 0);
    }
  });
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomModule, ::testing::Range(0u, 10u));

}  // namespace
}  // namespace kestrune
