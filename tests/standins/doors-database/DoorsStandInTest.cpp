#include "tests/standins/doors-database/SampleDoors.h"

namespace kestrune::standins {
namespace {

class StandInTest : public SampleDoors {};

TEST_F(StandInTest, GivesUnusedTemporaryNames) {
  WriteFile(folder.File(u"DP2"), "");
  EXPECT_EQ(Run(u"string a = tempFileName()\nstring b = tempFileName()\noleSetResult(a \"|\" b)\n"),
            folder.File(u"DP1") + u"|" + folder.File(u"DP3"));
}

TEST_F(StandInTest, DisplayedModulesComeToTheFront) {
  const WindowHandle host = platform.desktop.AddWindow({u"Host"});
  platform.desktop.BringToFront(host);
  Run(u"Module m = read(\"/Inner/Deep\", false)");
  EXPECT_EQ(platform.desktop.Foreground(), host);
  Run(u"Module m = read(\"/Demo/Specs/Car\", true)");
  const WindowHandle window = platform.desktop.Foreground();
  EXPECT_EQ(platform.desktop.ClassOf(window), u"DOORSWindow");
  Run(u"Module m = read(\"/Demo/Specs/Car\", true)\nclose(m, false)");
  EXPECT_NE(platform.desktop.ClassOf(window), u"DOORSWindow");
}

TEST_F(StandInTest, ClosingWhatIsNotSavedAsksOrLosesIt) {
  const Text module = u"Module m = module(item \"/Demo/Specs/Car\")\n";
  doors.UserOpens(u"/Demo/Specs/Car", false);
  EXPECT_EQ(Run(module + u"oleSetResult(isRead(m) \"\" isEdit(m) \"\" unsaved(m) \"\")"), u"truefalsefalse");
  doors.UserEdits(u"/Demo/Specs/Car");
  EXPECT_EQ(Run(module + u"oleSetResult(isRead(m) \"\" isEdit(m) \"\" unsaved(m) \"\")"), u"falsetruetrue");
  EXPECT_EQ(doors.Complaints(), std::vector<Text>());
  EXPECT_EQ(Run(module + u"oleSetResult(close(m) \"\")"), u"false");
  EXPECT_EQ(doors.OpenModules().size(), 1u);
  EXPECT_EQ(Run(module + u"oleSetResult(close(m, false) \"\")"), u"true");
  EXPECT_EQ(doors.OpenModules().size(), 0u);
  EXPECT_EQ(doors.Complaints(), (std::vector<Text>{u"asked whether to save /Demo/Specs/Car",
                                                   u"lost the changes of /Demo/Specs/Car"}));
}

TEST_F(StandInTest, ListsModulesAndViews) {
  EXPECT_EQ(doors.FormalModules(),
            (std::vector<Text>{u"/Inner/Deep", u"/Demo/Specs/Car", u"/Demo/Specs/Secret", u"/Loose/Alone"}));
  EXPECT_EQ(doors.ViewsOf(u"/Inner/Deep"), std::vector<Text>());
  EXPECT_FALSE(doors.ViewsOf(u"/Demo/Specs"));
}

TEST_F(StandInTest, TheCurrentModuleIsThatOfARun) {
  Run(u"Module m = read(\"/Demo/Specs/Car\", true)\n(current ModuleRef__) = m");
  EXPECT_EQ(Run(u"if (null (current Module)) oleSetResult \"none\""), u"none");
}

}  // namespace
}  // namespace kestrune::standins
