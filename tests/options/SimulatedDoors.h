// A DOORS that answers the scripts that the options use, for one module: its attributes, its views. It knows
// a script by its text and does not run it. It can be closed, and refuses every other script.
#pragma once

#include <utility>

#include "common/Resources.h"
#include "platform/Files.h"
#include "platform/Xml.h"
#include "workbench/StandInObject.h"

namespace kestrune::testing {

class SimulatedDoors : public workbench::StandInObject<SimulatedDoors> {
 public:
  static constexpr const char16_t* kClassName = u"SimulatedDoors";

  explicit SimulatedDoors(Text export_path) : export_path_(std::move(export_path)) {}

  Text Module = u"/Demo/Requirements";
  std::vector<Text> Attributes;
  std::vector<Text> Views;
  std::optional<Text> AnswerInstead;     // whatever script is run
  std::optional<std::uint32_t> Failure;  // of every call: DOORS has been closed
  std::vector<Text> Parameters;          // of each script run

  static const Members& Table() {
    static const Members table = {
        {u"Result",
         {.Get = [](SimulatedDoors& doors) { return Variant(doors.result_); },
          .Put = [](SimulatedDoors& doors, const Variant& value) { doors.result_ = value.ToText(); }}},
        {u"RunStr",
         {.Call =
              [](SimulatedDoors& doors, const Args& args) {
                doors.Run(args[0].ToText());
                return Variant();
              },
          .ArgCount = 1}},
    };
    return table;
  }

 private:
  void BeforeInvoke(Access, TextView) override {
    if (Failure) throw AutomationError(*Failure, u"SimulatedDoors", u"DOORS is gone");
  }

  void Run(const Text& script) {
    const Text parameter = std::exchange(result_, {});
    Parameters.push_back(parameter);
    if (AnswerInstead)
      result_ = *AnswerInstead;
    else if (script == LoadDxl(dxl_script::kListViews))
      result_ = parameter == Module ? ViewList() : NotFound(parameter);
    else if (script == LoadDxl(dxl_script::kExportModule))
      result_ = parameter == Module + u"~1~~" ? ExportAttributes() : NotFound(parameter);
    else
      Refuse(error::kTypeMismatch, u"RunStr", u"this script is not simulated");
  }

  static Text NotFound(const Text& parameter) {
    return u"Error: Module '" + parameter.substr(0, parameter.find(u'~')) + u"' not found.";
  }

  Text ViewList() const {
    Text list;
    for (const Text& view : Views) list += view + u"\n";
    return list;
  }

  Text ExportAttributes() const {
    std::string xml = "<DoorsModule><Attributes>";
    int id = 0;
    for (const Text& name : Attributes) {
      std::string escaped;
      for (const char c : ToUtf8(name)) {
        const bool is_plain = c != '"' && c != '<' && c != '&' && static_cast<unsigned char>(c) >= 32;
        escaped += is_plain ? std::string(1, c) : "&#" + std::to_string(int{c}) + ";";
      }
      xml += "<Attribute Name=\"" + escaped + "\" ID=\"" + std::to_string(id++) + "\"/>";
    }
    WriteFile(export_path_, xml + "</Attributes></DoorsModule>");
    return export_path_;
  }

  Text export_path_;
  Text result_;
};

}  // namespace kestrune::testing
