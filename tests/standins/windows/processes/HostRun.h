// The host with the registered add-in in it, DOORS in a process of its own and a user at the screen, for one test.
#pragma once

#include <gtest/gtest.h>
#include <sstream>

#include "standins/stage/Stage.h"
#include "standins/windows/host/ChildProcess.h"
#include "standins/windows/host/HostProgram.h"
#include "standins/windows/screen/ScreenUser.h"
#include "tests/standins/windows/processes/DoorsRun.h"

namespace kestrune::testing {

inline constexpr DWORD kLimitMs = 20000;
inline constexpr const char16_t* kLink =
    uR"(connect
  form frmConnect
  wait
  select lstModules "/Car"
  press cmdOK
)";
inline constexpr const char16_t* kFirstImport =
    uR"(click "&Import"
  form frmImport
  wait
    form frmOptions
    press cmdOK
  wait until cmdClose enabled
  expect List1 row "*** Import Complete ***"
  press cmdClose
)";
inline constexpr const char16_t* kImport =
    uR"(click "&Import"
  form frmImport
  wait until cmdClose enabled
  expect List1 row "*** Import Complete ***"
  press cmdClose
)";
inline constexpr const char16_t* kUnlink =
    uR"(disconnect
  answer Yes "Are you sure..."
)";

/// Two objects more in the module "/Car".
inline Text MakeModule(const Text& file) {
  MakeDatabase(file);
  auto database = standins::DoorsDatabase::Open(ToPath(file));
  database.Sql().Exec(
      "INSERT INTO object (id, module, absolute_number, position) VALUES (1, 2, 1, 1), (2, 2, 2, 2);"
      "INSERT INTO value (object, attribute, text) SELECT o.id, a.id, 'Part ' || o.id FROM object o, "
      "attribute a"
      "  WHERE a.name = 'Object Heading';");
  return file;
}

inline Text MakeModel(const Text& file) {
  standins::OrimModel::Create(ToPath(file)).AddPackage(0, u"Requirements");
  return file;
}

inline void RegisterAddIn() {
  const HANDLE registering =
      standins::StartProgram({u"regsvr32", u"/s", u"/n", u"/i:machine", FromUtf8(KESTRUNE_DLL)});
  ASSERT_EQ(standins::AwaitEnd(registering, kLimitMs), 0u);
}

class HostRun : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { RegisterAddIn(); }

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

}  // namespace kestrune::testing
