// An exchange file, plain or in an archive, loaded twice.
#include "fuzz/Fuzz.h"
#include "standins/doors-database/LoadReqif.h"

namespace kestrune::fuzz {

namespace {

std::int32_t Items(standins::DoorsDatabase& database) {
  standins::Statement count = database.Sql().Prepare("SELECT count(*) FROM item");
  count.Step();
  return count.Int(0);
}

}  // namespace

void Fuzz(std::string_view input) {
  auto database = standins::DoorsDatabase::Create(":memory:");
  const std::int32_t at_first = Items(database);
  try {
    const auto first = standins::LoadReqif(database, FileOf(input), u"/P");
    const auto second = standins::LoadReqif(database, FileOf(input), u"/P");
    Require(first.size() == second.size(), "the same file has the same modules");
    for (const auto& module : second)
      Require(module.added + module.restored + module.removed == 0, "the same file changes nothing");
  } catch (const AutomationError&) {
    Require(Items(database) == at_first, "a file that is refused leaves nothing behind");
  }
}

}  // namespace kestrune::fuzz
