#include "tests/doors-standin/SampleDoors.h"

namespace kestrune::workbench {
namespace {

struct PermCase {
  const char* name;
  Text script;  // its "out" becomes the result
  Text out;
};

class Perms : public SampleDoors, public ::testing::WithParamInterface<PermCase> {};

TEST_P(Perms, AnswerAsDoorsDoes) {
  const Text script =
      u"Buffer out = create\nModule m = read(\"/Demo/Specs/Car\", true)\nObject o = null\nItem it = null\n" +
      GetParam().script + u"\noleSetResult(stringOf out)\n";
  const Text out = Run(script, u"(nothing)");
  EXPECT_EQ(out, GetParam().out) << ToUtf8(out) << "\n" << ToUtf8(doors.Log());
}

/// A loop over objects that lists their numbers.
Text Numbers(TextView collection) {
  return Text(u"for o in ").append(collection).append(u" do {\nout += identifier(o) \" \"\n}\n");
}

const Text kCurrent = u"(current ModuleRef__) = m\n";

INSTANTIATE_TEST_SUITE_P(
    Items, Perms,
    ::testing::Values(
        PermCase{"ItemFacts",
                 u"it = item(\"/Demo/Specs/Car\")\nout += type(it) \" \" name(it) \" \" path(it) \" \" "
                 u"fullName(it) \" \" "
                 u"description(it)",
                 u"Formal Car /Demo/Specs /Demo/Specs/Car a car"},
        PermCase{"RootIsAFolder", u"out += type(item \"/\") \" \"\nout += fullName(folder \"/\")",
                 u"Folder /"},
        PermCase{
            "MissingAndUnreadableItemsAreNull",
            u"if (null item(\"/Demo/No\")) out += \"a\"\nif (null item(\"/Demo/Specs/Secret\")) out += "
            u"\"b\"\n"
            u"if (null folder(\"/Demo/Specs/Car\")) out += \"c\"\nif (null project(\"/Loose\")) out += \"d\"",
            u"abcd"},
        PermCase{"FolderHoldsDirectUndeletedReadable",
                 u"for it in folder(\"/Demo/Specs\") do {\nout += name(it) \" \"\n}\n"
                 u"for it in all folder(\"/Demo/Specs\") do {\nout += name(it) \";\"\n}",
                 u"Car Car;Old;"},
        PermCase{"ProjectHoldsEverythingBelow",
                 u"Project p = project(\"/Demo\")\nfor it in p do {\nout += name(it) \" \"\n}",
                 u"Inner Deep Links Specs Car "},
        PermCase{
            "DatabaseLoops",
            u"Project p = null\nfor p in database do {\nout += fullName(p) \" \"\n}\nstring s\n"
            u"for s in database do {\nout += s \" \"\n}\nModule n = null\nfor n in database do {\nout += "
            u"fullName(n) \" \"\n}",
            u"/Demo /Inner Demo Inner /Demo/Specs/Car "},
        PermCase{"NestedProjectsBeginPaths",
                 u"out += fullName(item \"/Demo/Inner/Deep\") \" \"\nout += name(item \"/Inner/Deep\")",
                 u"/Inner/Deep Deep"},
        PermCase{"IdsLast", u"string id = uniqueID(item \"/Loose\")\nout += name(itemFromID id)", u"Loose"}),
    [](const auto& info) { return std::string(info.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Modules, Perms,
    ::testing::Values(
        PermCase{"ExistsAndOpen",
                 u"if (exists module \"/Demo/Specs/Car\") out += \"a\"\n"
                 u"if (!exists module \"/Demo/Specs/Old\") out += \"b\"\nif (!exists module \"/Demo/Specs\") "
                 u"out += "
                 u"\"c\"\nif (open(module \"/Demo/Specs/Car\")) out += \"d\"\nif (!open(module "
                 u"\"/Inner/Deep\")) out += "
                 u"\"e\"\nif (isDeleted(module \"/Demo/Specs/Old\")) out += \"f\"",
                 u"abcdef"},
        PermCase{"OpenModuleOfAnItem",
                 u"if (m == module(item \"/Demo/Specs/Car\")) out += \"a\"\n"
                 u"if (null module(item \"/Inner/Deep\")) out += \"b\"",
                 u"ab"},
        PermCase{"ReadFailsWithNullUnderNoError",
                 u"noError()\nModule n = read(\"/Demo/Nothing\", false)\nstring e = lastError()\n"
                 u"if (null n) out += \"null \"\nout += e",
                 u"null the module /Demo/Nothing cannot be opened"},
        PermCase{"HiddenStaysHidden",
                 u"Module n = read(\"/Inner/Deep\", false)\nout += isVisible(n) \" \"\nn = "
                 u"read(\"/Inner/Deep\", true)\n"
                 u"out += isVisible(n) \" \"\nout += isVisible(m) \"\"",
                 u"false false true"},
        PermCase{"CloseEndsIt",
                 u"Module n = read(\"/Inner/Deep\", false)\nout += close(n, false) \" \"\n"
                 u"out += open(module \"/Inner/Deep\") \"\"",
                 u"true false"},
        PermCase{"NothingIsCurrentAtFirst",
                 u"if (null (current Module)) out += \"null \"\n" + kCurrent + u"out += name(current Module)",
                 u"null Car"},
        PermCase{"ModuleFacts",
                 u"out += type(m) \" \" name(m) \" \" fullName(m) \" \" path(m) \" \" description(m) \" \"\n"
                 u"out += m.\"Owner\" \" \"\nout += isRead(m) \" \"\nout += isEdit(m) \"\"",
                 u"Formal Car /Demo/Specs/Car /Demo/Specs a car me true false"}),
    [](const auto& info) { return std::string(info.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Objects, Perms,
    ::testing::Values(
        PermCase{"EntireIsEverything", Numbers(u"entire m"),
                 u"C-1 C-2 C-3 C-4 C-5 C-6 C-7 C-8 C-9 C-10 C-11 "},
        PermCase{
            "Facts",
            u"o = object(5, m)\nout += identifier(o) \" \"\nout += level(o) \" \"\nout += number(o) \" \"\n"
            u"out += identifier(parent o) \" \"\nif (null object(99, m)) out += \"null\"",
            u"C-5 3 1.1-0.1 C-4 null"},
        PermCase{"OutlineNumbers", u"for o in entire m do {\nout += number(o) \" \"\n}",
                 u"1 1-0.1  1.1 1.1-0.1 2 2-0.1 2-0.1.1 2-0.1.1.1 2-0.1.1.2 0.1 "},
        PermCase{"DeletedAndUnreadable",
                 u"out += isDeleted(object(3, m)) \" \"\nout += isDeleted(object(2, m)) \" \"\n"
                 u"out += canRead(object(11, m)) \" \"\nout += canRead(object(2, m)) \"\"",
                 u"true false false true"},
        PermCase{"TableParts",
                 u"for o in entire m do {\nif (table(o)) out += \"t\"\nif (row(o)) out += \"r\"\n"
                 u"if (cell(o)) out += \"c\"\nif (!isVisible(o)) out += identifier(o) \" \"\n}",
                 u"C-3 tC-7 rC-8 cc"},
        PermCase{"TopLevelAndChildren",
                 u"for o in top m do {\nout += identifier(o) \" \"\n}\nObject c = null\n"
                 u"for c in object(1, m) do {\nout += identifier(c) \";\"\n}",
                 u"C-1 C-6 C-11 C-2;C-3;C-4;"},
        PermCase{"Neighbours",
                 u"o = object(4, m)\nout += identifier(first o) identifier(last o) identifier(next o) \"\"\n"
                 u"out += identifier(previous o)\nif (null first(object(5, m))) out += \" leaf\"",
                 u"C-5C-5C-5C-3 leaf"},
        PermCase{"CurrentObject",
                 kCurrent + u"(current ObjectRef__) = object(5, m)\nscroll to object(5, m)\n"
                            u"out += identifier(current Object)",
                 u"C-5"},
        PermCase{"SameObjectIsEqual", u"if (object(4, m) == parent(object(5, m))) out += \"same\"", u"same"}),
    [](const auto& info) { return std::string(info.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Views, Perms,
    ::testing::Values(
        PermCase{"AreListedWithoutTheStandardView", u"string v\nfor v in views m do {\nout += v \";\"\n}",
                 u"Open only;Everything;Broken;Odd;Two;"},
        PermCase{"LoadTellsWhetherItWorked",
                 u"out += load(m, view \"Everything\") \" \"\nout += load(m, view \"Unknown\") \" \"\n"
                 u"out += load(m, view \"Broken\") \" \"\nout += load(m, view \"Odd\") \" \"\nout += "
                 u"currentView(m)",
                 u"true false false false Everything"},
        PermCase{"FilterNarrowsTheDisplay",
                 u"load(m, view \"Open only\")\n" + Numbers(u"m") + u"out += \"| \"\n" + Numbers(u"all m") +
                     u"out += \"| \"\n" + Numbers(u"document m"),
                 u"C-2 C-5 C-9 C-10 | C-2 C-5 C-7 C-8 C-9 C-10 | C-2 C-5 C-7 "},
        PermCase{"AllConditionsMustHold", u"load(m, view \"Two\")\n" + Numbers(u"all m"), u"C-1 "},
        PermCase{"EntireIgnoresTheFilter",
                 u"load(m, view \"Two\")\nint n = 0\nfor o in entire m do {\nn++\n}\nout += n \"\"", u"11"},
        PermCase{"ParentMayBeHidden",
                 u"load(m, view \"Open only\")\nout += isVisible(parent(object(5, m))) \" \"\n"
                 u"out += isVisible(object(5, m)) \" \"\nout += isFiltered(object(4, m)) \"\"",
                 u"false true false"},
        PermCase{
            "StandardViewShowsAllAgain",
            u"load(m, view \"Open only\")\nload(m, view \"Standard view\")\nout += filtering(m) \" \"\n" +
                Numbers(u"m"),
            u"false C-1 C-2 C-4 C-5 C-6 C-9 C-10 C-11 "},
        PermCase{"ReadLeavesTheViewUnlessTold",
                 u"load(m, view \"Open only\")\nm = read(\"/Demo/Specs/Car\", true, false)\n"
                 u"out += currentView(m) \" \"\nm = read(\"/Demo/Specs/Car\", true, true)\n"
                 u"out += currentView(m)",
                 u"Open only Standard view"},
        PermCase{"FilterAndDeletedCanBeSwitched",
                 kCurrent + u"load(view \"Open only\")\nfiltering(false)\nshowDeletedObjects(true)\n" +
                     Numbers(u"m") + u"out += number(object(3, m))",
                 u"C-1 C-2 C-3 C-4 C-5 C-6 C-9 C-10 C-11 1-0.2"},
        PermCase{"GotoObjectThrowsTheViewAway",
                 u"load(m, view \"Open only\")\no = gotoObject(4, m)\nout += identifier(o) \" \"\nout += "
                 u"currentView(m)",
                 u"C-4 Standard view"}),
    [](const auto& info) { return std::string(info.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Attributes, Perms,
    ::testing::Values(
        PermCase{
            "DefinitionsInOrder",
            u"AttrDef ad = null\nfor ad in m do {\nif (ad.object && !ad.system) out += ad.name \":\" "
            u"ad.typeName \" \"\n"
            u"if (ad.module && !ad.system) out += \"(\" ad.name \") \"\nif (ad.multi) out += \"multi \"\n}",
            u"Status:State multi Cost:Integer (Cost) Done:Boolean (Owner) "},
        PermCase{"NamesOfObjectAttributes",
                 u"string s\nint n = 0\nfor s in m do {\nn++\nif (s == \"Owner\") out += \"wrong\"\n}\nout "
                 u"+= n \"\"",
                 u"12"},
        PermCase{"Find",
                 u"AttrDef ad = find(m, \"Object Text\")\nout += ad.system \" \"\nif (null find(m, "
                 u"\"Nothing\")) out += "
                 u"\"null \"\n" +
                     kCurrent +
                     u"out += exists(attribute \"Status\") \" \"\n"
                     u"if (!exists attribute \"Nothing\") out += \"no \"\nif (!ad.dxl) out += \"no dxl\"",
                 u"true null true no no dxl"},
        PermCase{"ValuesOfAllTypesBecomeText",
                 u"o = object(4, m)\nout += o.\"Cost\" \" \"\nout += o.\"Done\" \" \"\nout += o.\"Absolute "
                 u"Number\" \" \"\n"
                 u"string a = \"Status\"\nout += o.a \"\"",
                 u"12 True 4 Closed"},
        PermCase{"NumbersAndTextsCanBeAssigned",
                 u"o = object(4, m)\nint n = o.\"Cost\"\nbool b = o.\"Done\"\nstring s = o.\"Status\"\nreal "
                 u"r = o.\"Cost\"\n"
                 u"if (n == 12 && b && s == \"Closed\" && r == 12.0) out += \"yes\"",
                 u"yes"},
        PermCase{"UnknownNameIsEmptyUnderNoError",
                 u"noError()\nstring s = object(4, m).\"Nothing\" \"\"\nstring e = lastError()\n"
                 u"out += \"[\" s \"] \" e",
                 u"[] unknown Object attribute (Nothing)"},
        PermCase{"RichText",
                 u"string s = richText((object(5, m)).\"Object Text\")\nout += s \" \"\n"
                 u"s = richText((object(2, m)).\"Object Text\")\nout += s",
                 u"{\\b bold} a \\{b\\}"},
        PermCase{"SpecificValues",
                 u"AttrDef ad = find(m, \"Status\")\nout += hasSpecificValue(object(4, m), ad) \" \"\n"
                 u"out += hasSpecificValue(object(1, m), ad) \"\"",
                 u"true false"}),
    [](const auto& info) { return std::string(info.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Automation, Perms,
    ::testing::Values(
        PermCase{"BuildsADocument",
                 u"OleAutoObj doc = oleCreateAutoObject(\"MSXML2.DOMDocument\")\nOleAutoObj root = null\n"
                 u"OleAutoObj used = null\nOleAutoArgs args = create\nput(args, \"Root\")\n"
                 u"string e = oleMethod(doc, \"createElement\", args, root)\nout += "
                 u"e\nclear(args)\nput(args, root)\n"
                 u"oleMethod(doc, \"appendChild\", args, used)\noleCloseAutoObject(used)\n"
                 u"if (null used) out += \"closed \"\nclear(args)\nput(args, \"Name\")\nput(args, 7)\n"
                 u"oleMethod(root, \"setAttribute\", args)\nolePut(root, \"text\", \"x < y\")\nstring xml\n"
                 u"oleGet(doc, \"xml\", xml)\nout += xml",
                 u"closed <Root Name=\"7\">x &lt; y</Root>\r\n"},
        PermCase{"FailuresAreMessages",
                 u"OleAutoObj doc = oleCreateAutoObject(\"MSXML2.DOMDocument\")\nOleAutoArgs args = create\n"
                 u"put(args, \"1\")\nOleAutoObj x = null\nout += oleMethod(doc, \"createElement\", args, x) "
                 u"\"\\n\"\n"
                 u"string s\nout += oleGet(doc, \"colour\", s) \"\\n\"\nclear(args)\nput(args, \"name\", "
                 u"\"value\")\n"
                 u"out += oleMethod(doc, \"save\", args)",
                 u"Method 'createElement' failed: MSXML2.DOMDocument.createElement: \"1\" is no XML name\n"
                 u"Property 'colour' failed: MSXML2.DOMDocument.colour: there is no such member\n"
                 u"Method 'save' failed: named arguments are not supported by the object"},
        PermCase{"EmptyResultIsAMessageThoughItWorked",
                 u"OleAutoObj doc = oleCreateAutoObject(\"MSXML2.DOMDocument\")\nOleAutoObj r = null\n"
                 u"OleAutoArgs args = create\nput(args, \"r\")\noleMethod(doc, \"createElement\", args, r)\n"
                 u"clear(args)\nput(args, \"a\")\nput(args, \"b\")\nstring s = \"\"\n"
                 u"out += oleMethod(r, \"setAttribute\", args, s)\noleGet(r, \"xml\", s)\nout += s",
                 u"Method 'setAttribute' gave no value<r a=\"b\"/>"},
        PermCase{"UnknownClassIsNull",
                 u"if (null oleCreateAutoObject(\"No.Such\")) out += \"null\"\n"
                 u"if (null oleGetAutoObject(\"MSXML2.DOMDocument\")) out += \" none\"",
                 u"null none"}),
    [](const auto& info) { return std::string(info.param.name); });

struct FaultCase {
  const char* name;
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

INSTANTIATE_TEST_SUITE_P(
    Scripts, Faults,
    ::testing::Values(
        FaultCase{"UnknownAttribute", u"string s = (object(4, m)).\"Nothing\" \"\"",
                  "-R-E- DXL: <Line:2> unknown Object attribute (Nothing)"},
        FaultCase{"ModuleAttributeOfAnObject", u"string s = (object(4, m)).\"Owner\" \"\"",
                  "unknown Object attribute (Owner)"},
        FaultCase{"NoReadAccess", u"string s = (object(11, m)).\"Object Text\" \"\"",
                  "no read access to object C-11"},
        FaultCase{"NumberToString", u"string s = (object(4, m)).\"Cost\"", "only by \"\""},
        FaultCase{"TextToNumber", u"int n = (object(4, m)).\"Status\"", "another type"},
        FaultCase{"NullObject", u"string s = identifier(object(99, m))", "null"},
        FaultCase{"NullModuleName", u"bool b = exists(module \"\")", "the name of a module is null"},
        FaultCase{"UseAfterClose", u"Object o = object(4, m)\nclose(m, false)\nstring s = identifier(o)",
                  "<Line:4> the module /Demo/Specs/Car is closed"},
        FaultCase{"ClosedTwice", u"close(m, false)\nclose(m, false)", "is closed"},
        FaultCase{"NoCurrentModule", u"load(view \"Everything\")", "there is no current module"},
        FaultCase{"FilterWithoutWindow", u"load(m, view \"Open only\")", "is not known"},
        FaultCase{"ScrollWithoutWindow", u"scroll to object(4, m)", "no window"},
        FaultCase{"OleObjectUsedAfterClosing",
                  u"OleAutoObj a = oleCreateAutoObject(\"MSXML2.DOMDocument\")\nOleAutoObj b = a\n"
                  u"oleCloseAutoObject(a)\nstring s\noleGet(b, \"xml\", s)",
                  "the automation object is closed"},
        FaultCase{"ItemsOfTheDatabase", u"Item it\nfor it in database do {\n}", "-E- DXL: <Line:3>"},
        FaultCase{"ExistsView", u"bool b = exists(view \"Everything\")", "-E- DXL: <Line:2>"},
        FaultCase{"EditIsNotThere", u"Module n = edit(\"/Inner/Deep\", false)", "-E- DXL: <Line:2>"},
        FaultCase{"ChainWithoutStringAtTheEnd", u"string s = \"x\" (object(4, m)).\"Cost\"",
                  "-E- DXL: <Line:2>"}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace kestrune::workbench
