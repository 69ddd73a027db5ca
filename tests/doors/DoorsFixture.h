// A DOORS that the dialogs which look for it, and ask it, can be tested against.
#pragma once

#include "doors/Doors.h"
#include "tests/support/TestPlatform.h"
#include "workbench/StandInObject.h"

namespace kestrune::testing {

/// DOORS as far as these dialogs see it: answers every script with the same text, or fails, and remembers
/// what it was asked.
class FakeDoors : public workbench::StandInObject<FakeDoors> {
 public:
  static constexpr const char16_t* kClassName = u"FakeDoors";
  static const Members& Table() {
    static const Members table = {
        {u"Result",
         {.Get = [](FakeDoors& self) { return Variant(self.Answer); },
          .Put = [](FakeDoors& self, const Variant& value) { self.Parameters.push_back(value.ToText()); }}},
        {u"RunStr",
         {.Call =
              [](FakeDoors& self, const Args& args) {
                self.Scripts.push_back(args[0].ToText());
                if (self.WhileRunning) self.WhileRunning();
                if (self.Failure) throw AutomationError(*self.Failure);
                return Variant();
              },
          .ArgCount = 1}},
    };
    return table;
  }
  Text Answer;
  std::vector<Text> Parameters;
  std::vector<Text> Scripts;
  std::function<void()> WhileRunning;
  std::optional<AutomationError> Failure;
};

inline constexpr std::uint32_t kMainWindow = 0x14CF0000;  // with WS_VISIBLE, which is outside of the mask

struct DoorsFixture : ::testing::Test, TestPlatform {
  DoorsFixture() { objects.objects[u"Doors.Application"] = application->AsObject(); }
  void OpenMainWindow() { desktop.AddWindow({u"DOORSWindow", kMainWindow}); }

  std::shared_ptr<FakeDoors> application = std::make_shared<FakeDoors>();
  Doors doors{platform};
};

}  // namespace kestrune::testing
