// A DOORS for the dialogs that look for it and ask it: it answers every script with the same text.
#pragma once

#include "doors/Doors.h"
#include "tests/support/SimulatedDoors.h"
#include "tests/support/TestPlatform.h"

namespace kestrune::testing {

inline constexpr std::uint32_t kMainWindow = 0x14CF0000;  // with WS_VISIBLE, which is outside of the mask

struct DoorsFixture : ::testing::Test, TestPlatform {
  DoorsFixture() { StartDoors(u"/P/A\n/P/B\n"); }
  void StartDoors(const Text& answer) {
    application = std::make_shared<SimulatedDoors>();
    application->answer_instead = answer;
    objects.objects[u"Doors.Application"] = application->AsObject();
  }
  void OpenMainWindow() { desktop.AddWindow({u"DOORSWindow", kMainWindow}); }

  std::shared_ptr<SimulatedDoors> application;
  Doors doors{platform};
};

}  // namespace kestrune::testing
