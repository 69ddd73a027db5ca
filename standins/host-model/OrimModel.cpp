#include "standins/host-model/OrimModel.h"

#include <unordered_map>

#include "standins/host-model/ElementTable.h"
#include "standins/host-model/Guid.h"
#include "standins/host-model/PackageTable.h"
#include "standins/host-model/RepositoryObject.h"
#include "standins/host-model/Schema.h"
#include "standins/host-model/Selection.h"

namespace kestrune::standins {

OrimModel OrimModel::Create(const std::filesystem::path& path) {
  HostPtr host(new Host{.model = Database::Create(path)});
  CreateSchema(host->model);
  host->model.FavourSpeed();
  return OrimModel(std::move(host));
}

OrimModel OrimModel::Open(const std::filesystem::path& path) {
  HostPtr host(new Host{.model = Database::Open(path)});
  host->model.RequireWritable();
  try {
    CheckSchema(host->model);
  } catch (const FileBlocked&) {
    throw;
  } catch (const AutomationError& e) {
    RefuseByHost(PathText(path) + u" is no model: " + e.Description);
  }
  host->model.FavourSpeed();
  return OrimModel(std::move(host));
}

Object OrimModel::Repository() const {
  return std::make_shared<RepositoryObject>(host_)->AsObject();
}

std::int32_t OrimModel::AddPackage(std::int32_t parent_id, TextView name) {
  PackageRow row;
  row.parent_id = parent_id;
  row.guid = NewGuid();
  row.name = name;
  SavePackage(host_->model, row);
  return row.id;
}

std::vector<PackageInfo> OrimModel::Packages() const {
  Statement rows = host_->model.Prepare(
      "SELECT Package_ID, Parent_ID, Element_ID, Guid, Name FROM t_package ORDER BY Package_ID");
  std::vector<PackageInfo> packages;
  std::unordered_map<std::int32_t, Text> path_starts = {{0, u""}};  // a package is made after its parent
  while (rows.Step()) {
    PackageInfo package{rows.Int(0), rows.Int(1), rows.Int(2), rows.GetText(3), rows.GetText(4), u""};
    package.path = path_starts[package.parent_id] + package.name;
    path_starts[package.id] = package.path + u"/";
    packages.push_back(std::move(package));
  }
  return packages;
}

PackageInfo OrimModel::FindPackage(TextView path_or_name) const {
  std::vector<PackageInfo> named;
  for (PackageInfo& package : Packages()) {
    if (package.path == path_or_name) return package;
    if (package.name == path_or_name) named.push_back(std::move(package));
  }
  if (named.empty()) RefuseByHost(Text(u"There is no package \"").append(path_or_name) + u"\"");
  if (named.size() > 1) RefuseByHost(Text(u"Several packages are named \"").append(path_or_name) + u"\"");
  return named.front();
}

std::vector<TreeItem> OrimModel::Tree(std::int32_t package_id) const {
  return ListTree(host_->model, package_id);
}

void OrimModel::SelectPackage(std::int32_t package_id) {
  if (package_id != 0 && !standins::FindPackage(host_->model, package_id))
    RefuseByHost(u"Package " + ToText(package_id) + u" does not exist");
  WriteSelection(host_->model, {package_id, 0});
}

void OrimModel::SelectElement(std::int32_t element_id) {
  const std::optional<ElementRow> row = FindElement(host_->model, element_id);
  if (!row) RefuseByHost(u"Element " + ToText(element_id) + u" does not exist");
  WriteSelection(host_->model, {row->fields[kPackageField].ToInt(), element_id});
}

void OrimModel::SetLocked(std::int32_t element_id, bool locked) {
  host_->model.Prepare("UPDATE t_object SET Locked = ? WHERE Object_ID = ?", locked, element_id).Run();
  if (host_->model.Changes() == 0) RefuseByHost(u"Element " + ToText(element_id) + u" does not exist");
}

const std::vector<OutputLine>& OrimModel::OutputLines(TextView tab) const {
  const auto found = host_->output_tabs.find(tab);
  if (found == host_->output_tabs.end()) RefuseByHost(Text(u"There is no output tab \"").append(tab) + u"\"");
  return found->second;
}

}  // namespace kestrune::standins
