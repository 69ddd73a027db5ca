// A script in DXL, run for a while in a DOORS with one module.
#include "fuzz/Fuzz.h"
#include "standins/doors-database/DoorsStandIn.h"
#include "tests/workbench/DoorsModule.h"

namespace kestrune::fuzz {

namespace {

constexpr std::size_t kLongLog = 10'000'000;

/// No documents: a script could write them to any file.
struct NoObjects : ObjectFactory {
  Object Create(TextView prog_id) override {
    throw AutomationError(error::kNoSuchClass, u"fuzz", Text(prog_id));
  }
};

/// In memory.
standins::DoorsDatabase& Database() {
  static auto database = standins::DoorsDatabase::Create(":memory:");
  if (database.FindPath(u"/P/M")) return database;
  testing::DoorsModule module(database, u"M");
  module.AddAttribute(u"Status");
  for (const int number : {1, 2, 3}) module.AddObject(number, number / 2, number);
  module.AddObject(4, 1, 4, u"table");
  module.Set(1, u"Object Heading", u"Scope");
  module.Set(2, u"Object Text", u"a {\\b text}");
  module.Set(3, u"Status", u"Open");
  module.SetDeleted(3, true);
  module.AddView(u"Open", {{u"Status", u"equals", u"Open"}});
  return database;
}

}  // namespace

void Fuzz(std::string_view input) {
  static NoObjects objects;
  static std::optional<standins::DoorsStandIn> doors;
  if (!doors || doors->Log().size() > kLongLog) doors.emplace(Database(), u"/nowhere/", objects);
  // A script may ask for as long a run as it likes; one that does is not begun.
  const bool is_endless = input.find("runLim") != std::string_view::npos;
  const Text limit = is_endless ? u"void notRun() {\n" : u"pragma runLim, 20000\n";
  doors->RunScript(limit + FromUtf8(input) + (is_endless ? u"\n}" : u""), u"/P/M~0~", u"script");
  Require(doors->Cost().peak_bytes <= dxl::kDefaultMemoryLimit, "a script keeps to its memory");
  doors->UserClosesAll();
}

}  // namespace kestrune::fuzz
