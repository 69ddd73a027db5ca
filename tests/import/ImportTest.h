// An import into a linked package with a record of rules, from
// a DOORS that answers the export script without running it.
#pragma once

#include "common/LinkFile.h"
#include "doors/frmConnectProgress.h"
#include "import/frmImport.h"
#include "options/frmOptions.h"
#include "tests/support/SimulatedDoors.h"
#include "tests/support/TestHost.h"

namespace kestrune::testing {

struct ImportFixture : ::testing::Test, TestPlatform, TestHost {
  ImportFixture() {
    // a0 to a12
    application->attributes = Split(
        u"Absolute Number|Object Identifier|Object Number|Object Level|Object Text|Object Short Text|"
        u"Created By|Created On|Last Modified On|Object Heading|Object Parent|Object Text (Formatted)|Mood",
        u"|");
    repository.CreateOutputTab(u"DOORS");
    desktop.AddWindow({u"DOORSWindow", 0x04CF0000});
    objects.objects[u"Doors.Application"] = application->AsObject();
    SaveLinkFile(platform, Guid(), u"/P/M");
  }

  /// Selects a new package that is linked to the same module.
  void GoOnWithAnotherPackage() {
    package_id = model.AddPackage(0, u"Another");
    model.SelectPackage(package_id);
    SaveLinkFile(platform, Guid(), u"/P/M");
  }

  /// Stores a record with these rules, so that no dialog opens before the import.
  void StoreRules(const std::vector<Text>& rules, const Text& view = u"") {
    Options options(doors);
    options.LoadDefault(Package());
    options.Rules.resize(Options::kFirstUserSlot);
    for (const Text& rule : rules) options.AddMapping(rule);
    options.RestrictToView = view;
    options.Save();
  }

  /// Runs the import as the user sees it and returns the window's lines.
  std::vector<Text> Import(std::int32_t direction = 0) {
    std::vector<Text> lines;
    frmImport form(doors);
    desktop.OnForm<frmImport>([&](frmImport& opened) {
      EXPECT_FALSE(opened.cmdClose.Enabled());
      for (const auto& [body, answer] : expected_) desktop.OnMessage(body, answer);
      desktop.Tick();
      lines = opened.List1.Items();
      if (!opened.IsOpen()) return;
      EXPECT_TRUE(opened.cmdClose.Enabled());
      opened.cmdClose.Press();
    });
    form.Transfer(repository, direction);
    expected_.clear();
    return lines;
  }

  /// The writes of one more import.
  long long WritesOfAnImport() {
    model.Counters().Reset();
    Import();
    return model.Counters().Writes();
  }

  static bool HasLine(const std::vector<Text>& lines, const Text& line) {
    return std::find(lines.begin(), lines.end(), line) != lines.end();
  }

  static std::vector<Text> LinesThatBegin(TextView beginning, std::vector<Text> lines) {
    std::erase_if(lines, [&](const Text& line) { return !line.starts_with(beginning); });
    return lines;
  }

  /// What the next import must ask or say, in this order.
  void NextMessage(Text body, Answer answer = Answer::kOk) {
    expected_.emplace_back(std::move(body), answer);
  }

  /// The element tree as text: a line each, two blanks per
  /// level, "[identifier] name", child packages by name.
  std::string Tree() const {
    std::string text;
    for (const auto& item : model.Tree(package_id)) {
      text += std::string(2 * static_cast<std::size_t>(item.depth), ' ');
      for (const auto& tag : item.tagged_values)
        if (tag.name == u"Object Identifier") text += "[" + ToUtf8(tag.value) + "] ";
      text += ToUtf8(item.name) + "\n";
    }
    return text;
  }

  orim::Element ElementOf(const Text& identifier) const {
    for (const auto& item : model.Tree(package_id))
      for (const auto& tag : item.tagged_values)
        if (tag.name == u"Object Identifier" && tag.value == identifier)
          return repository.ElementByID(item.id);
    ADD_FAILURE() << "no element for " << ToUtf8(identifier);
    return {};
  }

  orim::Package MakePackage(const Text& name) const {
    const orim::Package made = Package().Packages().AddNew(name, u"");
    made.Save();
    return made;
  }
  void MoveTo(const orim::Element& element, const orim::Package& package) const {
    const orim::Element moved = repository.ElementByID(element.ElementID());
    moved.SetPackageID(package.PackageID());
    moved.Save();
  }
  orim::Package Trash() const { return Package().Packages().Find(u"Trash Can"); }

  std::shared_ptr<SimulatedDoors> application = std::make_shared<SimulatedDoors>(folder.File(u"DP1"));
  Doors doors{platform};

 private:
  std::vector<std::pair<Text, Answer>> expected_;
};

/// An object whose heading is "n" and its identifier.
inline ExportedObject Exported(const Text& identifier, const Text& parent = u"", const Text& mood = u"calm") {
  return {{"a0", u"7"}, {"a1", identifier}, {"a9", u"n" + identifier}, {"a10", parent}, {"a12", mood}};
}

/// Such objects, "B<A" for a B below A.
inline std::vector<ExportedObject> ObjectsOf(TextView objects) {
  std::vector<ExportedObject> exported;
  for (const Text& each : Split(objects, u" ")) {
    const auto parts = Split(each, u"<");
    exported.push_back(Exported(parts.front(), parts.size() == 1 ? u"" : parts.back()));
  }
  return exported;
}

}  // namespace kestrune::testing
