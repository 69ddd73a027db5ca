// A package that is linked to the generated module, with the add-in around it as in the host.
#pragma once

#include "bench/Cost.h"
#include "bench/Module.h"
#include "documents/OrimDoc.h"
#include "doors/Doors.h"
#include "standins/desktop/FixedFolders.h"
#include "standins/desktop/ScriptedDesktop.h"
#include "standins/host-model/OrimModel.h"

namespace kestrune::bench {

/// Makes a model with one linked package, its rules those of the module. `folder` keeps the link.
void MakeLinkedPackage(const Text& folder, const Text& model_path, const Module& module);

/// That package, with a DOORS that answers the export script with a file that is there already: the cost of
/// the script is not in what is measured here. A message box that comes unexpected throws std::runtime_error.
class LinkedPackage : private ObjectFactory {
 public:
  LinkedPackage(const Text& folder, const Text& model_path);

  /// The whole import as the user starts it, from the open window to its end.
  Cost Import(const Text& export_path);
  /// The part of it that reads the export.
  Cost LoadExport(const Text& export_path);
  /// The part of it that reads the package.
  Cost ReadPackage();
  /// The host's answer to the one query that this needs, and bare parsing of it.
  Cost QueryBare();

 private:
  Object Create(TextView prog_id) override;
  orim::Package Package() const { return repository_.SelectedPackage(); }
  /// `work` with what it asks of the host.
  Cost MeasureWithHost(const std::function<void()>& work);

  Text export_path_;
  standins::ScriptedDesktop desktop_;
  standins::FixedFolders folders_;
  Platform platform_{desktop_, folders_, *this};
  Doors doors_{platform_};
  standins::OrimModel model_;
  double host_seconds_ = 0;
  orim::Repository repository_;
};

}  // namespace kestrune::bench
