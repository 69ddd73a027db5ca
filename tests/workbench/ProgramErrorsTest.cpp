// What cannot be done is said in one line, and nothing is written then.
#include <fstream>
#include <sched.h>
#include <sys/mount.h>
#include <tuple>
#include <unistd.h>

#include "tests/workbench/CommandLine.h"

namespace kestrune {
namespace {

using testing::CommandLine;
using testing::Outcome;
using testing::Words;

/// In the folder: a model "m.orim" with the linked package "Req" and the unlinked one "Loose", a DOORS
/// database "d.doors", files that are neither, and a package whose module is gone.
class BadCommands : public CommandLine {
 protected:
  BadCommands() {
    Do({"doors", "load", Sample("resync-a.reqif"), "--doors", "@d.doors", "--at", "/Demo"});
    Do({"new", "@m.orim", "--package", "Req"});
    Do({"new", "@loose.orim", "--package", "Loose"});
    Do(On({"link", "--module", "/Demo/Specification Document"}));
    Do(On({"options"}));
    WriteFile(folder.File(u"text"), "no model, no database, no requirements");
    WriteFile(folder.File(u"empty"), "");
    WriteFile(folder.File(u"other.xml"), "<other/>");
    WriteFile(folder.File(u"template.txt"), "Orim Studio Mapping Template\n --> Name\n");
    standins::DoorsDatabase::Create(ToPath(folder.File(u"bare.doors")));
    // The selection is part of the model.
    Run(On({"import"}, "@loose.orim", "@d.doors", "Loose"));
    files_ = Files();
  }

  /// Runs the command, which fails, has these words in its error and changes no file.
  Outcome Fail(const Words& words, std::string_view says) {
    Outcome outcome = Run(words);
    ExpectFailure(outcome, says);
    return outcome;
  }
  void ExpectFailure(const Outcome& outcome, std::string_view says) const {
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.err.find(says), std::string::npos) << outcome.err;
    EXPECT_TRUE(Files() == files_) << "files have changed";
  }

 private:
  std::map<std::string, std::string> files_;
};

TEST_F(BadCommands, EndInOneLineAndWriteNothing) {
  const std::pair<Words, const char*> cases[] = {
      {{"impart"}, "impart"},
      {On({"import", "--fast"}), "--fast"},
      {{"tree"}, "--model"},
      {{"doors", "modules"}, "--doors"},
      {{"import", "--model", "@m.orim", "--doors", "@d.doors"}, "--package"},
      {On({"link"}), "--module"},
      {On({"import", "--yes", "--no"}), "--"},

      {{"tree", "--model", "@none"}, "@none"},
      {{"tree", "--model", "@text"}, "@text"},
      {{"tree", "--model", "@empty"}, "@empty"},
      {{"tree", "--model", "@d.doors"}, "@d.doors"},
      {{"tree", "--model", "@data"}, "@data"},
      {{"new", "@m.orim", "--package", "X"}, "@m.orim"},
      {{"new", "@none/m.orim", "--package", "X"}, "@none/m.orim"},
      {{"new", "@new.orim", "--package", ""}, "name"},
      {{"doors", "modules", "--doors", "@none"}, "@none"},
      {{"doors", "modules", "--doors", "@text"}, "@text"},
      {{"doors", "modules", "--doors", "@m.orim"}, "@m.orim"},
      {On({"import"}, "@none", "@d.doors", "Req"), "@none"},
      {On({"import"}, "@m.orim", "@none", "Req"), "@none"},
      {{"dxl", "@none", "--doors", "@d.doors"}, "@none"},
      {{"doors", "load", "@none", "--doors", "@d.doors"}, "@none"},
      {{"doors", "load", "@text", "--doors", "@d.doors"}, "@text"},
      {{"doors", "load", "@other.xml", "--doors", "@d.doors"}, "@other.xml"},
      {{"doors", "load", "@text", "--doors", "@new.doors"}, "@text"},
      {{"doors", "load", "@text", "--doors", "@m.orim"}, "@m.orim"},
      {On({"options", "--template", "@none"}), "@none"},

      {On({"import"}, "@m.orim", "@d.doors", "Nope"), "Nope"},
      {On({"link", "--module", "/Demo/Nope"}), "/Demo/Nope"},
      {On({"link", "--module", "/Demo"}), "/Demo"},
      {{"doors", "views", "/Demo/Nope", "--doors", "@d.doors"}, "/Demo/Nope"},
      {On({"options", "--view", "Nope"}), "Nope"},
      {On({"locate", "Nope"}), "Nope"},
      {On({"import"}, "@loose.orim", "@d.doors", "Loose"), "not linked"},
      {On({"export-check"}, "@loose.orim", "@d.doors", "Loose"), "not linked"},
      {On({"options"}, "@loose.orim", "@d.doors", "Loose"), "not linked"},
  };
  for (const auto& [words, says] : cases) {
    SCOPED_TRACE(::testing::PrintToString(words));
    const Outcome outcome = Fail(words, says);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
    EXPECT_TRUE(outcome.err.ends_with('\n')) << outcome.err;
  }
}

TEST_F(CommandLine, AWrongPathLeavesNoDataFolder) {
  WriteFile(folder.File(u"text"), "no model, no database");
  for (const Words& words :
       {On({"import"}), On({"import"}, "@text", "@text", "Req"),
        Words{"doors", "modules", "--doors", "@text"}, Words{"dxl", "@none", "--doors", "@text"},
        Words{"packages", "--model", "@none"}}) {
    EXPECT_EQ(Run(words).status, 1);
    EXPECT_FALSE(std::filesystem::exists(At("data"))) << ::testing::PrintToString(words);
  }
}

TEST_F(BadCommands, NameAFileThatAnotherProgramHolds) {
  const Words import = On({"import"});
  for (const char* name : {"d.doors", "m.orim"}) {
    const Outcome outcome = [&] {
      standins::Database other = standins::Database::Open(At(name));
      other.Exec("BEGIN EXCLUSIVE");
      return Run(import);
    }();
    ExpectFailure(outcome, std::string(name) + ": another program is writing");
  }
  EXPECT_EQ(Run(import).status, 0);
}

/// Without the right of root to write everywhere, for as long as it lives.
class AsAnybody {
 public:
  AsAnybody() { EXPECT_TRUE(was_ != 0 || seteuid(65534) == 0); }
  ~AsAnybody() { EXPECT_EQ(seteuid(was_), 0); }

 private:
  uid_t was_ = geteuid();
};

TEST_F(BadCommands, NameWhatMayNotBeWritten) {
  const auto permit = [this](const std::filesystem::path& path, int mode) {
    std::filesystem::permissions(At("") / path, static_cast<std::filesystem::perms>(mode));
  };
  const auto import = [this] {
    const AsAnybody anybody;
    return Run(On({"import"}));
  };
  permit("", 0777);
  for (const auto& entry : std::filesystem::recursive_directory_iterator(At(""))) permit(entry.path(), 0777);
  const std::tuple<const char*, int, const char*> cases[] = {
      {"m.orim", 0444, "m.orim: the file cannot be written; make it and its folder writable"},
      {"", 0555, "m.orim: the file cannot be written; make it and its folder writable"},
      {"data/Temp", 0555,
       "DP1' cannot be written. Make room on its disk, see that its folder can be written"},
      {"data", 0444, "data/AppData: the folder cannot be made; see that the one above it can be written"},
  };
  for (const auto& [path, mode, says] : cases) {
    SCOPED_TRACE(path);
    permit(path, mode);
    const Outcome outcome = import();
    permit(path, 0777);
    ExpectFailure(outcome, says);
  }
  permit("d.doors", 0444);
  EXPECT_EQ(import().status, 0) << "an import only reads DOORS' database";
}

/// A small disk of its own, seen by this process alone, for as long as it lives.
class SmallDisk {
 public:
  explicit SmallDisk(const std::string& folder) : folder_(folder) {
    std::filesystem::create_directory(folder);
    is_there_ = unshare(CLONE_NEWNS) == 0 && mount("", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
                mount("tmpfs", folder.c_str(), "tmpfs", 0, "size=60k") == 0;
  }
  ~SmallDisk() {
    if (is_there_) umount2(folder_.c_str(), MNT_DETACH);
  }
  bool IsThere() const { return is_there_; }
  void Resize(const char* size) const { EXPECT_EQ(mount("", folder_.c_str(), "tmpfs", MS_REMOUNT, size), 0); }

 private:
  std::string folder_;
  bool is_there_;
};

TEST_F(BadCommands, AFullDiskIsNamedAndTheNextImportHeals) {
  const SmallDisk disk(At("small"));
  if (!disk.IsThere()) GTEST_SKIP() << "NOT RUN: a small disk cannot be mounted here, which takes root.";
  const auto import = [this](const char* model, const char* data) {
    return Run(On({"import", "--data", data}, model, "@d.doors", "Req"));
  };
  const auto tree = [this](const char* model) { return Do({"tree", "--model", model}); };
  std::filesystem::copy(At("m.orim"), At("small/m.orim"));
  for (const auto& [size, says] :
       {std::pair("size=60k", "m.orim: the file cannot be read or written; see that its disk has room"),
        std::pair("size=200k", "m.orim: the disk is full; make room, then try again")}) {
    disk.Resize(size);
    const Outcome cut_off = import("@small/m.orim", "@data");
    EXPECT_EQ(cut_off.status, 1);
    EXPECT_NE(cut_off.err.find(says), std::string::npos) << cut_off.err;
  }
  EXPECT_NE(tree("@small/m.orim"), tree("@m.orim")) << "cut off in the middle";
  disk.Resize("size=8m");
  EXPECT_EQ(import("@small/m.orim", "@data").status, 0);

  std::filesystem::copy(At("data"), At("small/data"), std::filesystem::copy_options::recursive);
  std::ofstream(At("small/filler")) << std::string(16'000'000, 'x');
  const Outcome without_export = import("@m.orim", "@small/data");
  EXPECT_EQ(without_export.status, 1);
  EXPECT_NE(without_export.err.find("cannot be written. Make room on its disk"), std::string::npos)
      << without_export.err;
  std::filesystem::remove(At("small/filler"));
  EXPECT_EQ(import("@m.orim", "@small/data").status, 0);

  EXPECT_EQ(tree("@small/m.orim"), tree("@m.orim"));
  const std::string healed = ReadFile(folder.File(u"small/m.orim"));
  EXPECT_EQ(import("@small/m.orim", "@data").status, 0);
  EXPECT_TRUE(ReadFile(folder.File(u"small/m.orim")) == healed);
}

TEST_F(BadCommands, EndWithOneWhereTheOutputCannotBeWritten) {
  std::istringstream in;
  std::ofstream full("/dev/full");
  std::ostringstream err;
  EXPECT_EQ(workbench::RunWorkbench({"tree", "--model", At("m.orim")}, {in, full, err}), 1);
  EXPECT_EQ(err.str(), "The output cannot be written.\n");
}

/// What a killed command leaves is in nobody's way.
TEST_F(CommandLine, CutOffCommandsLeaveNothingInTheWay) {
  for (const char16_t* left : {u"m.orim.part", u"m.orim.part-journal", u"d.doors.part"})
    WriteFile(folder.File(left), "half of it");
  Do({"new", "@m.orim", "--package", "Req"});
  Do({"doors", "load", Sample("resync-a.reqif"), "--doors", "@d.doors"});
  Do({"doors", "modules", "--doors", "@d.doors"});
  for (const char16_t* exported : {u"DP1", u"DP2"})
    WriteFile(folder.File(Text(u"data/Temp/") + exported), "");
  std::filesystem::last_write_time(ToPath(folder.File(u"data/Temp/DP1")),
                                   std::filesystem::file_time_type::clock::now() - std::chrono::hours(2));
  Do({"doors", "modules", "--doors", "@d.doors"});
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(ToPath(folder.Path())))
    if (entry.is_regular_file()) names.push_back(entry.path().filename().string());
  std::ranges::sort(names);
  EXPECT_EQ(names, (std::vector<std::string>{"DP2", "d.doors", "m.orim"})) << "DP2 may be under way";
}

// Where the add-in itself has something to say, its message box comes before the line.
TEST_F(BadCommands, AFullDiskKeepsTheOldLink) {
  const auto link_file = [this] {
    for (const auto& [path, content] : Files())
      if (path.ends_with(".xml") && content.starts_with("<?xml")) return std::pair(path, content);
    return std::pair<std::string, std::string>();
  };
  const auto old_link = link_file();
  const auto beside = std::filesystem::path(old_link.first).replace_extension(".new");
  std::filesystem::create_symlink("/dev/full", beside);
  const Words relink = On({"link", "--module", "/Demo/rmf-18a7243e-f39d-4356-a155-76ead45e4a45"});
  EXPECT_EQ(Run(relink).status, 1);
  EXPECT_EQ(link_file(), old_link);
  EXPECT_FALSE(std::filesystem::is_symlink(beside)) << "what was written beside is gone";
}

TEST_F(BadCommands, EndInAMessageAndALineAndWriteNothing) {
  const std::pair<Words, const char*> cases[] = {
      {On({"unlink", "--no"}), "\nThe package stays as it was.\n"},
      {On({"import"}, "@m.orim", "@bare.doors", "Req"), "Module '/Demo/Specification Document' not found."},
      {On({"options", "--template", "@text"}), "template"},
      {On({"options", "--template", "@template.txt"}), " --> Name"},
  };
  for (const auto& [words, says] : cases) {
    SCOPED_TRACE(::testing::PrintToString(words));
    const Outcome outcome = Fail(words, says);
    EXPECT_TRUE(outcome.err.starts_with("[Kestrune Link] ")) << outcome.err;
  }
}

}  // namespace
}  // namespace kestrune
