#include "platform/Xml.h"
#include "tests/support/TestPlatform.h"

namespace kestrune {
namespace {

using testing::TempFolder;

TEST(XmlTest, WhatIsBuiltAndSavedIsReadBack) {
  TempFolder folder;
  const Text value = u"<&> \"quoted\"\nnext \u00F6 \U0001F682 ";
  XmlDocument built;
  built.AppendRoot(u"Root").AppendElement(u"Child").SetContent(value);
  ASSERT_TRUE(built.Save(folder.File(u"a.xml")));
  XmlDocument read;
  ASSERT_TRUE(read.LoadFile(folder.File(u"a.xml")));
  EXPECT_EQ(read.SelectSingleNode(u"Root/Child").Content(), value);
  EXPECT_FALSE(read.SelectSingleNode(u"Root/Other"));
  EXPECT_FALSE(read.LoadFile(folder.Path())) << "a folder";
  EXPECT_FALSE(read.SelectSingleNode(u"Root")) << "what was read before";
}

}  // namespace
}  // namespace kestrune
