#include "standins/host-model/RepositoryObject.h"

#include "standins/host-model/ElementObject.h"
#include "standins/host-model/PackageObject.h"
#include "standins/host-model/RtfNotes.h"
#include "standins/host-model/Selection.h"

namespace kestrune::standins {

const RepositoryObject::Members& RepositoryObject::Table() {
  using Self = RepositoryObject;
  static const Members table = {
      {u"LibraryBuild", {.get = &Self::LibraryBuild}},
      {u"PackageByID", {.call = &Self::FindPackageById, .arg_count = 1}},
      {u"PackageByGuid", {.call = &Self::FindPackageByGuid, .arg_count = 1}},
      {u"ElementByID", {.call = &Self::FindElementById, .arg_count = 1}},
      {u"SelectedPackage", {.call = &Self::SelectedPackage}},
      {u"ContextItem", {.call = &Self::ContextItem}},
      {u"ContextItemType", {.call = &Self::ContextItemType}},
      {u"Query", {.call = &Self::Query, .arg_count = 1}},
      {u"CreateOutputTab", {.call = &Self::CreateOutputTab, .arg_count = 1}},
      {u"WriteOutput", {.call = &Self::WriteOutput, .arg_count = 3}},
      {u"RefreshModelView", {.call = &Self::RefreshModelView, .arg_count = 1}},
      {u"NotesFromFormat", {.call = &Self::NotesFromFormat, .arg_count = 2}},
  };
  return table;
}

Variant RepositoryObject::FindPackageById(const Args& args) {
  return PackageById(host_, args[0].ToInt());
}

Variant RepositoryObject::FindPackageByGuid(const Args& args) {
  return PackageByGuid(host_, args[0].ToText());
}

Variant RepositoryObject::FindElementById(const Args& args) {
  return ElementById(host_, args[0].ToInt());
}

Variant RepositoryObject::SelectedPackage(const Args&) {
  const Selection selection = ReadSelection(host_->model);
  if (selection.package_id == 0) return {};
  return PackageById(host_, selection.package_id);
}

Variant RepositoryObject::ContextItem(const Args&) {
  const Selection selection = ReadSelection(host_->model);
  if (selection.Type() == ContextType::kElement) return ElementById(host_, selection.element_id);
  return SelectedPackage();
}

Variant RepositoryObject::ContextItemType(const Args&) {
  return static_cast<std::int32_t>(ReadSelection(host_->model).Type());
}

Variant RepositoryObject::Query(const Args& args) {
  return QueryXml(host_->model, args[0].ToText(), host_->columns);
}

Variant RepositoryObject::CreateOutputTab(const Args& args) {
  host_->output_tabs.try_emplace(args[0].ToText());
  return {};
}

Variant RepositoryObject::WriteOutput(const Args& args) {
  const Text tab = args[0].ToText();
  const auto found = host_->output_tabs.find(tab);
  if (found == host_->output_tabs.end()) RefuseByHost(u"There is no output tab \"" + tab + u"\"");
  found->second.push_back({args[1].ToText(), args[2].ToInt()});
  return {};
}

Variant RepositoryObject::RefreshModelView(const Args& args) {
  host_->refreshed_packages.push_back(args[0].ToInt());
  return {};
}

Variant RepositoryObject::NotesFromFormat(const Args& args) {
  const Text format = args[0].ToText();
  if (format != u"RTF") RefuseByHost(u"The format \"" + format + u"\" cannot be converted");
  return NotesFromRtf(args[1].ToText());
}

}  // namespace kestrune::standins
