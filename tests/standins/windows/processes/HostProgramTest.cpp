// The whole road on Windows: the registered add-in in the host's process, DOORS in its own, and a user at the
// screen; and what they see when DOORS fails in the middle.
#include "tests/standins/windows/processes/HostRun.h"

namespace kestrune::testing {
namespace {

TEST_F(HostRun, LinksImportsAndUnlinks) {
  EXPECT_EQ(Play(Text(kLink) + kFirstImport + u"tree\n" + kUnlink), "");
  EXPECT_NE(out_.str().find("Requirements/\n  1: Part 1  [1]\n  2: Part 2  [2]\n"), std::string::npos)
      << out_.str();
  EXPECT_EQ(Play(u"click \"&Import\"\n"),
            "script:1: The package \"Requirements\" is not linked to a DOORS module.: click \"&Import\"");
}

TEST_F(HostRun, ADoorsThatDiesIsReportedAndTheNextOneIsUsed) {
  ASSERT_EQ(Play(Text(kLink) + kFirstImport), "");
  const std::size_t elements = Elements();
  for (const char16_t* perm : {u"1", u"7", u"20"}) {
    SCOPED_TRACE(ToUtf8(perm));
    EXPECT_EQ(Play(u"dies \"" + Text(perm) + uR"("
click "&Import"
  form frmImport
  wait
  answer OK "Unexpected error communicating with DOORS..."
  press cmdClose
doors ready
)" + kImport),
              "");
    EXPECT_EQ(Elements(), elements);
  }
  EXPECT_EQ(Play(kUnlink), "");
}

TEST_F(HostRun, ADamagedExportIsReportedAndTheNextOneIsRead) {
  ASSERT_EQ(Play(Text(kLink) + kFirstImport), "");
  const std::size_t elements = Elements();
  EXPECT_EQ(Play(uR"(damages
click "&Import"
  form frmImport
  wait
  answer OK "Unexpected data encountered during import:..."
  answer No "..."
  press cmdClose
)" + Text(kImport) +
                 kUnlink),
            "");
  EXPECT_NE(out_.str().find("Error Parsing XML Result"), std::string::npos) << out_.str();
  EXPECT_EQ(Elements(), elements);
}

}  // namespace
}  // namespace kestrune::testing
