// A small module at some points of its life, each with an import still to come, and the package that must
// come of it.
#pragma once

#include "tests/workbench/PackageState.h"

namespace kestrune::testing {

enum class Stage { kWithoutRules, kFromEmpty, kOfChanges, kOfAReturn };

struct FaultScene {
  explicit FaultScene(Stage stage) {
    Make();
    if (stage == Stage::kWithoutRules) return;
    // Whoever looks at the options from now on leaves the rules as they are.
    setup.EditOptions();
    setup.mapping.clear();
    if (stage == Stage::kFromEmpty) return;
    EXPECT_TRUE(setup.Import().completed);
    Change();
    if (stage == Stage::kOfChanges) return;
    EXPECT_TRUE(setup.Import().completed);
    BringBack();
  }

  PackageState Read(int* strays) const { return ReadPackage(setup, {u"Name", u"Notes"}, strays); }

  /// One import more, with nothing in its way, brings everything right; then there is nothing left to do.
  void ExpectHealed() {
    setup.model.Faults().Clear();
    EXPECT_TRUE(setup.Import().completed);
    int strays = 0;
    ExpectPackage(Read(&strays), state);
    EXPECT_EQ(setup.Import().writes, 0);
    int records = 0;
    const auto tagged_values = setup.Package().Element().TaggedValues();
    for (std::int32_t i = 0; i < tagged_values.Count(); ++i)
      records += tagged_values.GetAt(i).Name() == u"DoorsConnection";
    EXPECT_EQ(records, 1);
  }

  EndToEnd setup;
  DoorsModule module{setup.database, u"M"};
  PackageState state;  // of the package in the end

 private:
  /// Four objects, one of them with a text that needs a memo.
  void Make() {
    module.AddAttribute(u"Remark");
    module.AddObject(1, 0, 1);
    module.AddObject(2, 1, 1);
    module.AddObject(3, 1, 2);
    module.AddObject(4, 0, 2);
    module.Set(1, u"Object Heading", u"Scope");
    module.Set(2, u"Object Text", u"first");
    module.Set(3, u"Remark", kLong);
    setup.mapping = {u"Absolute Number [: Object Heading] --> Name", u"Object Text --> Notes",
                     u"Remark --> (Tagged Value)"};
    setup.Link(module.Path());
    state[u"R1"] = {.position = 10, .values = {{u"Name", u"1: Scope"}}};
    state[u"R2"] = {.parent = u"R1", .position = 10, .values = {{u"Name", u"2"}, {u"Notes", u"first"}}};
    state[u"R3"] = {.parent = u"R1", .position = 20, .values = {{u"Name", u"3"}, {u"Remark", kLong}}};
    state[u"R4"] = {.position = 20, .values = {{u"Name", u"4"}}};
  }

  /// An object goes, one comes, its children move, values change.
  void Change() {
    module.SetDeleted(1, true);
    module.Place(2, 4, 1);
    module.Place(3, 0, 3);
    module.Set(2, u"Object Text", u"second");
    module.Set(3, u"Remark", u"short");
    module.Set(4, u"Remark", kLong);
    module.AddObject(5, 4, 2);
    module.Set(5, u"Object Heading", u"New");
    state[u"R1"].in_trash = true;
    state[u"R2"] = {.parent = u"R4", .position = 10, .values = {{u"Name", u"2"}, {u"Notes", u"second"}}};
    state[u"R3"] = {.position = 20, .values = {{u"Name", u"3"}, {u"Remark", u"short"}}};
    state[u"R4"] = {.position = 10, .values = {{u"Name", u"4"}, {u"Remark", kLong}}};
    state[u"R5"] = {.parent = u"R4", .position = 20, .values = {{u"Name", u"5: New"}}};
  }

  /// The object that went is there again, and a value as well.
  void BringBack() {
    module.SetDeleted(1, false);
    module.Set(2, u"Remark", u"now");
    state[u"R1"].in_trash = false;
    state[u"R4"].position = 20;
    state[u"R3"].position = 30;
    state[u"R2"].values[u"Remark"] = u"now";
  }

  const Text kLong = Text(300, u'l');
};

}  // namespace kestrune::testing
