// The callbacks that tell the host what the add-in is.
#include "tests/addin/LinkedPackage.h"

namespace kestrune {
namespace {

using testing::LinkedPackage;

struct CallbacksTest : LinkedPackage {};

TEST_F(CallbacksTest, AHostThatIsTooOldGetsNoFamily) {
  for (const std::int32_t build : {827, 1200, 826, 0}) {
    model.SetLibraryBuild(build);
    EXPECT_EQ(add_in.Orim_Connect(repository), build < 827 ? u"" : u"Plexa") << build;
    const auto messages = desktop.TakeMessages();
    ASSERT_EQ(messages.size(), build < 827 ? 1u : 0u) << build;
    if (build >= 827) continue;
    EXPECT_EQ(messages[0].Body, u"This add-in requires Orim 7.1 build 827 or later.");
    EXPECT_EQ(messages[0].Title, u"Kestrune Link");
    EXPECT_EQ(messages[0].Icon, Icon::kStop);
  }
}

TEST_F(CallbacksTest, ADataFolderThatCannotBeMadeIsToldOnceInACallback) {
  const Text folder = *folders.RoamingAppData() + NativePath(u"\\Brannock Works");
  std::filesystem::remove_all(ToPath(folder));
  WriteFile(folder, "in the way");
  for (int call = 0; call < 2; ++call) {
    EditOptions();
    EXPECT_EQ(Messages(), std::vector<Text>{u"Failed to create data folder"});
  }
}

TEST_F(CallbacksTest, StartingUpLeavesALineInTheOutputTab) {
  const auto& lines = model.OutputLines(u"DOORS");
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_EQ(lines[0].line, u"Kestrune Link Initialized.");
  EXPECT_EQ(lines[0].item_id, -1);
  EXPECT_TRUE(add_in.Orim_OnPostInitialized(repository).IsEmpty());
}

/// Folders of an add-in that lies wherever the test says.
class MovedAddIn : public standins::FixedFolders {
 public:
  MovedAddIn(const Text& root, Text add_in) : standins::FixedFolders(root), add_in_(std::move(add_in)) {}
  Text AddIn() const override { return add_in_; }

 private:
  Text add_in_;
};

TEST_F(CallbacksTest, IconAndHelpLieBesideTheAddInsFile) {
  const struct {
    Text add_in;
    Text icon;
    Text help;
  } cases[] = {
      {u"C:\\Link", u"C:\\Link\\Kestrune.dll#101", u"C:\\Link\\ORIMDOORS.chm"},
      {u"C:\\Link\\", u"C:\\Link\\\\Kestrune.dll#101", u"C:\\Link\\ORIMDOORS.chm"},
      {u"C:\\Link\\Kestrune.dll", u"C:\\Link\\Kestrune.dll#101", u"C:\\Link\\Kestrune.dll\\ORIMDOORS.chm"},
      {u"C:\\Link\\KESTRUNE.DLL", u"C:\\Link\\KESTRUNE.DLL#101", u"C:\\Link\\KESTRUNE.DLL\\ORIMDOORS.chm"},
      {u"C:\\dll", u"C:\\dll\\Kestrune.dll#101", u"C:\\dll\\ORIMDOORS.chm"},
      {u"dll", u"dll\\Kestrune.dll#101", u"dll\\ORIMDOORS.chm"},
  };
  for (const auto& c : cases) {
    const MovedAddIn moved(folder.Path(), c.add_in);
    const Platform its_platform{desktop, moved, platform.objects};
    OrimDoors it(its_platform);
    EXPECT_EQ(it.Plexa_GetProperty(repository, Guid(), u"IconID").ToText(), c.icon);
    EXPECT_EQ(desktop.HelpFile(), c.help);
  }
}

TEST_F(CallbacksTest, PropertiesAreKnownByTheirExactNames) {
  const Variant menus = add_in.Plexa_GetProperty(repository, Guid(), u"HiddenMenus");
  EXPECT_TRUE(menus.IsInt());
  EXPECT_EQ(menus.ToInt(), 7);
  for (const auto* name : {u"hiddenmenus", u"ICONID", u""})
    EXPECT_TRUE(add_in.Plexa_GetProperty(repository, Guid(), name).IsEmpty()) << ToUtf8(name);
}

TEST_F(CallbacksTest, TheConnectedPackagesAreThoseWithALinkFile) {
  EXPECT_EQ(add_in.Plexa_GetConnectedPackages(repository).ToTextArray(), std::vector<Text>{Guid()});
  RemoveFile(GetLinkFilePath(platform, Guid()));
  EXPECT_TRUE(add_in.Plexa_GetConnectedPackages(repository).IsEmpty());
}

TEST_F(CallbacksTest, AfterTheHostHasGoneDoorsIsReachedAfresh) {
  add_in.Orim_Disconnect();
  EXPECT_TRUE(Import().completed);
}

}  // namespace
}  // namespace kestrune
