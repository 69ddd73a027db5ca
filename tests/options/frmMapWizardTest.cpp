#include "options/frmMapWizard.h"
#include "orim/ElementFields.h"
#include "tests/options/PeerLog.h"
#include "tests/options/Rules.h"
#include "tests/support/TestPlatform.h"

namespace kestrune::testing {
namespace {

class MapWizardTest : public ::testing::Test, public TestPlatform {
 protected:
  /// What the wizard answers for an attribute when the user does this.
  Text Run(const Lines& rules, TextView attribute, bool combine, std::function<void(frmMapWizard&)> user) {
    const LinkSettings settings = SettingsOf(rules);
    desktop.OnForm<frmMapWizard>(std::move(user));
    return frmMapWizard(desktop).DoWizard(settings, settings.FindAttribute(attribute), combine);
  }
};

TEST_F(MapWizardTest, BeginsEachPageWithItsControl) {
  PeerLog log;
  const Text rule = Run({u"A", u"B"}, u"A", true, [&](frmMapWizard& form) {
    form.Open(&log);
    form.cmdHelp.Press();
    for (int page = 1; page <= 3; ++page) form.cmdNext.Press();
  });
  EXPECT_EQ(rule, u"A [ B] --> (Tagged Value)");
  EXPECT_EQ(log.focused, Lines({u"lstExtra", u"txtSep", u"lstTarget"}));
  EXPECT_EQ(desktop.HelpShown(), std::vector<int>{6140});
}

TEST_F(MapWizardTest, NeverOffersATaggedValueForTheIdentifier) {
  const Lines rules = {u"A", u"Object Identifier"};
  Run(rules, u"Object Identifier", false, [](frmMapWizard& form) {
    EXPECT_EQ(form.lblPrompt.Caption(),
              u"Object Identifier is always imported as (Tagged Value).  Additionally, you may import this "
              u"attribute as "
              u"one of the following Orim Properties:");
    EXPECT_EQ(form.lstTarget.Items().front(), u"Name");
    form.cmdHelp.Press();
    form.CloseByUser();
  });
  EXPECT_EQ(desktop.HelpShown(), std::vector<int>{6040});
  Run(rules, u"Object Identifier", true, [](frmMapWizard& form) {
    form.cmdNext.Press();
    form.cmdNext.Press();
    EXPECT_NE(form.lblPrompt.Caption().find(u"import the combined attributes as"), Text::npos);
    form.cmdCancel.Press();
  });
}

TEST_F(MapWizardTest, CannotFinishWithoutATarget) {
  Lines rules = {u"Object Identifier"};
  for (const orim::ElementField& field : orim::kElementFields)
    rules.push_back(u"For " + Text(field.Name) + u" --> " + Text(field.Name));
  const Text rule = Run(rules, u"Object Identifier", false, [](frmMapWizard& form) {
    EXPECT_TRUE(form.lstTarget.Items().empty());
    EXPECT_FALSE(form.cmdNext.Enabled());
    form.cmdCancel.Press();
  });
  EXPECT_EQ(rule, u"");
}

}  // namespace
}  // namespace kestrune::testing
