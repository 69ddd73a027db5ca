#include "workbench/windows/host/AddInClient.h"

#include "platform/win32/ComObjectFactory.h"
#include "workbench/windows/host/ByReference.h"

namespace kestrune::workbench {

AddInClient::AddInClient(TextView prog_id) : add_in_(ByReference(ComObjectFactory().Create(prog_id))) {}

Text AddInClient::Orim_Connect(const Object& repository) {
  return add_in_.Call(u"Orim_Connect", {repository}).ToText();
}

void AddInClient::Orim_Disconnect() {
  add_in_.Call(u"Orim_Disconnect");
}

void AddInClient::Orim_OnPostInitialized(const Object& repository) {
  add_in_.Call(u"Orim_OnPostInitialized", {repository});
}

Variant AddInClient::Orim_GetMenuItems(const Object& repository, const Text& location, const Text& menu) {
  return add_in_.Call(u"Orim_GetMenuItems", {repository, location, menu});
}

void AddInClient::Orim_MenuClick(const Object& repository, const Text& menu, const Text& item) {
  add_in_.Call(u"Orim_MenuClick", {repository, menu, item});
}

bool AddInClient::Plexa_Connect(const Object& repository, std::int32_t package_id, const Text& guid) {
  return add_in_.Call(u"Plexa_Connect", {repository, package_id, guid}).ToInt() != 0;
}

bool AddInClient::Plexa_Disconnect(const Object& repository, const Text& guid) {
  return add_in_.Call(u"Plexa_Disconnect", {repository, guid}).ToBool();
}

}  // namespace kestrune::workbench
