#include "bench/ExportScript.h"

#include "common/Resources.h"
#include "platform/Files.h"
#include "standins/doors-database/DoorsStandIn.h"
#include "standins/doors-database/xml/DomDocument.h"

namespace kestrune::bench {

namespace {

class DomFactory : public ObjectFactory {
 public:
  Object Create(TextView) override { return standins::MakeDomDocument(); }
};

}  // namespace

Cost RunExportScript(const Workspace& workspace, int objects) {
  auto database = standins::DoorsDatabase::Create(":memory:");
  FillDatabase(database, objects);
  DomFactory documents;
  standins::DoorsStandIn doors(database, workspace.Path(), documents);
  standins::ScriptOutcome outcome;
  const Cost cost = Measure([&] {
    outcome = doors.RunScript(LoadDxl(dxl_script::kExportModule), Text(kModulePath) + u"~0~~", u"export");
  });
  if (!outcome.errors.empty() || !IsFile(outcome.result))
    throw std::runtime_error("the export script failed: " + ToUtf8(outcome.result));
  if (ReadFile(outcome.result) != ReadFile(workspace.Export(kRequirements, objects, Edition::kFirst)))
    throw std::runtime_error("the export script writes another file than the generator");
  RemoveFile(outcome.result);
  return cost;
}

}  // namespace kestrune::bench
