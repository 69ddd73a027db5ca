// A linked module that is edited at random, and what its package must be after each import.
#pragma once

#include "tests/workbench/RandomEdits.h"

namespace kestrune::testing {

struct RandomScene {
  /// The model is kept in memory where no file is named.
  explicit RandomScene(unsigned seed, const std::filesystem::path& model_file = ":memory:")
      : setup(model_file), edits(seed, doors, module) {
    doors.AddView(u"Open", {{u"Status", u"equals", u"Open"}});
    doors.AddView(u"Marked", {{u"Remark", u"contains", u"x"}, {u"Status", u"not equals", u"Closed"}});
    setup.mapping = {u"Absolute Number [: Object Heading] --> Name",
                     u"Object Text --> Notes",
                     u"Status --> Status",
                     u"Owner --> Alias",
                     u"Remark [/ Extra] --> (Tagged Value)",
                     u"Rationale --> (Tagged Value)"};
    setup.Link(doors.Path());
  }

  void EditModule(int more) {
    for (int count = 1 + edits.Roll(6) + more; count > 0; --count) edits.EditOnce();
    // An open module goes on showing what it was when it was opened.
    setup.doors.UserClosesAll();
  }
  void ChangeView() {
    static const std::vector<Text> kNames = {u"Standard view", u"Open", u"Marked"};
    setup.view = kNames[static_cast<std::size_t>(edits.Roll(3))];
    setup.EditOptions();
  }

  /// Brings the expectation up to date with the module; returns the messages that the import must show.
  std::vector<Text> Expect() {
    PackageState now =
        module.Package(ShownByView(), [this](int n, const ReferenceObject& o) { return ValuesOf(n, o); });
    long long archived = 0, restored = 0;
    for (auto& [identifier, element] : expected) {
      const auto found = now.find(identifier);
      if (found != now.end()) {
        restored += element.in_trash;
        continue;
      }
      archived += !element.in_trash;
      element.in_trash = true;
      now.emplace(identifier, element);
    }
    expected = std::move(now);
    std::vector<Text> messages;
    if (archived > 0)
      messages.push_back(ToText(archived) +
                         u" item(s) no longer appear in the DOORS module and their corresponding Orim "
                         u"entries\r\nhave been moved to the 'Trash Can' package.");
    if (restored > 0)
      messages.push_back(ToText(restored) + u" item(s) restored from the 'Trash Can' package.");
    return messages;
  }

  PackageState Read(int* strays = nullptr) const {
    return ReadPackage(setup, {u"Name", u"Notes", u"Status", u"Alias"}, strays);
  }

  /// Imports twice: the first must bring the package into line with the module, the second find nothing to do.
  void ImportAndCheck() {
    const auto messages = Expect();
    const ImportRun run = setup.Import();
    EXPECT_TRUE(run.completed);
    EXPECT_EQ(run.messages, messages);
    EXPECT_FALSE(run.HasLine(u"ERROR"));
    ExpectPackage(Read(), expected);

    const ImportRun again = setup.Import();
    EXPECT_TRUE(again.completed);
    EXPECT_EQ(again.writes, 0);
    EXPECT_TRUE(again.messages.empty());
  }

  EndToEnd setup;
  DoorsModule doors{setup.database, u"M"};
  ReferenceModule module;
  RandomEdits edits;
  PackageState expected;

 private:
  ReferenceView ShownByView() const {
    if (setup.view == u"Open")
      return [](const ReferenceObject& object) { return object.Value(u"Status") == u"Open"; };
    if (setup.view == u"Marked")
      return [](const ReferenceObject& object) {
        return object.Value(u"Remark").find(u'x') != Text::npos && object.Value(u"Status") != u"Closed";
      };
    return {};
  }

  std::map<Text, Text> ValuesOf(int number, const ReferenceObject& object) const {
    const auto value = [&](const Text& attribute) { return module.InTheHost(object.Value(attribute)); };
    const Text heading = value(u"Object Heading");
    const Text extra = value(u"Extra");
    return {{u"Name", ToText(number) + (heading.empty() ? heading : u": " + heading)},
            {u"Notes", value(u"Object Text")},
            {u"Status", value(u"Status")},
            {u"Alias", value(u"Owner")},
            {u"Remark", value(u"Remark") + (extra.empty() ? extra : u"/ " + extra)},
            {u"Rationale", value(u"Rationale")}};
  }
};

}  // namespace kestrune::testing
