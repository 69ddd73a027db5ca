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

/// Objects of the module "/Car" up to that number, each with a heading, below one another by tens.
inline void AddObjects(standins::DoorsDatabase& database, int last) {
  standins::Transaction transaction(database.Sql());
  standins::Statement object = database.Sql().Prepare(
      "INSERT OR IGNORE INTO object (id, module, absolute_number, parent, position) VALUES (?1, 2, ?1, ?2, "
      "?1)");
  standins::Statement value = database.Sql().Prepare(
      "INSERT INTO value (object, attribute, text) SELECT ?1, id, 'Part ' || ?1 FROM attribute"
      " WHERE name = 'Object Heading' AND NOT EXISTS (SELECT 1 FROM value WHERE object = ?1)");
  for (int number = 1; number <= last; ++number) {
    object.Reset();
    object.Bind(number, number <= 10 ? Variant() : Variant(number / 10));
    object.Run();
    value.Reset();
    value.Bind(number);
    value.Run();
  }
  transaction.Commit();
}

inline Text MakeModule(const Text& file) {
  auto database = standins::DoorsDatabase::Open(ToPath(MakeDatabase(file)));
  AddObjects(database, 2);
  return file;
}

inline Text MakeModel(const Text& file) {
  standins::OrimModel::Create(ToPath(file)).AddPackage(0, u"Requirements");
  return file;
}

inline void RegisterAddIn() {
  const HANDLE registering =
      standins::StartProgram({u"regsvr32", u"/s", u"/n", u"/i:machine", FromUtf8(KESTRUNE_DLL)});
  ASSERT_EQ(standins::AwaitEnd(registering, 20000), 0u);
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
    std::vector<Text> forms;
    for (const auto& command : commands) forms.push_back(command.form);
    try {
      standins::ScreenUser(out_, out_).Play(play::ParseScript(u"script", source, forms), commands);
      return "";
    } catch (const play::ScriptError& failure) {
      return failure.what();
    }
  }

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
