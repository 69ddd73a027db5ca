// An export that cannot be deleted has been read all the same.
#include <fcntl.h>
#include <unistd.h>

#include "tests/import/ImportTest.h"

namespace kestrune {
namespace {

struct KeptExportTest : testing::ImportFixture {};

TEST_F(KeptExportTest, IsToldInTheOutputTabAndTheImportGoesOn) {
  StoreRules({u"Object Heading --> Name"});
  const Text file = folder.File(u"kept");
  WriteFile(file,
            "<DoorsModule><Attributes><Attribute Name=\"Object Identifier\" ID=\"1\"/>"
            "<Attribute Name=\"Object Heading\" ID=\"9\"/></Attributes>"
            "<Objects><Object><a1>A</a1><a9>nA</a9></Object></Objects></DoorsModule>");
  const int descriptor = open(ToUtf8(file).c_str(), O_RDONLY);
  const Text undeletable = u"/proc/self/fd/" + ToText(descriptor);
  application->answer_instead = undeletable;
  EXPECT_EQ(Import().back(), u"*** Import Complete ***");
  close(descriptor);
  EXPECT_EQ(Tree(), "[A] nA\nTrash Can\n");
  ASSERT_EQ(model.OutputLines(u"DOORS").size(), 1u);
  EXPECT_EQ(model.OutputLines(u"DOORS")[0].line,
            u"The export file " + undeletable + u" could not be deleted.");
}

}  // namespace
}  // namespace kestrune
