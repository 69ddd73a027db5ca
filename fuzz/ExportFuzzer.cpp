// An export file.
#include "documents/DoorsDoc.h"
#include "fuzz/FakeRepository.h"
#include "fuzz/Fuzz.h"
#include "standins/desktop/FixedFolders.h"
#include "standins/desktop/ScriptedDesktop.h"

namespace kestrune::fuzz {

namespace {

struct NoObjects : ObjectFactory {
  Object Create(TextView prog_id) override {
    throw AutomationError(error::kNoSuchClass, u"fuzz", Text(prog_id));
  }
};

void RequireSound(const DataTable& table) {
  for (std::size_t row = 1; row <= table.UpperRow(); ++row) {
    for (std::size_t column = 0; column <= column::kFirstMapped + 1; ++column) table.At(row, column).ToText();
    const std::int32_t position = table.At(row, column::kPosition).ToInt();
    Require(position >= 10 && position % 10 == 0, "every object has a position among its siblings");
  }
}

}  // namespace

void Fuzz(std::string_view input) {
  static const standins::FixedFolders folders(Scratch());
  static standins::ScriptedDesktop desktop([](const std::string& what) { Require(false, what.c_str()); });
  static NoObjects objects;
  const Platform platform{desktop, folders, objects};
  Doors doors(platform);
  Options options(doors);
  options.ResetToDefaults();
  DoorsDoc doc;
  for (const TextView fixed : kFixedRules) doc.AddField(ColumnOf(*ParseRule(fixed)));
  doc.AddField(ColumnOf(*ParseRule(u"Object Number [: Object Heading] --> Name")));
  doc.AddField(ColumnOf(*ParseRule(u"Object Text --> Notes")));
  try {
    doc.Load(FileOf(input), options, platform, RepositoryThatAnswers({}));
  } catch (const AutomationError& failure) {
    Require(failure.Number == error::kBadExport, "an export that cannot be read is called so");
    return;
  }
  RequireSound(doc.GetData());
}

}  // namespace kestrune::fuzz
