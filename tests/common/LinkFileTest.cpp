#include "common/LinkFile.h"
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
  for (int call = 0; call < 2; ++call) {
    const Desktop::Callback callback(test.desktop);
    test.desktop.OnMessage(u"Failed to create data folder");
    GetLinkFilePath(test.platform, kGuid);
    { const Desktop::Callback nested(test.desktop); }
    GetLinkModulePath(test.platform, kGuid);
    test.desktop.ExpectNothingLeft();
  }
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
  for (const char16_t* path :
       {u"/P/Module", u"/P/A~B & <C>", u"/Prüf/größer", u" \"quoted\"\nnext \U0001F682 "}) {
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
  RemoveFile(GetLinkFilePath(test.platform, kGuid));
  std::filesystem::create_directory(ToPath(GetLinkFilePath(test.platform, kGuid)));
  EXPECT_EQ(GetLinkModulePath(test.platform, kGuid), u"") << "a folder";
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

TEST(LinkFileTest, OneThatCannotBeWrittenWholeKeepsTheEarlierOne) {
  TestPlatform test;
  ASSERT_TRUE(SaveLinkFile(test.platform, kGuid, u"/P/Old"));
  const Text path = GetLinkFilePath(test.platform, kGuid);
  const auto in_the_way = ToPath(path).replace_extension(".new");
  std::filesystem::create_directories(in_the_way / "folder");
  EXPECT_FALSE(SaveLinkFile(test.platform, kGuid, u"/P/New"));
  EXPECT_EQ(GetLinkModulePath(test.platform, kGuid), u"/P/Old");
  std::filesystem::remove_all(in_the_way);
  EXPECT_TRUE(SaveLinkFile(test.platform, kGuid, u"/P/New"));
  EXPECT_EQ(GetLinkModulePath(test.platform, kGuid), u"/P/New");
  EXPECT_EQ(ListFolder(GetDataFolder(test.platform)), std::vector<Text>{Text(kGuid) + u".xml"});
}

}  // namespace
}  // namespace kestrune
