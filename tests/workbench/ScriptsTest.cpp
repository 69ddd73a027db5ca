// The add-in's four scripts in DOORS: what they answer and what they leave open behind them.
#include "tests/workbench/ScriptBench.h"

namespace kestrune {
namespace {

using testing::DoorsModule;
using testing::ScriptBench;

TEST_F(ScriptBench, TheListOfModulesHasEveryFormalOneWhereverItLies) {
  database.Sql().Exec(
      "INSERT INTO item (id, parent, type, name, deleted) VALUES (50, 1, 'Folder', 'Loose', 0),"
      " (51, 50, 'Formal', 'Alone', 0), (52, 50, 'Link', 'Links', 0), (53, 50, 'Descriptive', 'Prose', 0),"
      " (54, 50, 'Formal', 'Gone', 1), (55, 50, 'Project', 'Inner', 0), (56, 55, 'Formal', 'Deep', 0)");
  std::vector<Text> paths = Split(Answer(dxl_script::kListModules, u""), u"\n");
  std::sort(paths.begin(), paths.end());
  EXPECT_EQ(paths, (std::vector<Text>{u"", u"/Inner/Deep", u"/Loose/Alone", u"/P/M"}));
  EXPECT_EQ(OpenModules(), "");
}

/// What the user has done before: a module that is open already.
enum class Before { kNothing, kHidden, kDisplayed, kFiltered, kHiddenEdited, kDisplayedEdited };

TEST_F(ScriptBench, EveryRunAnswersAndLeavesOpen) {
  constexpr int kViews = dxl_script::kListViews, kExport = dxl_script::kExportModule,
                kLocate = dxl_script::kLocateObject;
  const Before nothing = Before::kNothing, hidden = Before::kHidden, displayed = Before::kDisplayed,
               filtered = Before::kFiltered, hidden_edited = Before::kHiddenEdited,
               displayed_edited = Before::kDisplayedEdited;
  const auto no_module = [](TextView path) { return u"Error: Module '" + Text(path) + u"' not found."; };
  const Text views = u"Open\nBroken\nAll\n", file = u"(file)", located;
  const Text in_the_way =
      u"Error: Module '/P/M' is open for editing without a window; close it in DOORS first.";
  const struct {
    int script;
    Text parameter;
    Before before;
    Text answer;
    const char* open_afterwards;  // what comes after "/P/M "
  } cases[] = {
      {kViews, u"/P/N", nothing, no_module(u"/P/N"), ""},
      {kViews, u"", nothing, no_module(u""), ""},
      {kViews, u"/P", nothing, no_module(u"/P"), ""},
      {kViews, u"/P/L", nothing, no_module(u"/P/L"), ""},
      {kViews, u"/P/M", nothing, views, ""},
      {kViews, u"/P/M", filtered, views, "displayed, Open, 0"},
      {kViews, u"/P/M", hidden_edited, views, "hidden, edited, All, 0"},

      {kExport, u"/P/N~0~~", nothing, no_module(u"/P/N"), ""},
      {kExport, u"", nothing, no_module(u""), ""},
      {kExport, u"/P/L~0~~", nothing, no_module(u"/P/L"), ""},
      {kExport, u"/P/M~0~~", nothing, file, ""},
      {kExport, u"/P/M~1~~", nothing, file, ""},
      {kExport, u"/P/M~0~~", filtered, file, "displayed, Standard view, 0"},
      {kExport, u"/P/M~0~~", hidden, file, "hidden, Standard view, 0"},
      {kExport, u"/P/M~0~~", hidden_edited, file, "hidden, edited, Standard view, 0"},
      {kExport, u"/P/M~0~Open", nothing, file, "displayed, Open, 0"},
      {kExport, u"/P/M~0~Open", hidden, file, "displayed, Open, 0"},
      {kExport, u"/P/M~0~Open", hidden_edited, in_the_way, "hidden, edited, All, 0"},
      {kExport, u"/P/M~0~Open", displayed_edited, file, "displayed, edited, Open, 0"},
      {kExport, u"/P/M~0~All~more", filtered, file, "displayed, All, 0"},
      {kExport, u"/P/M~0~Standard view", filtered, file, "displayed, Standard view, 0"},
      {kExport, u"/P/M~0~open", nothing, u"Error: View 'open' not available.", "displayed, Standard view, 0"},
      {kExport, u"/P/M~0~None", filtered, u"Error: View 'None' not available.", "displayed, Open, 0"},
      {kExport, u"/P/M~0~Broken", nothing, u"Error: Could not load view 'Broken'.",
       "displayed, Standard view, 0"},

      {kLocate, u"/P/N~5~", nothing, no_module(u"/P/N"), ""},
      {kLocate, u"/P/M~5~", nothing, located, "displayed, Standard view, 5"},
      {kLocate, u"/P/M~5~", hidden, located, "displayed, Standard view, 5"},
      {kLocate, u"/P/M~5~", filtered, located, "displayed, Open, 5"},
      {kLocate, u"/P/M~5~", hidden_edited, in_the_way, "hidden, edited, All, 0"},
      {kLocate, u"/P/M~5~", displayed_edited, located, "displayed, edited, All, 5"},
      {kLocate, u"/P/M~5~Open~more", nothing, located, "displayed, Open, 5"},
      {kLocate, u"/P/M~5~None", displayed, u"Error: View 'None' not available.", "displayed, All, 0"},
      {kLocate, u"/P/M~5~Broken", displayed, u"Error: View 'Broken' not available.", "displayed, All, 0"},
  };
  database.Sql().Exec(
      "INSERT INTO item (parent, type, name) SELECT id, 'Link', 'L' FROM item WHERE name = 'P'");
  for (const auto& c : cases) {
    SCOPED_TRACE(&c - cases);
    doors.UserClosesAll();
    if (c.before != nothing)
      doors.UserOpens(u"/P/M", c.before != hidden && c.before != hidden_edited,
                      c.before == filtered ? u"Open" : u"All");
    if (c.before == hidden_edited || c.before == displayed_edited) doors.UserEdits(u"/P/M");
    const Text answer = Answer(c.script, c.parameter);
    EXPECT_EQ(IsFile(answer) ? file : answer, c.answer);
    EXPECT_EQ(OpenModules(), *c.open_afterwards ? std::string("/P/M ") + c.open_afterwards + "\n" : "");
  }
}

TEST_F(ScriptBench, LocateScrollsToTheObjectAndAFailureNamesItAndLeavesTheSelection) {
  for (const Text id : {u"5", u"99", u"R5", u""}) {
    const Text answer = Answer(dxl_script::kLocateObject, u"/P/M~" + id + u"~");
    EXPECT_EQ(answer, id == u"5" ? Text() : u"Error: Object ID '" + id + u"' not found in DOORS Module.");
    EXPECT_EQ(OpenModules(), "/P/M displayed, Standard view, 5\n");
    EXPECT_EQ(doors.OpenModules().at(0).scrolled_to, 5);
  }
}

const std::pair<int, Text> kRuns[] = {{dxl_script::kListModules, u"left over"},
                                      {dxl_script::kListViews, u"/P/M"},
                                      {dxl_script::kExportModule, u"/P/M~0~~"},
                                      {dxl_script::kExportModule, u"/P/M~0~Open"},
                                      {dxl_script::kLocateObject, u"/P/M~5~"}};

TEST_F(ScriptBench, AScriptThatDiesLeavesNoAnswer) {
  Object application = doors.Application();
  for (const auto& [script, parameter] : kRuns) {
    for (const int perm : {1, 2, 3, 4}) {
      application.Put(u"Result", parameter);
      doors.FailNextRunAt(perm, {error::kCallFailed, u"DOORS", u"died"});
      EXPECT_THROW(application.Call(u"RunStr", {LoadDxl(script)}), AutomationError);
      EXPECT_EQ(application.Get(u"Result").ToText(), u"") << script << " died at " << perm;
      doors.UserClosesAll();
    }
  }
}

/// Perms fail in turn with a run-time error. What comes of it is the whole answer, an error that is told, or
/// none at all; and no module stays open without a window, unless it is closing itself that fails.
TEST_F(ScriptBench, ARunTimeErrorAnywhereIsToldAndLeavesNothingHidden) {
  for (const auto& [script, parameter] : kRuns) {
    const Text whole = Answer(script, parameter);
    int told = 0;
    for (int perm = 1;; perm += perm < 60 ? 1 : 13) {
      doors.UserClosesAll();
      bool has_failed = false;
      doors.InterruptNextRunAt(perm, [&] {
        has_failed = true;
        throw dxl::ScriptError(u"it failed");
      });
      const Text answer = doors.RunScript(LoadDxl(script), parameter, u"script").result;
      if (!has_failed) break;
      const bool is_told = answer.starts_with(u"Error: "), is_whole = answer == whole || IsFile(answer);
      told += is_told ? 1 : 0;
      EXPECT_TRUE(is_told || is_whole || answer.empty())
          << script << " failed at " << perm << ": " << ToUtf8(answer);
      if (is_whole) continue;
      EXPECT_EQ(OpenModules().find("hidden"), std::string::npos) << script << " failed at " << perm;
    }
    EXPECT_GE(told, script == dxl_script::kExportModule ? 50 : 0);
  }
}

TEST_F(ScriptBench, AnAttributeThatMayNotBeReadEndsTheExport) {
  module.SetAttributeReadable(u"Status", false);
  const Text refused = u"Error: Attribute 'Status' cannot be read: no read access to attribute (Status)";
  EXPECT_EQ(Answer(dxl_script::kExportModule, u"/P/M~0~~"), refused);
  EXPECT_EQ(OpenModules(), "");
  EXPECT_TRUE(IsFile(Answer(dxl_script::kExportModule, u"/P/M~1~~"))) << "its name can be listed";
}

}  // namespace
}  // namespace kestrune
