// What the tests of the DOORS stand-in share: exchange files, new databases and short questions to them.
#pragma once

#include <gtest/gtest.h>

#include "platform/Files.h"
#include "standins/doors-database/LoadReqif.h"
#include "standins/doors-database/ModuleContent.h"
#include "tests/support/FailureOf.h"
#include "tests/support/TestPlatform.h"

namespace kestrune::standins {

using kestrune::testing::FailureOf;

inline Text ReqifFile(TextView name) {
  return FromPath(std::filesystem::path(KESTRUNE_SOURCE_DIR) / "tests/data/reqif" / ToPath(name));
}

class DoorsDatabaseTest : public ::testing::Test {
 protected:
  ModuleContent Content(TextView path) { return {database, database.FindPath(path)->id}; }

  /// The first column of the first row.
  Text Ask(std::string_view sql) {
    Statement row = database.Sql().PrepareOnce(sql);
    return row.Step() ? row.GetText(0) : Text(u"(no row)");
  }

  kestrune::testing::TempFolder folder;
  DoorsDatabase database = DoorsDatabase::Create(":memory:");
};

}  // namespace kestrune::standins
