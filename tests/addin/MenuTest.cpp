// The add-in's menu: what it offers and what its items do.
#include "tests/addin/LinkedPackage.h"

namespace kestrune {
namespace {

using testing::ImportRun;
using testing::LinkedPackage;

struct MenuTest : LinkedPackage {
  Variant Items(const Text& menu) { return add_in.Orim_GetMenuItems(repository, u"TreeView", menu); }
};

TEST_F(MenuTest, OffersWhatTheSelectedPackageAllows) {
  const auto expect = [this](std::int32_t selected, const std::vector<Text>& items) {
    model.SelectPackage(selected);
    EXPECT_EQ(Items(u"-DOORS").ToTextArray(), items);
    EXPECT_EQ(Items(u"").ToText(), u"-DOORS");
  };
  const std::vector<Text> unlinked = {u"&Help", u"&About"};
  expect(package_id, {u"&Import", u"&Options", u"&Locate in DOORS", u"-", u"&Help", u"&About"});
  expect(model.AddPackage(0, u"Other"), unlinked);
  expect(0, unlinked);
  RemoveFile(GetLinkFilePath(platform, Guid()));
  expect(package_id, unlinked);
  EXPECT_TRUE(Messages().empty());
}

TEST_F(MenuTest, AnotherMenuIsNoneOfItsOwn) {
  const Variant items = Items(u"-doors");
  EXPECT_TRUE(items.IsText());
  EXPECT_EQ(items.ToText(), u"");
  const auto messages = desktop.TakeMessages();
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0].Body, u"Invalid Menu");
  EXPECT_EQ(messages[0].Icon, Icon::kStop);
}

TEST_F(MenuTest, HelpNeedsNoPackage) {
  model.SelectPackage(0);
  Click(text::kMenuHelp);
  EXPECT_EQ(desktop.HelpShown(), std::vector<int>{1000});
}

TEST_F(MenuTest, AnItemThatItDoesNotKnowDoesNothing) {
  model.Counters().Reset();
  for (const auto* item : {u"", u"-", u"Import", u"&import", u"&Import "})
    add_in.Orim_MenuClick(repository, u"-DOORS", item);
  EXPECT_EQ(model.Counters().Calls(), 0);
  EXPECT_TRUE(Messages().empty());
}

TEST_F(MenuTest, ExportComparesWithoutALookAtTheLock) {
  module.SetDeleted(2, true);
  for (const bool locked : {false, true}) {
    SetLocked(locked);
    const ImportRun run = Import(text::kMenuExport);
    EXPECT_TRUE(run.completed);
    EXPECT_TRUE(run.messages.empty());
    EXPECT_EQ(run.writes, 0);
    EXPECT_TRUE(run.HasLine(u"R2: New")) << "the element has no object";
    EXPECT_FALSE(run.HasLine(u"R1: New"));
  }
}

TEST_F(MenuTest, WithoutASelectionThereIsNothingToTransfer) {
  model.SelectPackage(0);
  for (const int item : {text::kMenuImport, text::kMenuExport}) {
    const ImportRun run = Import(item);
    EXPECT_FALSE(run.completed);
    EXPECT_EQ(run.messages, std::vector<Text>{u"Module Path not set"});
  }
  Click(text::kMenuOptions);
  Click(text::kMenuLocate);
  EXPECT_TRUE(Messages().empty());
}

// The dialog has asked for the lock already; one that came meanwhile is the host's to refuse.
TEST_F(MenuTest, SaveAndImportBeginsWithoutALookAtTheLock) {
  module.SetDeleted(2, true);
  desktop.UseForm<frmOptions>([&](frmOptions& form) {
    SetLocked(true);
    form.cmdSaveAndImport.Press();
  });
  const ImportRun run = Import(text::kMenuOptions);
  EXPECT_TRUE(run.HasLine(u"Comparing..."));
  EXPECT_FALSE(run.completed);
  ASSERT_EQ(run.messages.size(), 1u);
  EXPECT_NE(run.messages[0].find(u"is locked\r\n(Error Code: "), Text::npos) << ToUtf8(run.messages[0]);
  EXPECT_EQ(run.writes, 0);
}

}  // namespace
}  // namespace kestrune
