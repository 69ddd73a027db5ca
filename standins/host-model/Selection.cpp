#include "standins/host-model/Selection.h"

namespace kestrune::standins {

Selection ReadSelection(Database& model) {
  Statement row = model.Prepare("SELECT Selected_Package_ID, Context_Element_ID FROM t_session");
  if (!row.Step()) return {};
  return {row.Int(0), row.Int(1)};
}

void WriteSelection(Database& model, const Selection& selection) {
  model
      .Prepare("UPDATE t_session SET Selected_Package_ID = ?, Context_Element_ID = ?", selection.package_id,
               selection.element_id)
      .Run();
}

}  // namespace kestrune::standins
