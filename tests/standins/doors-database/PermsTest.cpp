// What the perms answer stands in scripts/, beside the calls; what they refuse stands here.
#include "tests/standins/doors-database/SampleDoors.h"
#include "tests/support/ScriptFiles.h"

namespace kestrune::standins {
namespace {

using kestrune::testing::ScriptFile;

class Perms : public SampleDoors, public ::testing::WithParamInterface<ScriptFile> {};

TEST_P(Perms, AnswerAsDoorsDoes) {
  const auto outcome = doors.RunScript(FromUtf8(GetParam().source), u"", FromUtf8(GetParam().name));
  EXPECT_EQ(ToUtf8(dxl::DoorsReport(outcome.errors)), "");
  EXPECT_EQ(ToUtf8(outcome.output), GetParam().printed);
}

INSTANTIATE_TEST_SUITE_P(Scripts, Perms,
                         ::testing::ValuesIn(kestrune::testing::ScriptFilesOf("standins/doors-database")),
                         [](const auto& info) { return info.param.name; });

struct FaultCase {
  Text script;
  const char* logged;
};

class Faults : public SampleDoors, public ::testing::WithParamInterface<FaultCase> {};

TEST_P(Faults, AreLoggedAndLeaveTheResultAlone) {
  const Text script =
      u"Module m = read(\"/Demo/Specs/Car\", false)\n" + GetParam().script + u"\noleSetResult \"done\"\n";
  EXPECT_EQ(Run(script, u"before"), u"before");
  EXPECT_NE(ToUtf8(doors.Log()).find(GetParam().logged), std::string::npos) << ToUtf8(doors.Log());
}

const FaultCase kFaults[] = {
    {u"string s = (object(4, m)).\"Nothing\" \"\"", "-R-E- DXL: <Line:2> unknown Object attribute (Nothing)"},
    {u"string s = (object(4, m)).\"Owner\" \"\"", "unknown Object attribute (Owner)"},
    {u"string s = (object(11, m)).\"Object Text\" \"\"", "no read access to object C-11"},
    {u"string s = (object(4, m)).\"Cost\"", "only by \"\""},
    {u"int n = (object(4, m)).\"Status\"", "another type"},
    {u"string s = identifier(object(99, m))", "<Line:2> null handle given as argument 1 of (identifier)"},
    {u"m = null\nAttrDef ad\nfor ad in m do { }", "<Line:4> null handle given to a for loop"},
    {u"bool b = exists(module \"\")", "the name of a module is null"},
    {u"Object o = object(4, m)\nclose(m, false)\nstring s = identifier(o)",
     "<Line:4> the module /Demo/Specs/Car is closed"},
    {u"close(m, false)\nclose(m, false)", "is closed"},
    {u"load(view \"Everything\")", "there is no current module"},
    {u"load(m, view \"Open only\")", "is not known"},
    {u"scroll to object(4, m)", "no window"},
    {u"OleAutoObj a = oleCreateAutoObject(\"MSXML2.DOMDocument\")\nOleAutoObj b = a\n"
     u"oleCloseAutoObject(a)\nstring s\noleGet(b, \"xml\", s)",
     "the automation object is closed"},
    {u"Module n\nfor n in database do close(n, false)",
     "<Line:3> modules cannot be opened or closed inside a loop"},
    {u"Item it\nfor it in folder \"/Demo/Specs\" do m = read(\"/Inner/Deep\", false)", "inside a loop"},
    {u"Object o\nfor o in top m do close(m, false)", "<Line:3> the module was closed inside the loop"},
    {u"AttrDef ad\nfor ad in m do close(m, false)", "<Line:3> the module was closed inside the loop"},
    {u"close(m, true)", "saving a module is not supported"},
    {u"bool b = item \"/\" == item \"/\"", "== of type Item is not supported here"},
    {u"Object o = null\nbool b = o == m", "-E- DXL: <Line:3> incorrect arguments for (==)"},
    {u"if ((object(4, m)).\"Cost\" == \"x\") print \"y\"", "-E- DXL: <Line:2> incorrect arguments for (==)"},
    {u"int i\nfor i in entire m do print i", "-E- DXL: <Line:3> incorrect arguments for (for)"},
    {u"string name = \"\"\nAttrDef ad\nfor ad in m do print ad.name", "variable (name) hides the property"},
    {u"AttrDef ad = null\nprint ad.nothing", "-E- DXL: <Line:3> undeclared variable (nothing)"},
    {u"AttrDef ad = null\nprint ad.size", "-E- DXL: <Line:3> the property size is not supported here"},
    {u"Item it\nfor it in database do {\n}", "-E- DXL: <Line:3>"},
    {u"bool b = exists(view \"Everything\")", "-E- DXL: <Line:2>"},
    {u"Module n = edit(\"/Inner/Deep\", false)", "-E- DXL: <Line:2>"},
    {u"string s = \"x\" (object(4, m)).\"Cost\"", "-E- DXL: <Line:2>"}};

INSTANTIATE_TEST_SUITE_P(Scripts, Faults, ::testing::ValuesIn(kFaults));

}  // namespace
}  // namespace kestrune::standins
