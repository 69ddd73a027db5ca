// What cannot be done is said in one line, and nothing is written then.
#include "tests/workbench/CommandLine.h"

namespace kestrune {
namespace {

using testing::CommandLine;
using testing::Outcome;
using testing::Words;

Words OnReq(Words words) {
  words.insert(words.end(), {"--model", "@m.orim", "--doors", "@d.doors", "--package", "Req"});
  return words;
}
Words OnLoose(Words words) {
  words.insert(words.end(), {"--model", "@loose.orim", "--doors", "@d.doors", "--package", "Loose"});
  return words;
}
Words With(Words words, const char* model, const char* doors, const char* package) {
  words.insert(words.end(), {"--model", model, "--doors", doors, "--package", package});
  return words;
}

struct BadCommand {
  const char* name;
  Words words;
  const char* says;  // must be in the line
};

/// In the folder: a model "m.orim" with the linked package "Req" and the unlinked one "Loose", a DOORS
/// database "d.doors", files that are neither, and a package whose module is gone.
class BadCommands : public CommandLine, public ::testing::WithParamInterface<BadCommand> {
 protected:
  BadCommands() {
    Do({"doors", "load", Sample("resync-a.reqif"), "--doors", "@d.doors", "--at", "/Demo", "--data",
        "@data"});
    Do({"new", "@m.orim", "--package", "Req", "--data", "@data"});
    Do({"new", "@loose.orim", "--package", "Loose", "--data", "@data"});
    Do({"link", "--module", "/Demo/Specification Document", "--model", "@m.orim", "--doors", "@d.doors",
        "--package", "Req", "--data", "@data"});
    Do({"options", "--model", "@m.orim", "--doors", "@d.doors", "--package", "Req", "--data", "@data"});
    WriteFile(folder.File(u"text"), "no model, no database, no requirements");
    WriteFile(folder.File(u"empty"), "");
    WriteFile(folder.File(u"other.xml"), "<other/>");
    WriteFile(folder.File(u"template.txt"), "Orim Studio Mapping Template\n --> Name\n");
    workbench::DoorsDatabase::Create(ToPath(folder.File(u"bare.doors")));
    // The selection is part of the model.
    Run(OnLoose({"import", "--data", "@data"}));
  }
};

TEST_P(BadCommands, EndInOneLineAndWriteNothing) {
  const auto before = Files();
  Words words = GetParam().words;
  if (!words.empty()) words.insert(words.end(), {"--data", "@data"});
  const Outcome outcome = Run(words);
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
  EXPECT_TRUE(outcome.err.ends_with('\n')) << outcome.err;
  EXPECT_NE(outcome.err.find(GetParam().says), std::string::npos) << outcome.err;
  EXPECT_TRUE(Files() == before) << "files have changed";
}

void PrintTo(const BadCommand& command, std::ostream* out) {
  *out << command.name;
}

std::string CaseName(const ::testing::TestParamInfo<BadCommand>& info) {
  return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(Lines, BadCommands,
                         ::testing::Values(BadCommand{"UnknownCommand", {"impart"}, "impart"},
                                           BadCommand{"UnknownOption", OnReq({"import", "--fast"}), "--fast"},
                                           BadCommand{"NoModelNamed", {"tree"}, "--model"},
                                           BadCommand{"NoDoorsNamed", {"doors", "modules"}, "--doors"},
                                           BadCommand{"NoPackageNamed",
                                                      {"import", "--model", "@m.orim", "--doors", "@d.doors"},
                                                      "--package"},
                                           BadCommand{"NoModuleNamed", OnReq({"link"}), "--module"},
                                           BadCommand{"YesAndNo", OnReq({"import", "--yes", "--no"}), "--"}),
                         CaseName);

INSTANTIATE_TEST_SUITE_P(
    Files, BadCommands,
    ::testing::Values(
        BadCommand{"ModelMissing", {"tree", "--model", "@none"}, "@none"},
        BadCommand{"ModelIsText", {"tree", "--model", "@text"}, "@text"},
        BadCommand{"ModelIsEmpty", {"tree", "--model", "@empty"}, "@empty"},
        BadCommand{"ModelIsADoorsDatabase", {"tree", "--model", "@d.doors"}, "@d.doors"},
        BadCommand{"ModelIsAFolder", {"tree", "--model", "@data"}, "@data"},
        BadCommand{"ModelExists", {"new", "@m.orim", "--package", "X"}, "@m.orim"},
        BadCommand{"ModelInNoFolder", {"new", "@none/m.orim", "--package", "X"}, "@none/m.orim"},
        BadCommand{"ModelWithoutAPackage", {"new", "@new.orim", "--package", ""}, "name"},
        BadCommand{"DoorsMissing", {"doors", "modules", "--doors", "@none"}, "@none"},
        BadCommand{"DoorsIsText", {"doors", "modules", "--doors", "@text"}, "@text"},
        BadCommand{"DoorsIsAModel", {"doors", "modules", "--doors", "@m.orim"}, "@m.orim"},
        BadCommand{"ImportWithoutModel", With({"import"}, "@none", "@d.doors", "Req"), "@none"},
        BadCommand{"ImportWithoutDoors", With({"import"}, "@m.orim", "@none", "Req"), "@none"},
        BadCommand{"ScriptMissing", {"dxl", "@none", "--doors", "@d.doors"}, "@none"},
        BadCommand{"LoadOfNoFile", {"doors", "load", "@none", "--doors", "@d.doors"}, "@none"},
        BadCommand{"LoadOfText", {"doors", "load", "@text", "--doors", "@d.doors"}, "@text"},
        BadCommand{"LoadOfOtherXml", {"doors", "load", "@other.xml", "--doors", "@d.doors"}, "@other.xml"},
        BadCommand{"LoadIntoANewFile", {"doors", "load", "@text", "--doors", "@new.doors"}, "@text"},
        BadCommand{"LoadIntoAModel", {"doors", "load", "@text", "--doors", "@m.orim"}, "@m.orim"},
        BadCommand{"TemplateMissing", OnReq({"options", "--template", "@none"}), "@none"}),
    CaseName);

INSTANTIATE_TEST_SUITE_P(
    Neighbours, BadCommands,
    ::testing::Values(
        BadCommand{"NoSuchPackage", With({"import"}, "@m.orim", "@d.doors", "Nope"), "Nope"},
        BadCommand{"LinkToNoModule", OnReq({"link", "--module", "/Demo/Nope"}), "/Demo/Nope"},
        BadCommand{"LinkToAFolder", OnReq({"link", "--module", "/Demo"}), "/Demo"},
        BadCommand{"ViewsOfNoModule", {"doors", "views", "/Demo/Nope", "--doors", "@d.doors"}, "/Demo/Nope"},
        BadCommand{"NoSuchView", OnReq({"options", "--view", "Nope"}), "Nope"},
        BadCommand{"NoSuchElement", OnReq({"locate", "Nope"}), "Nope"},
        BadCommand{"ImportUnlinked", OnLoose({"import"}), "not linked"},
        BadCommand{"ExportCheckUnlinked", OnLoose({"export-check"}), "not linked"},
        BadCommand{"OptionsUnlinked", OnLoose({"options"}), "not linked"}),
    CaseName);

// Where the add-in itself has something to say, its message box comes before the line.

class MessageAndLine : public BadCommands {};

TEST_P(MessageAndLine, AndNothingIsWritten) {
  const auto before = Files();
  Words words = GetParam().words;
  words.insert(words.end(), {"--data", "@data"});
  const Outcome outcome = Run(words);
  EXPECT_EQ(outcome.status, 1);
  EXPECT_TRUE(outcome.err.starts_with("[Kestrune Link] ")) << outcome.err;
  EXPECT_NE(outcome.err.find(GetParam().says), std::string::npos) << outcome.err;
  EXPECT_TRUE(Files() == before) << "files have changed";
}

INSTANTIATE_TEST_SUITE_P(
    AddIn, MessageAndLine,
    ::testing::Values(
        BadCommand{"UnlinkDeclined", OnReq({"unlink", "--no"}), "\nThe package stays as it was.\n"},
        BadCommand{"ImportOfAModuleThatIsGone", With({"import"}, "@m.orim", "@bare.doors", "Req"),
                   "Module '/Demo/Specification Document' not found."},
        BadCommand{"TemplateOfOtherText", OnReq({"options", "--template", "@text"}), "template"},
        BadCommand{"TemplateWithABadLine", OnReq({"options", "--template", "@template.txt"}), " --> Name"}),
    CaseName);

}  // namespace
}  // namespace kestrune
