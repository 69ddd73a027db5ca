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

TEST_F(ConnectTest, TakesAModuleThatIsTypedIn) {
  desktop.entry = u"/Not/Listed";
  desktop.UseForm<frmConnect>([](frmConnect& form) { form.cmdManual.Press(); });
  EXPECT_EQ(Connect(), -1);
  EXPECT_EQ(ModulePath(), u"/Not/Listed");
}

TEST_F(ConnectTest, GivingUpChangesNothing) {
  const struct {
    const char* name;
    std::function<void()> prepare;
    std::vector<Text> messages;
  } cases[] = {
      {"cancelled",
       [&] { desktop.UseForm<frmConnect>([](frmConnect& form) { form.cmdCancel.Press(); }); },
       {}},
      {"closed", [&] { desktop.UseForm<frmConnect>([](frmConnect& form) { form.CloseByUser(); }); }, {}},
      {"locked", [&] { SetLocked(true); }, {testing::kLockedMessage}},
      {"DOORS not running",
       [&] {
         SetLocked(false);
         doors.SetState(workbench::DoorsState::kNotRunning);
       },
       {}},
  };
  for (const auto& c : cases) {
    c.prepare();
    model.Counters().Reset();
    EXPECT_EQ(Connect(), 0) << c.name;
    EXPECT_EQ(Messages(), c.messages) << c.name;
    EXPECT_EQ(model.Counters().Writes(), 0) << c.name;
    EXPECT_EQ(ModulePath(), u"/P/M") << c.name;
    EXPECT_TRUE(HasRecord()) << c.name;
  }
}

TEST_F(ConnectTest, AnUnlinkedPackageStaysSoWhenTheListIsCancelled) {
  Disconnect();
  desktop.UseForm<frmConnect>([](frmConnect& form) { form.cmdCancel.Press(); });
  EXPECT_EQ(Connect(), 0);
  EXPECT_FALSE(HasLinkFile());
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
  EXPECT_TRUE(Disconnect());
  EXPECT_EQ(Messages(), std::vector<Text>{kSure});
  EXPECT_FALSE(HasLinkFile());
  EXPECT_FALSE(HasRecord());
  EXPECT_EQ(model.RefreshedPackages().back(), package_id);
  ExpectPackage(ReadPackage(*this, {}), before);
}

TEST_F(ConnectTest, DisconnectingNeedsAYesAndAnUnlockedPackage) {
  const struct {
    Answer answer;
    bool locked;
    std::vector<Text> messages;
  } cases[] = {{Answer::kNo, false, {kSure}},
               {Answer::kNo, true, {kSure}},
               {Answer::kYes, true, {kSure, testing::kLockedMessage}}};
  for (const auto& c : cases) {
    SetLocked(c.locked);
    model.Counters().Reset();
    const auto refreshed = model.RefreshedPackages();
    EXPECT_FALSE(Disconnect(c.answer));
    EXPECT_EQ(Messages(), c.messages);
    EXPECT_TRUE(HasLinkFile());
    EXPECT_TRUE(HasRecord());
    EXPECT_EQ(model.Counters().Writes(), 0);
    EXPECT_EQ(model.RefreshedPackages(), refreshed);
  }
}

TEST_F(ConnectTest, DisconnectingToleratesALinkFileThatIsGone) {
  RemoveFile(GetLinkFilePath(platform, Guid()));
  EXPECT_TRUE(Disconnect());
  EXPECT_FALSE(HasRecord());
}

}  // namespace
}  // namespace kestrune
