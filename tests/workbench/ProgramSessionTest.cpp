// A whole session at the terminal, from a requirements file to a model and on.
#include "tests/workbench/CommandLine.h"

namespace kestrune {
namespace {

using testing::CommandLine;
using testing::Outcome;
using testing::Words;

constexpr const char* kDocument = "/Demo/Specification Document";
constexpr const char* kAttachment = "/Demo/rmf-18a7243e-f39d-4356-a155-76ead45e4a45";

class Session : public CommandLine {
 protected:
  std::string Load(const std::string& file) {
    return Do({"doors", "load", Sample(file), "--doors", "@d.doors", "--at", "/Demo"});
  }
  std::string Tree() { return Do({"tree", "--model", "@m.orim"}); }

  void LinkAndMap() {
    Load("resync-a.reqif");
    Do({"new", "@m.orim", "--package", "Req"});
    Do(On({"link", "--module", kDocument}));
    WriteFile(folder.File(u"map.txt"),
              "Orim Studio Mapping Template\nAbsolute Number --> Name\nDescription --> Notes\n");
    Do(On({"options", "--template", "@map.txt"}));
  }
};

TEST_F(Session, RunsFromTheFileToTheModel) {
  EXPECT_EQ(Load("resync-a.reqif"),
            std::string(kDocument) + " (42 objects, 42 new)\n" + kAttachment + " (8 objects, 8 new)\n");
  EXPECT_EQ(Do({"doors", "modules", "--doors", "@d.doors"}),
            std::string(kDocument) + "\n" + kAttachment + "\n");
  EXPECT_EQ(Do({"doors", "views", kDocument, "--doors", "@d.doors"}), "");
  EXPECT_EQ(Do({"new", "@m.orim", "--package", "Req"}), "@m.orim: a model with the package \"Req\"\n");
  EXPECT_EQ(Do(On({"link", "--module", kDocument})), "Req is linked to /Demo/Specification Document\n");
  const std::string packages = Do({"packages", "--model", "@m.orim"});
  EXPECT_TRUE(packages.ends_with("  Req -> /Demo/Specification Document\n")) << packages;

  WriteFile(folder.File(u"map.txt"),
            "Orim Studio Mapping Template\nAbsolute Number --> Name\nDescription --> Notes\n");
  const std::string options = Do(On({"options", "--template", "@map.txt", "--print"}));
  EXPECT_TRUE(
      options.starts_with("DOORS Module: /Demo/Specification Document\nView: Standard view\n"
                          "  Absolute Number --> Name\n"))
      << options;
  EXPECT_NE(options.find("\n  Description --> Notes\n"), std::string::npos);

  EXPECT_EQ(Tree(), "Req/\n");
  const std::string import = Do(On({"import", "--yes"}));
  EXPECT_TRUE(
      import.starts_with("Connecting to DOORS\nChecking contents of DOORS module\n"
                         "Checking Orim package contents\nComparing...\nProcessing Trash...\n"
                         "Synchronizing documents...\n   1: New\n"))
      << import;
  EXPECT_TRUE(
      import.ends_with("Updating Hierarchy...\nUpdating Orim UI\n"
                       "42 new, 0 changed, 0 moved, 0 archived, 0 restored, 0 unchanged, 0 failed\n"
                       "*** Import Complete ***\n"))
      << import;
  const std::string tree = Tree();
  EXPECT_EQ(std::count(tree.begin(), tree.end(), '\n'), 1 + 42 + 1) << "package, elements, trash\n" << tree;
  EXPECT_TRUE(tree.starts_with("Req/\n  1  [1]")) << tree;
  EXPECT_TRUE(tree.ends_with("\n  Trash Can/\n")) << tree;

  EXPECT_EQ(Do(On({"locate", "1"})), "DOORS shows /Demo/Specification Document, object 1\n");
  const Outcome unlink = Run(On({"unlink", "--yes"}));
  EXPECT_EQ(unlink.out, "Req is not linked any more\n");
  EXPECT_EQ(unlink.err, "[Kestrune Link] Are you sure you wish to disconnect?\n");
  EXPECT_EQ(Do({"packages", "--model", "@m.orim"}), "");
  EXPECT_EQ(Tree(), tree) << "what was imported stays";
}

TEST_F(Session, FollowsTheDocumentAndWritesNothingWhenItRests) {
  LinkAndMap();
  Do(On({"import", "--yes"}));
  const std::string first_tree = Tree();
  EXPECT_EQ(Load("resync-b.reqif"),
            std::string(kDocument) + " (64 objects, 23 new, 1 removed)\n" + kAttachment + " (8 objects)\n");
  const Outcome next = Run(On({"import", "--yes"}));
  EXPECT_EQ(next.status, 0);
  EXPECT_TRUE(next.err.starts_with("[Kestrune Link] 1 item(s) no longer appear in the DOORS module"))
      << next.err;

  const auto model = ReadFile(folder.File(u"m.orim"));
  const std::string rest = Do(On({"import", "--yes"}));
  EXPECT_EQ(rest,
            "Connecting to DOORS\nChecking contents of DOORS module\nChecking Orim package contents\n"
            "Comparing...\nProcessing Trash...\nSynchronizing documents...\nUpdating Hierarchy...\n"
            "Updating Orim UI\n"
            "0 new, 0 changed, 0 moved, 0 archived, 0 restored, 64 unchanged, 0 failed\n"
            "*** Import Complete ***\n");
  EXPECT_TRUE(ReadFile(folder.File(u"m.orim")) == model) << "the model's file has changed";

  Load("resync-a.reqif");
  EXPECT_EQ(Run(On({"import", "--yes"})).status, 0);
  const std::string back = Tree();
  EXPECT_EQ(back.substr(0, back.find("  Trash Can/")), first_tree.substr(0, first_tree.find("  Trash Can/")));
}

TEST_F(Session, AnImportThatLeavesSomethingOutEndsWithOneAndKeepsTheRules) {
  LinkAndMap();
  Do(On({"import", "--yes"}));
  const auto lock = [this](bool is_locked) {
    standins::Database::Open(ToPath(folder.File(u"m.orim")))
        .Prepare("UPDATE t_object SET Locked = ? WHERE Object_Type = 'Requirement' AND TPos = 10", is_locked)
        .Run();
  };
  Load("resync-b.reqif");
  lock(true);
  const Outcome failed = Run(On({"import", "--yes"}));
  EXPECT_EQ(failed.status, 1);
  EXPECT_NE(failed.err.find("Exclude them from future imports?"), std::string::npos) << failed.err;
  EXPECT_NE(failed.err.find("The package is not in line with the module: "), std::string::npos) << failed.err;
  EXPECT_NE(failed.out.find("\n*** Import Complete ***\n"), std::string::npos);
  const std::string rules = Do(On({"options", "--print"}));
  for (const char* rule : {"  Absolute Number --> Name\n", "  Description --> Notes\n"})
    EXPECT_NE(rules.find(rule), std::string::npos) << "--yes is no answer to that question";
  lock(false);
  EXPECT_EQ(Run(On({"import"})).status, 0);
}

TEST_F(Session, AScriptsErrorsComeWithTheirPlace) {
  Load("resync-a.reqif");
  const struct {
    const char* script;
    int status;
    const char* out;
    const char* err;
  } cases[] = {
      {"oleSetResult(oleGetResult() \"!\")\n", 0, "word!\n", ""},
      {"print \"seen\\n\"\noleSetResult \"done\"\n", 0, "seen\ndone\n", ""},
      {"int a = 1\nint b = nothing\n", 1, "",
       "@s.dxl:2:9: undeclared variable (nothing)\nint b = nothing\n        ^\n"},
      {"print \"seen\\n\"\nint z = 0\nint a = 1 / z\n", 1, "seen\n", "@s.dxl:3:"},
      {"if (true {\n}\n", 1, "", "@s.dxl:1:10: "},
  };
  for (const auto& c : cases) {
    WriteFile(folder.File(u"s.dxl"), c.script);
    const Outcome run = Run({"dxl", "@s.dxl", "--param", "word", "--doors", "@d.doors"});
    EXPECT_EQ(run.status, c.status) << c.script;
    EXPECT_EQ(run.out, c.out) << c.script;
    EXPECT_TRUE(run.err.starts_with(c.err)) << c.script << run.err;
    EXPECT_EQ(run.err.empty(), c.status == 0) << run.err;
  }
}

}  // namespace
}  // namespace kestrune
