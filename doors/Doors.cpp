#include "doors/Doors.h"

#include "common/Utilities.h"
#include "doors/frmConnectProgress.h"

namespace kestrune {

namespace {

constexpr TextView kErrorPrefix = u"Error: ";

}  // namespace

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

Text Doors::RunScriptWaiting(int id, const Text& parameters) const {
  const WaitCursor wait(platform_.desktop);
  return RunScript(id, parameters);
}

Text JoinFields(const std::vector<Text>& fields) {
  Text joined;
  for (const Text& field : fields) {
    if (field.find(u'~') != Text::npos)
      throw AutomationError(error::kFieldSeparatorInside, u"Doors",
                            FormatResText(text::kFieldSeparatorInside, {field}));
    joined += field + u"~";
  }
  joined.pop_back();
  return joined;
}

Text ExportParameters(const Text& module_path, ExportScope scope, const Text& view) {
  std::vector<Text> fields = {module_path, scope == ExportScope::kAttributes ? u"1" : u"0", view};
  // Without a view there is one field more; the script takes both forms.
  if (view.empty()) fields.emplace_back();
  return JoinFields(fields);
}

std::optional<Text> ScriptError(TextView answer) {
  if (!answer.starts_with(kErrorPrefix)) return std::nullopt;
  return Text(answer.substr(kErrorPrefix.size()));
}

void ShowFailure(Desktop& desktop, const AutomationError& failure) {
  const bool is_lost = error::IsConnectionLost(failure.Number);
  ShowMessage(desktop, is_lost ? FormatResText(text::kDoorsFailure) : failure.Description,
              Icon::kExclamation);
}

}  // namespace kestrune
