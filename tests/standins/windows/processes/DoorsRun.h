// A DOORS in a process of its own, over a small database, for one test.
#pragma once

#include <gtest/gtest.h>

#include "platform/Files.h"
#include "platform/com/ComObjectFactory.h"
#include "standins/windows/host/DoorsProcess.h"
#include "tests/support/TestPlatform.h"

namespace kestrune::testing {

/// With the module "/Car".
inline Text MakeDatabase(const Text& file) {
  auto database = standins::DoorsDatabase::Create(ToPath(file));
  database.Sql().Exec("INSERT INTO item (id, parent, type, name) VALUES (2, 1, 'Formal', 'Car')");
  return file;
}

class DoorsRun : public ::testing::Test {
 protected:
  DoorsRun() { doors.SetPhase(standins::DoorsPhase::kReady); }

  Object Application() { return ComObjectFactory().Create(u"Doors.Application"); }

  /// Runs a script in that DOORS; its result.
  static Text Run(const Object& application, const Text& script) {
    application.Call(u"RunStr", {script});
    return application.Get(u"Result").ToText();
  }
  /// The number of the failure; 0 when there is none.
  static std::uint32_t FailureOf(const std::function<void()>& action) {
    try {
      action();
      return 0;
    } catch (const AutomationError& failure) {
      return failure.Number;
    }
  }

  TempFolder folder;
  standins::DoorsProcess doors{{.database = MakeDatabase(folder.File(u"doors")),
                                .program = FromUtf8(KESTRUNE_DOORS_PROGRAM),
                                .workbench = {},
                                .log = folder.File(u"log")}};
};

}  // namespace kestrune::testing
