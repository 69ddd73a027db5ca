// Linking and unlinking a package by the host's own commands.
#include "tests/addin/LinkedPackage.h"

namespace kestrune {
namespace {

using testing::DoorsModule;
using testing::LinkedPackage;

struct ConnectTest : LinkedPackage {
  std::int32_t Connect() { return add_in.Plexa_Connect(repository, package_id, Guid()); }
  bool Disconnect(Answer answer = Answer::kYes) {
    desktop.answer_to_questions = answer;
    return add_in.Plexa_Disconnect(repository, Guid());
  }
  Text ModulePath() const { return GetLinkModulePath(platform, Guid()); }

  DoorsModule other{database, u"Other"};
};

const Text kSure = u"Are you sure you wish to disconnect?";

TEST_F(ConnectTest, LinksAnewAndForgetsTheOldOptions) {
  EXPECT_TRUE(HasRecord());
  Link(other.Path());
  EXPECT_EQ(ModulePath(), u"/P/Other");
  EXPECT_FALSE(HasRecord());
}

TEST_F(ConnectTest, GivingUpChangesNothing) {
  const auto give_up = [this](const char* how, const std::vector<Text>& messages = {}) {
    model.Counters().Reset();
    EXPECT_EQ(Connect(), 0) << how;
    EXPECT_EQ(Messages(), messages) << how;
    EXPECT_EQ(model.Counters().Writes(), 0) << how;
    EXPECT_EQ(ModulePath(), u"/P/M") << how;
    EXPECT_TRUE(HasRecord()) << how;
  };
  desktop.UseForm<frmConnect>([](frmConnect& form) { form.cmdCancel.Press(); });
  give_up("cancelled");
  SetLocked(true);
  give_up("locked", {testing::kLockedMessage});
  SetLocked(false);
  doors.SetPhase(standins::DoorsPhase::kNotRunning);
  give_up("DOORS not running");
}

TEST_F(ConnectTest, ALinkFileThatCannotBeWrittenIsNoLink) {
  const Text path = GetLinkFilePath(platform, Guid());
  RemoveFile(path);
  std::filesystem::create_directory(ToPath(path));
  desktop.entry = u"/P/M";
  desktop.UseForm<frmConnect>([](frmConnect& form) { form.cmdManual.Press(); });
  EXPECT_EQ(Connect(), 0);
  EXPECT_FALSE(HasLinkFile());
  EXPECT_FALSE(HasRecord()) << "the options belong to the old link";
}

TEST_F(ConnectTest, DisconnectingTakesLinkAndOptionsAndLeavesTheElements) {
  const auto before = ReadPackage(*this, {});
  ASSERT_EQ(before.size(), 2u);
  for (const bool has_link_file : {true, false}) {
    if (!has_link_file) {
      Link(other.Path());
      EditOptions();
      RemoveFile(GetLinkFilePath(platform, Guid()));
    }
    ASSERT_TRUE(HasRecord());
    Messages();
    const std::size_t refreshed = model.RefreshedPackages().size();
    EXPECT_TRUE(Disconnect());
    EXPECT_EQ(Messages(), std::vector<Text>{kSure});
    EXPECT_FALSE(HasLinkFile());
    EXPECT_FALSE(HasRecord());
    EXPECT_EQ(model.RefreshedPackages().size(), refreshed + 1);
    ExpectPackage(ReadPackage(*this, {}), before);
  }
}

TEST_F(ConnectTest, DisconnectingNeedsAYesAndAnUnlockedPackage) {
  for (const bool says_yes : {false, true}) {
    SetLocked(says_yes);
    model.Counters().Reset();
    const auto refreshed = model.RefreshedPackages();
    EXPECT_FALSE(Disconnect(says_yes ? Answer::kYes : Answer::kNo));
    std::vector<Text> messages{kSure};
    if (says_yes) messages.push_back(testing::kLockedMessage);
    EXPECT_EQ(Messages(), messages);
    EXPECT_TRUE(HasLinkFile() && HasRecord());
    EXPECT_EQ(model.Counters().Writes(), 0);
    EXPECT_EQ(model.RefreshedPackages(), refreshed);
  }
}

}  // namespace
}  // namespace kestrune
