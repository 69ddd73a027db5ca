// The files that the measurements share.
#pragma once

#include <optional>

#include "bench/Cost.h"
#include "bench/GeneratedModule.h"

namespace kestrune::bench {

/// A folder that is there as long as this. What it holds
/// is made when it is first asked for, in a child process.
class Workspace {
 public:
  Workspace();
  ~Workspace();
  Workspace(const Workspace&) = delete;
  Workspace& operator=(const Workspace&) = delete;

  Text Path() const;
  /// An export of the module.
  Text Export(const Module& module, int objects, Edition edition) const;
  /// A model with a linked package into which nothing has been imported.
  Text EmptyModel(const Module& module) const;
  /// A model whose linked package is in line with the module's first edition.
  Text ImportedModel(const Module& module, int objects) const;
  /// Takes `model` for that, unless there is one.
  void KeepImported(const Text& model, const Module& module, int objects) const;
  /// A copy of a model, for whoever changes it. There is one at a time.
  Text CopyOf(const Text& model) const;

 private:
  static std::string ImportedName(const Module& module, int objects) {
    return module.name + "-" + std::to_string(objects) + ".orim";
  }
  Text Made(const std::string& name, const std::function<void(const Text& path)>& make) const;

  std::filesystem::path folder_;
};

}  // namespace kestrune::bench
