#include "doors/Doors.h"

#include "common/Resources.h"
#include "doors/frmConnectProgress.h"

namespace kestrune {

bool Doors::EnsureDoors() {
  frmConnectProgress form(platform_);
  DoorsApp = form.GetDoors();
  return static_cast<bool>(DoorsApp);
}

Text Doors::RunScript(int id, const Text& parameters) const {
  DoorsApp.Put(u"Result", parameters);
  return RunScript(id);
}

Text Doors::RunScript(int id) const {
  DoorsApp.Call(u"RunStr", {LoadDxl(id)});
  return DoorsApp.Get(u"Result").ToText();
}

bool IsScriptError(TextView answer) {
  return answer.substr(0, 7) == u"Error: ";
}

}  // namespace kestrune
