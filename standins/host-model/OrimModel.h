// A stand-in Orim Studio with one model open: the host as its
// add-ins see it, on a machine where it cannot be installed.
#pragma once

#include <filesystem>

#include "standins/host-model/Host.h"
#include "standins/host-model/ModelTree.h"

namespace kestrune::standins {

struct PackageInfo {
  std::int32_t id;
  std::int32_t parent_id;   // 0 for a root package
  std::int32_t element_id;  // of the package's own element
  Text guid;
  Text name;
  Text path;  // the names from the root package down, with "/" between them
};

/// The model is an SQLite file with the host's tables; everything that an add-in does goes through
/// Repository(). The other operations are those of the person at the host's window, and of the test that
/// watches. All failures are AutomationErrors.
///
/// Not modelled: diagrams, deletion of elements and packages, several users, locks that packages pass on to
/// the packages within them.
class OrimModel {
 public:
  /// A new model; ":memory:" makes one that is never a file. An existing file is refused.
  static OrimModel Create(const std::filesystem::path& path);
  /// Refuses, with the reason in one line, what is not a model; then nothing is written or made.
  static OrimModel Open(const std::filesystem::path& path);

  Object Repository() const;
  /// How many of its objects somebody holds.
  long HeldObjects() const { return host_.use_count() - 1; }

  /// The new package's id; `parent_id` 0 makes a root package.
  std::int32_t AddPackage(std::int32_t parent_id, TextView name);
  /// In the order of their making.
  std::vector<PackageInfo> Packages() const;
  /// The package with that path or, where no path fits, the
  /// only one with that name; refused when there is none.
  PackageInfo FindPackage(TextView path_or_name) const;
  std::vector<TreeItem> Tree(std::int32_t package_id) const;

  /// The selection is the package itself; 0 selects nothing.
  void SelectPackage(std::int32_t package_id);
  /// The selection is the element, in the package in which it lies.
  void SelectElement(std::int32_t element_id);
  /// Locks or unlocks an element; a package is locked by its own element.
  void SetLocked(std::int32_t element_id, bool locked);

  HostCounters& Counters() { return host_->counters; }
  HostFaults& Faults() { return host_->faults; }
  void SetLibraryBuild(std::int32_t build) { host_->library_build = build; }
  void SetColumnSpelling(ColumnSpelling spelling) { host_->columns = spelling; }
  /// What was written to an output tab; refused when the tab was never made.
  const std::vector<OutputLine>& OutputLines(TextView tab) const;
  /// The ids with which the view was refreshed, in order.
  const std::vector<std::int32_t>& RefreshedPackages() const { return host_->refreshed_packages; }

 private:
  explicit OrimModel(HostPtr host) : host_(std::move(host)) {}
  HostPtr host_;
};

}  // namespace kestrune::standins
