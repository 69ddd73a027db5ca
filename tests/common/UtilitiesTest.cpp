#include "common/Utilities.h"
#include "platform/Files.h"
#include "tests/support/TestPlatform.h"

namespace kestrune {
namespace {

using testing::TestPlatform;

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
