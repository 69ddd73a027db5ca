#include "common/LinkFile.h"
#include "common/Utilities.h"
#include "platform/Files.h"
#include "tests/support/TestPlatform.h"

namespace kestrune {
namespace {

using testing::TestPlatform;

constexpr const char16_t* kGuid = u"{1234-ABCD}";

class NoFolders : public Folders {
  std::optional<Text> RoamingAppData() const override { return std::nullopt; }
  Text Temp() const override { return u""; }
  Text AddIn() const override { return u""; }
};

TEST(DataFolderTest, IsMadeOnDemandAndEndsInASeparator) {
  TestPlatform test;
  const Text folder = GetDataFolder(test.platform);
  EXPECT_TRUE(IsFolder(folder));
  EXPECT_TRUE(folder.ends_with(NativePath(u"\\Brannock Works\\PlexaDOORS\\")));
  EXPECT_EQ(GetDataFolder(test.platform), folder);
}

TEST(DataFolderTest, OneThatCannotBeMadeIsToldAndReturnedAllTheSame) {
  TestPlatform test;
  WriteFile(*test.folders.RoamingAppData() + NativePath(u"\\Brannock Works"), "in the way");
  test.desktop.OnMessage(u"Failed to create data folder");
  EXPECT_TRUE(GetDataFolder(test.platform).ends_with(NativePath(u"PlexaDOORS\\")));
}

TEST(DataFolderTest, APlatformThatKnowsNoSuchFolder) {
  TestPlatform test;
  const NoFolders none;
  const Platform platform{test.desktop, none, test.objects};
  EXPECT_EQ(GetDataFolder(platform), u"");
  EXPECT_TRUE(GetConnectedPackages(platform).IsEmpty());
  EXPECT_EQ(GetLinkFilePath(platform, kGuid), u"");
  EXPECT_FALSE(SaveLinkFile(platform, kGuid, u"/P/M"));
}

TEST(LinkFileTest, GivesBackTheModulePathAsItWasGiven) {
  TestPlatform test;
  for (const char16_t* path : {u"/P/Module", u"/P/A~B & <C>", u"/Prüf/größer"}) {
    ASSERT_TRUE(SaveLinkFile(test.platform, kGuid, path));
    EXPECT_EQ(GetLinkModulePath(test.platform, kGuid), path);
  }
}

TEST(LinkFileTest, OneThatCannotBeReadIsNoLink) {
  TestPlatform test;
  EXPECT_EQ(GetLinkModulePath(test.platform, kGuid), u"");
  for (const char* content :
       {"", "<DoorsConnection/>", "<Other><ModelPath>x</ModelPath></Other>", "no XML"}) {
    WriteFile(GetLinkFilePath(test.platform, kGuid), content);
    EXPECT_EQ(GetLinkModulePath(test.platform, kGuid), u"") << content;
  }
  EXPECT_FALSE(SaveLinkFile(test.platform, u"no/such/folder", u"/P/M"));
}

TEST(LinkFileTest, ConnectedPackagesAreNamedByTheirFiles) {
  TestPlatform test;
  EXPECT_TRUE(GetConnectedPackages(test.platform).IsEmpty());
  for (const char16_t* name : {u"{A}.xml", u"{B}.XML", u"{C}.xml.bak", u"readme.txt"})
    WriteFile(GetDataFolder(test.platform) + name, "");
  auto guids = GetConnectedPackages(test.platform).ToTextArray();
  std::sort(guids.begin(), guids.end());
  EXPECT_EQ(guids, (std::vector<Text>{u"{A}", u"{B}", u"{C}"}));
}

TEST(CleanExportFileTest, DropsWhatNoParserAcceptsAndNothingElse) {
  TestPlatform test;
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  std::string kept = "\t\n\r";
  for (int byte = 32; byte < 256; ++byte) kept += static_cast<char>(byte);
  const Text path = test.folder.File(u"export");
  WriteFile(path, all);
  const Text copy = CleanExportFile(test.platform, path);
  EXPECT_EQ(copy, test.folders.Temp() + u"plexadoors.tmp");
  EXPECT_EQ(ReadFile(copy), kept);
  EXPECT_EQ(ReadFile(path), all);
  WriteFile(path, "second");
  EXPECT_EQ(ReadFile(CleanExportFile(test.platform, path)), "second");
  EXPECT_THROW(CleanExportFile(test.platform, test.folder.File(u"none")), AutomationError);
}

TEST(RichTextTest, IsKnownByItsFirstSixCharacters) {
  EXPECT_TRUE(IsRtf(u"{\\rtf1\\ansi x}"));
  for (const char16_t* text : {u"", u"{\\rtf", u"{\\rtf2}", u" {\\rtf1}", u"{\\RTF1}", u"{\\b bold}"})
    EXPECT_FALSE(IsRtf(text)) << ToUtf8(text);
}

struct AnyForm : Form {
  Label lblOne{this, u"lblOne"};
  Button cmdTwo{this, u"cmdTwo"};
};

TEST(StandardFontTest, OnlyATranslatedTableChangesTheFont) {
  AnyForm form;
  ApplyStandardFont(form);
  EXPECT_EQ(form.FontName, u"");
  EXPECT_EQ(form.lblOne.FontCharset, 0);
  ApplyFont(form, u"MS UI Gothic");
  EXPECT_EQ(form.FontName, u"MS UI Gothic");
  EXPECT_EQ(form.cmdTwo.FontName, u"MS UI Gothic");
  EXPECT_EQ(form.cmdTwo.FontCharset, 128);
}

}  // namespace
}  // namespace kestrune
