// A host that lets go of the add-in while the list of modules is open.
#include "tests/workbench/EndToEnd.h"

namespace kestrune {
namespace {

TEST(LettingGo, TakesNothingFromTheListOfModules) {
  testing::EndToEnd setup;
  const testing::DoorsModule module(setup.database, u"M");
  setup.desktop.UseForm<frmConnect>([&](frmConnect& form) {
    setup.desktop.Tick();
    setup.add_in.Orim_Disconnect();
    const testing::DoorsModule later(setup.database, u"N");
    setup.desktop.Tick();
    EXPECT_EQ(form.lstModules.Items(), (std::vector<Text>{u"/P/M", u"/P/N"}));
    form.cmdOK.Press();
  });
  EXPECT_EQ(setup.add_in.Plexa_Connect(setup.repository, setup.package_id, setup.Guid()), -1);
  EXPECT_TRUE(setup.desktop.TakeMessages().empty());
}

}  // namespace
}  // namespace kestrune
