// A DOORS with a module that has one of everything, on which the add-in's scripts are run.
#pragma once

#include <gtest/gtest.h>

#include "common/Resources.h"
#include "platform/Files.h"
#include "standins/doors-database/DoorsStandIn.h"
#include "standins/doors-database/xml/DomDocument.h"
#include "tests/support/TestPlatform.h"
#include "tests/workbench/DoorsModule.h"

namespace kestrune::testing {

/// /P/M:
///   1 "Scope"             Open
///     2                   Closed
///     3 (deleted)         Open
///     4 (unreadable)      Open
///       5                 Open
///   6 (nothing but its number)
///     7 table, 8 row, 9 cell: Open
/// with the views "Open" (Status is Open), "Broken" (cannot be loaded) and "All".
class ScriptBench : public ::testing::Test, private ObjectFactory {
 protected:
  ScriptBench() {
    module.AddAttribute(u"Status");
    module.AddAttribute(u"Text with \"quotes\" & <signs>");
    module.AddObject(1, 0, 1);
    for (const int child : {2, 3, 4}) module.AddObject(child, 1, child);
    module.AddObject(5, 4, 1);
    module.AddObject(6, 0, 2);
    module.AddObject(7, 6, 1, u"table");
    module.AddObject(8, 7, 1, u"row");
    module.AddObject(9, 8, 1, u"cell");
    module.SetDeleted(3, true);
    module.SetReadable(4, false);
    module.Set(1, u"Object Heading", u"Scope");
    module.Set(5, u"Object Text", u"brace { and \\");
    for (const int open : {1, 3, 4, 5, 9}) module.Set(open, u"Status", u"Open");
    module.Set(2, u"Status", u"Closed");
    module.AddView(u"Open", {{u"Status", u"equals", u"Open"}});
    module.AddView(u"Broken", {}, false);
    module.AddView(u"All", {});
  }

  /// Nothing was asked, and nothing lost, that the test has not taken notice of.
  void TearDown() override { EXPECT_EQ(doors.Complaints(), expected_complaints); }

  /// The script's answer; a script that has errors fails the test.
  Text Answer(int script, const Text& parameter) {
    const auto outcome = doors.RunScript(LoadDxl(script), parameter, u"script");
    EXPECT_EQ(ToUtf8(dxl::DoorsReport(outcome.errors)), "");
    return outcome.result;
  }

  /// What is open, a line for each: path, "displayed" or "hidden", "edited" where it
  /// is, view, current object.
  std::string OpenModules() const {
    std::string lines;
    for (const auto& open : doors.OpenModules())
      lines += ToUtf8(open.path) + (open.is_displayed ? " displayed, " : " hidden, ") +
               (open.is_edited ? "edited, " : "") + ToUtf8(open.view) + ", " +
               std::to_string(open.current_object) + "\n";
    return lines;
  }

  std::vector<Text> expected_complaints;
  TempFolder folder;
  standins::DoorsDatabase database = standins::DoorsDatabase::Create(":memory:");
  standins::DoorsStandIn doors{database, folder.Path(), *this};
  DoorsModule module{database, u"M"};

 private:
  Object Create(TextView) override { return standins::MakeDomDocument(); }
};

}  // namespace kestrune::testing
