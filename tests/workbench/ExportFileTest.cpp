// The file that the export script writes.
#include "tests/workbench/ScriptBench.h"

namespace kestrune {
namespace {

using testing::DoorsModule;
using testing::ScriptBench;

const std::string kHead =
    "<?xml version='1.0' encoding='UTF-8'?>\r\n<DoorsModule><Attributes>"
    R"(<Attribute Name="Absolute Number" ID="0"/><Attribute Name="Object Identifier" ID="1"/>)"
    R"(<Attribute Name="Object Number" ID="2"/><Attribute Name="Object Level" ID="3"/>)"
    R"(<Attribute Name="Object Text" ID="4"/><Attribute Name="Object Short Text" ID="5"/>)"
    R"(<Attribute Name="Created By" ID="6"/><Attribute Name="Created On" ID="7"/>)"
    R"(<Attribute Name="Last Modified On" ID="8"/><Attribute Name="Object Heading" ID="9"/>)"
    R"-(<Attribute Name="Object Parent" ID="10"/><Attribute Name="Object Text (Formatted)" ID="11"/>)-";
const std::string kOwnAttributes =
    R"(<Attribute Name="Status" ID="12"/>)"
    R"(<Attribute Name="Text with &quot;quotes&quot; &amp; &lt;signs&gt;" ID="13"/>)";
/// Of all that is there and readable.
const std::string kObjects =
    "<Object><a0>1</a0><a1>R1</a1><a2>1</a2><a3>1</a3><a9>Scope</a9><a12>Open</a12></Object>"
    "<Object><a0>2</a0><a1>R2</a1><a2>1-0.1</a2><a3>2</a3><a10>R1</a10><a12>Closed</a12></Object>"
    "<Object><a0>5</a0><a1>R5</a1><a2>1-0.2.1</a2><a3>3</a3><a4>brace { and \\</a4>"
    "<a11>brace \\{ and \\\\</a11><a12>Open</a12></Object>"
    "<Object><a0>6</a0><a1>R6</a1><a2>0.1</a2><a3>1</a3><a12>\u00E4 \U0001F600</a12></Object>"
    "<Object><a0>7</a0><a1>R7</a1><a2>0.1.1</a2><a3>2</a3><a10>R6</a10></Object>"
    "<Object><a0>8</a0><a1>R8</a1><a2>0.1.1.1</a2><a3>3</a3><a10>R7</a10></Object>"
    "<Object><a0>9</a0><a1>R9</a1><a2>0.1.1.1.1</a2><a3>4</a3><a10>R8</a10><a12>Open</a12></Object>";

struct ExportFile : ScriptBench {
  std::string Export(const Text& parameter) { return ReadFile(Answer(dxl_script::kExportModule, parameter)); }
};

TEST_F(ExportFile, HasTheAttributesAndTheObjectsWhateverTheWindowShows) {
  const DoorsModule bare(database, u"Bare");
  EXPECT_EQ(Export(bare.Path() + u"~0~~"), kHead + "</Attributes><Objects/></DoorsModule>\r\n");
  EXPECT_EQ(Export(u"/P/M~1~~"), kHead + kOwnAttributes + "</Attributes></DoorsModule>\r\n");

  module.Set(6, u"Status", u"\u00E4 \U0001F600");
  const std::string whole =
      kHead + kOwnAttributes + "</Attributes><Objects>" + kObjects + "</Objects></DoorsModule>\r\n";
  EXPECT_EQ(Export(u"/P/M~0~~"), whole);
  doors.UserOpens(u"/P/M", true, u"Open");
  EXPECT_EQ(Export(u"/P/M~0~~"), whole);
}

/// DOORS keeps every text that a script makes. An object costs its own values: identifier, numbers, texts;
/// its level, its parent's identifier and the names of attributes and elements are there already.
TEST_F(ExportFile, MakesNoTextsBeyondTheValues) {
  DoorsModule large(database, u"Large");
  large.AddAttribute(u"Status");
  const auto texts_made = [&] {
    Answer(dxl_script::kExportModule, u"/P/Large~0~~");
    return doors.Cost().strings;
  };
  large.AddObject(1, 0, 1);
  large.AddObject(2, 1, 1);
  large.Set(2, u"Status", u"Open");
  const auto few = texts_made();
  for (int i = 3; i < 103; ++i) {
    large.AddObject(i, 1, i);
    large.Set(i, u"Status", u"Open");
  }
  EXPECT_EQ((texts_made() - few) / 100.0, 4.0) << "absolute number, identifier, number, Status";
}

}  // namespace
}  // namespace kestrune
