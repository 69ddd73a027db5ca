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

TEST_F(ScriptBench, TheListOfModulesOfAnEmptyDatabaseIsEmpty) {
  database.Sql().Exec("UPDATE item SET deleted = 1 WHERE type = 'Formal'");
  EXPECT_EQ(Answer(dxl_script::kListModules, u"left over"), u"");
}

TEST_F(ScriptBench, TheListOfViewsComesInTheirOrder) {
  EXPECT_EQ(Answer(dxl_script::kListViews, u"/P/M"), u"Open\nBroken\nAll\n");
}

/// What the user has done before: a module that is open already.
enum class Before { kNothing, kHidden, kDisplayed, kFiltered };

struct RunCase {
  const char* name;
  int script;
  Text parameter;
  Before before;
  Text answer;  // "(file)": the path of an export
  const char* open_afterwards;
};

class ScriptRuns : public ScriptBench, public ::testing::WithParamInterface<RunCase> {};

TEST_P(ScriptRuns, AnswersAndLeavesOpen) {
  const RunCase& c = GetParam();
  database.Sql().Exec(
      "INSERT INTO item (parent, type, name) SELECT id, 'Link', 'L' FROM item WHERE name = 'P'");
  if (c.before != Before::kNothing)
    doors.UserOpens(u"/P/M", c.before != Before::kHidden, c.before == Before::kFiltered ? u"Open" : u"All");
  const Text answer = Answer(c.script, c.parameter);
  if (c.answer == u"(file)")
    EXPECT_TRUE(IsFile(answer)) << ToUtf8(answer);
  else
    EXPECT_EQ(answer, c.answer);
  EXPECT_EQ(OpenModules(), c.open_afterwards);
}

constexpr int kViews = dxl_script::kListViews;
constexpr int kExport = dxl_script::kExportModule;
constexpr int kLocate = dxl_script::kLocateObject;
constexpr const char* kNothingOpen = "";

INSTANTIATE_TEST_SUITE_P(
    Scripts, ScriptRuns,
    ::testing::Values(
        RunCase{"ViewsOfNoModule", kViews, u"/P/N", Before::kNothing, u"Error: Module '/P/N' not found.",
                kNothingOpen},
        RunCase{"ViewsOfNothing", kViews, u"", Before::kNothing, u"Error: Module '' not found.",
                kNothingOpen},
        RunCase{"ViewsOfAFolder", kViews, u"/P", Before::kNothing, u"Error: Module '/P' not found.",
                kNothingOpen},
        RunCase{"ViewsOfALinkModule", kViews, u"/P/L", Before::kNothing, u"Error: Module '/P/L' not found.",
                kNothingOpen},
        RunCase{"ViewsCloseWhatTheyOpened", kViews, u"/P/M", Before::kNothing, u"Open\nBroken\nAll\n",
                kNothingOpen},
        RunCase{"ViewsLeaveWhatWasOpen", kViews, u"/P/M", Before::kFiltered, u"Open\nBroken\nAll\n",
                "/P/M displayed, Open, 0\n"},

        RunCase{"ExportOfNoModule", kExport, u"/P/N~0~~", Before::kNothing,
                u"Error: Module '/P/N' not found.", kNothingOpen},
        RunCase{"ExportOfNothing", kExport, u"", Before::kNothing, u"Error: Module '' not found.",
                kNothingOpen},
        RunCase{"ExportOfALinkModule", kExport, u"/P/L~0~~", Before::kNothing,
                u"Error: Module '/P/L' not found.", kNothingOpen},
        RunCase{"ExportClosesWhatItOpened", kExport, u"/P/M~0~~", Before::kNothing, u"(file)", kNothingOpen},
        RunCase{"ExportOfAttributesToo", kExport, u"/P/M~1~~", Before::kNothing, u"(file)", kNothingOpen},
        RunCase{"ExportUsesWhatIsOpen", kExport, u"/P/M~0~~", Before::kFiltered, u"(file)",
                "/P/M displayed, Standard view, 0\n"},
        RunCase{"ExportUsesWhatIsOpenHidden", kExport, u"/P/M~0~~", Before::kHidden, u"(file)",
                "/P/M hidden, Standard view, 0\n"},
        RunCase{"ExportShowsTheView", kExport, u"/P/M~0~Open", Before::kNothing, u"(file)",
                "/P/M displayed, Open, 0\n"},
        RunCase{"ExportReplacesTheView", kExport, u"/P/M~0~All", Before::kFiltered, u"(file)",
                "/P/M displayed, All, 0\n"},
        RunCase{"ExportTakesTheStandardView", kExport, u"/P/M~0~Standard view", Before::kFiltered, u"(file)",
                "/P/M displayed, Standard view, 0\n"},
        RunCase{"ExportOfNoView", kExport, u"/P/M~0~open", Before::kNothing,
                u"Error: View 'open' not available.", "/P/M displayed, Standard view, 0\n"},
        RunCase{"ExportOfNoViewKeepsTheOldOne", kExport, u"/P/M~0~None", Before::kFiltered,
                u"Error: View 'None' not available.", "/P/M displayed, Open, 0\n"},
        RunCase{"ExportOfABrokenView", kExport, u"/P/M~0~Broken", Before::kNothing,
                u"Error: Could not load view 'Broken'.", "/P/M displayed, Standard view, 0\n"},

        RunCase{"LocateInNoModule", kLocate, u"/P/N~5~", Before::kNothing, u"Error: Module '/P/N' not found.",
                kNothingOpen},
        RunCase{"LocateOpens", kLocate, u"/P/M~5~", Before::kNothing, u"",
                "/P/M displayed, Standard view, 5\n"},
        RunCase{"LocateReopensDisplayed", kLocate, u"/P/M~5~", Before::kHidden, u"",
                "/P/M displayed, Standard view, 5\n"},
        RunCase{"LocateUsesTheWindow", kLocate, u"/P/M~5~", Before::kFiltered, u"",
                "/P/M displayed, Open, 5\n"},
        RunCase{"LocateInAView", kLocate, u"/P/M~5~Open", Before::kNothing, u"", "/P/M displayed, Open, 5\n"},
        RunCase{"LocateInNoView", kLocate, u"/P/M~5~None", Before::kDisplayed,
                u"Error: View 'None' not available.", "/P/M displayed, All, 0\n"},
        RunCase{"LocateInABrokenView", kLocate, u"/P/M~5~Broken", Before::kDisplayed,
                u"Error: View 'Broken' not available.", "/P/M displayed, All, 0\n"},
        RunCase{"LocateNoObject", kLocate, u"/P/M~99~", Before::kNothing,
                u"Error: Object ID '99' not found in DOORS Module.", "/P/M displayed, Standard view, 0\n"},
        RunCase{"LocateNoNumber", kLocate, u"/P/M~R5~", Before::kNothing,
                u"Error: Object ID 'R5' not found in DOORS Module.", "/P/M displayed, Standard view, 0\n"},
        RunCase{"LocateNothing", kLocate, u"/P/M~~", Before::kNothing,
                u"Error: Object ID '' not found in DOORS Module.", "/P/M displayed, Standard view, 0\n"}),
    [](const auto& info) { return info.param.name; });

TEST_F(ScriptBench, LocateScrollsToTheObjectAndAFailureLeavesTheSelection) {
  Answer(dxl_script::kLocateObject, u"/P/M~5~");
  EXPECT_EQ(doors.OpenModules().at(0).scrolled_to, 5);
  for (const Text parameter : {u"/P/M~99~", u"/P/M~x~", u"/P/M~2~None"}) {
    EXPECT_NE(Answer(dxl_script::kLocateObject, parameter), u"");
    EXPECT_EQ(doors.OpenModules().at(0).current_object, 5) << ToUtf8(parameter);
    EXPECT_EQ(doors.OpenModules().at(0).scrolled_to, 5) << ToUtf8(parameter);
  }
}

TEST_F(ScriptBench, AScriptThatDiesLeavesNoAnswer) {
  const std::pair<int, Text> runs[] = {{dxl_script::kListModules, u"left over"},
                                       {dxl_script::kListViews, u"/P/M"},
                                       {dxl_script::kExportModule, u"/P/M~0~~"},
                                       {dxl_script::kLocateObject, u"/P/M~5~"}};
  Object application = doors.Application();
  for (const auto& [script, parameter] : runs) {
    for (const int perm : {1, 2, 3, 4}) {
      application.Put(u"Result", parameter);
      doors.FailNextRunAt(perm, {error::kCallFailed, u"DOORS", u"died"});
      EXPECT_THROW(application.Call(u"RunStr", {LoadDxl(script)}), AutomationError);
      EXPECT_EQ(application.Get(u"Result").ToText(), u"") << script << " died at " << perm;
      doors.UserClosesAll();
    }
  }
}

}  // namespace
}  // namespace kestrune
