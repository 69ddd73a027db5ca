// The whole road on Windows: the registered add-in in the host's process, DOORS in its own, and a user at the
// screen; and what they see when DOORS fails in the middle.
#include <gtest/gtest.h>
#include <sstream>

#include "standins/stage/Stage.h"
#include "standins/windows/host/ChildProcess.h"
#include "standins/windows/host/HostProgram.h"
#include "standins/windows/screen/ScreenUser.h"
#include "tests/standins/windows/processes/DoorsRun.h"

namespace kestrune::testing {
namespace {

constexpr DWORD kLimitMs = 20000;
constexpr const char16_t* kLink =
    uR"(connect
  form frmConnect
  wait
  select lstModules "/Car"
  press cmdOK
)";
constexpr const char16_t* kFirstImport =
    uR"(click "&Import"
  form frmImport
  wait
    form frmOptions
    press cmdOK
  wait until cmdClose enabled
  expect List1 row "*** Import Complete ***"
  press cmdClose
)";
constexpr const char16_t* kImport =
    uR"(click "&Import"
  form frmImport
  wait until cmdClose enabled
  expect List1 row "*** Import Complete ***"
  press cmdClose
)";
constexpr const char16_t* kUnlink =
    uR"(disconnect
  answer Yes "Are you sure..."
)";

/// Two objects more in the module "/Car".
Text MakeModule(const Text& file) {
  MakeDatabase(file);
  auto database = standins::DoorsDatabase::Open(ToPath(file));
  database.Sql().Exec(
      "INSERT INTO object (id, module, absolute_number, position) VALUES (1, 2, 1, 1), (2, 2, 2, 2);"
      "INSERT INTO value (object, attribute, text) SELECT o.id, a.id, 'Part ' || o.id FROM object o, "
      "attribute a"
      "  WHERE a.name = 'Object Heading';");
  return file;
}

Text MakeModel(const Text& file) {
  standins::OrimModel::Create(ToPath(file)).AddPackage(0, u"Requirements");
  return file;
}

class HostProgramTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    const HANDLE registering =
        standins::StartProgram({u"regsvr32", u"/s", u"/n", u"/i:machine", FromUtf8(KESTRUNE_DLL)});
    ASSERT_EQ(standins::AwaitEnd(registering, kLimitMs), 0u);
  }

  /// What went wrong; "" when the script was played to its end.
  std::string Play(const Text& source) {
    standins::Stage stage(host_.Session(), host_.Doors(), host_.Screen(), {}, out_);
    auto commands = stage.Commands();
    commands.push_back({u"dies TEXT", [this](const play::Statement& line) {
                          host_.Doors().DieAtPerm(static_cast<int>(NumericValue(line.texts[0])));
                        }});
    commands.push_back({u"damages", [this](const play::Statement&) { host_.Doors().DamageNextExport(); }});
    std::vector<Text> forms;
    for (const auto& command : commands) forms.push_back(command.form);
    try {
      standins::ScreenUser(out_, out_).Play(play::ParseScript(u"script", source, forms), commands);
      return "";
    } catch (const play::ScriptError& failure) {
      return failure.what();
    }
  }
  std::size_t Elements() { return host_.Session().Model().Tree(host_.Session().Package().id).size(); }

  TempFolder folder_;
  std::ostringstream out_;
  standins::HostProgram host_{{.model = MakeModel(folder_.File(u"model")),
                               .package = u"Requirements",
                               .doors = {.database = MakeModule(folder_.File(u"doors")),
                                         .program = FromUtf8(KESTRUNE_DOORS_PROGRAM),
                                         .workbench = {},
                                         .log = {}}}};
};

TEST_F(HostProgramTest, LinksImportsAndUnlinks) {
  EXPECT_EQ(Play(Text(kLink) + kFirstImport + u"tree\n" + kUnlink), "");
  EXPECT_NE(out_.str().find("Requirements/\n  1: Part 1  [1]\n  2: Part 2  [2]\n"), std::string::npos)
      << out_.str();
  EXPECT_EQ(Play(u"click \"&Import\"\n"),
            "script:1: The package \"Requirements\" is not linked to a DOORS module.: click \"&Import\"");
}

TEST_F(HostProgramTest, ADoorsThatDiesIsReportedAndTheNextOneIsUsed) {
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

TEST_F(HostProgramTest, ADamagedExportIsReportedAndTheNextOneIsRead) {
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
