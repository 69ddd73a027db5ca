#include "standins/host-model/RepositoryObject.h"

#include "standins/host-model/ElementObject.h"
#include "standins/host-model/PackageObject.h"
#include "standins/host-model/RtfNotes.h"
#include "standins/host-model/Selection.h"

namespace kestrune::standins {

const RepositoryObject::Members& RepositoryObject::Table() {
  using Self = RepositoryObject;
  static const Members table = {
      {u"LibraryBuild", {.Get = &Self::LibraryBuild}},
      {u"PackageByID", {.Call = &Self::FindPackageById, .ArgCount = 1}},
      {u"PackageByGuid", {.Call = &Self::FindPackageByGuid, .ArgCount = 1}},
      {u"ElementByID", {.Call = &Self::FindElementById, .ArgCount = 1}},
      {u"SelectedPackage", {.Call = &Self::SelectedPackage}},
      {u"ContextItem", {.Call = &Self::ContextItem}},
      {u"ContextItemType", {.Call = &Self::ContextItemType}},
      {u"Query", {.Call = &Self::Query, .ArgCount = 1}},
      {u"CreateOutputTab", {.Call = &Self::CreateOutputTab, .ArgCount = 1}},
      {u"WriteOutput", {.Call = &Self::WriteOutput, .ArgCount = 3}},
      {u"RefreshModelView", {.Call = &Self::RefreshModelView, .ArgCount = 1}},
      {u"NotesFromFormat", {.Call = &Self::NotesFromFormat, .ArgCount = 2}},
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
  const Selection selection = ReadSelection(host_->Model);
  if (selection.PackageId == 0) return {};
  return PackageById(host_, selection.PackageId);
}

Variant RepositoryObject::ContextItem(const Args&) {
  const Selection selection = ReadSelection(host_->Model);
  if (selection.Type() == ContextType::kElement) return ElementById(host_, selection.ElementId);
  return SelectedPackage();
}

Variant RepositoryObject::ContextItemType(const Args&) {
  return static_cast<std::int32_t>(ReadSelection(host_->Model).Type());
}

Variant RepositoryObject::Query(const Args& args) {
  return QueryXml(host_->Model, args[0].ToText(), host_->Columns);
}

Variant RepositoryObject::CreateOutputTab(const Args& args) {
  host_->OutputTabs.try_emplace(args[0].ToText());
  return {};
}

Variant RepositoryObject::WriteOutput(const Args& args) {
  const Text tab = args[0].ToText();
  const auto found = host_->OutputTabs.find(tab);
  if (found == host_->OutputTabs.end()) RefuseByHost(u"There is no output tab \"" + tab + u"\"");
  found->second.push_back({args[1].ToText(), args[2].ToInt()});
  return {};
}

Variant RepositoryObject::RefreshModelView(const Args& args) {
  host_->RefreshedPackages.push_back(args[0].ToInt());
  return {};
}

Variant RepositoryObject::NotesFromFormat(const Args& args) {
  const Text format = args[0].ToText();
  if (format != u"RTF") RefuseByHost(u"The format \"" + format + u"\" cannot be converted");
  return NotesFromRtf(args[1].ToText());
}

}  // namespace kestrune::standins
