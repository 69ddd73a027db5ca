// The root of the host's automation.
#pragma once

#include "standins/host-model/Host.h"

namespace kestrune::standins {

class RepositoryObject : public HostObject<RepositoryObject> {
 public:
  static constexpr const char16_t* kClassName = u"Repository";
  static const Members& Table();

  explicit RepositoryObject(HostPtr host) : HostObject(std::move(host)) {}

 private:
  Variant LibraryBuild() { return host_->library_build; }
  Variant FindPackageById(const Args& args);
  Variant FindPackageByGuid(const Args& args);
  Variant FindElementById(const Args& args);
  Variant SelectedPackage(const Args& = {});
  Variant ContextItem(const Args&);
  Variant ContextItemType(const Args&);
  Variant Query(const Args& args);
  Variant CreateOutputTab(const Args& args);
  Variant WriteOutput(const Args& args);
  Variant RefreshModelView(const Args& args);
  Variant NotesFromFormat(const Args& args);
};

}  // namespace kestrune::standins
