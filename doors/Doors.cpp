#include "doors/Doors.h"

#include "common/Utilities.h"
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

Text JoinFields(const std::vector<Text>& fields) {
  Text joined;
  for (const Text& field : fields) {
    if (field.find(u'~') != Text::npos)
      throw AutomationError(error::kBase + 2, u"Doors", FormatResText(text::kFieldSeparatorInside, {field}));
    joined += field + u"~";
  }
  joined.pop_back();
  return joined;
}

bool IsScriptError(TextView answer) {
  return answer.substr(0, 7) == u"Error: ";
}

void ShowFailure(Desktop& desktop, const AutomationError& failure) {
  const bool is_lost = error::IsConnectionLost(failure.Number);
  ShowMessage(desktop, is_lost ? FormatResText(text::kDoorsFailure) : failure.Description,
              Icon::kExclamation);
}

}  // namespace kestrune
