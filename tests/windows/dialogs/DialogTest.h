// The base of the dialogs' tests.
#pragma once

#include <gtest/gtest.h>

#include "tests/windows/dialogs/DialogStage.h"

namespace kestrune::testing {

class DialogTest : public ::testing::Test, protected DialogStage {};

}  // namespace kestrune::testing
