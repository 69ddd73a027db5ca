// A DOORS with one module that answers the add-in's scripts without running them. It knows a script by its
// text and refuses every other.
#pragma once

#include "common/Resources.h"
#include "platform/Files.h"
#include "standins/StandInObject.h"

namespace kestrune::testing {

/// One object of an export: its values by the element's name, such as "a1".
using ExportedObject = std::vector<std::pair<std::string, Text>>;

class SimulatedDoors : public standins::StandInObject<SimulatedDoors> {
 public:
  static constexpr const char16_t* kClassName = u"SimulatedDoors";
  explicit SimulatedDoors(Text export_path = {}) : export_path_(std::move(export_path)) {}

  Text Module = u"/P/M";
  std::vector<Text> Attributes, Views;
  std::vector<ExportedObject> Objects;
  std::optional<Text> AnswerInstead;       // whatever script is run
  std::optional<AutomationError> Failure;  // of every script
  std::function<void()> WhileRunning;
  std::vector<Text> Parameters, Scripts;  // as they came

  static const Members& Table() {
    static const Members table = {
        {u"Result",
         {.get = [](SimulatedDoors& doors) { return Variant(doors.result_); },
          .put =
              [](SimulatedDoors& doors, const Variant& value) {
                doors.result_ = doors.Parameters.emplace_back(value.ToText());
              }}},
        {u"RunStr",
         {.call = [](SimulatedDoors& doors, const Args& args) { return doors.Run(args[0].ToText()); },
          .arg_count = 1}},
    };
    return table;
  }

 private:
  Variant Run(const Text& script) {
    Scripts.push_back(script);
    if (WhileRunning) WhileRunning();
    if (Failure) throw *Failure;
    result_ = AnswerInstead ? *AnswerInstead : AnswerTo(script);
    return {};
  }

  Text AnswerTo(const Text& script) const {
    const bool lists_views = script == LoadDxl(dxl_script::kListViews);
    if (!lists_views && script != LoadDxl(dxl_script::kExportModule))
      Refuse(error::kTypeMismatch, u"RunStr", u"this script is not simulated");
    const Text module = result_.substr(0, result_.find(u'~'));
    if (module != Module) return u"Error: Module '" + module + u"' not found.";
    if (!lists_views) return Export(result_.find(u"~1~") == Text::npos);
    Text list;
    for (const Text& view : Views) list += view + u"\n";
    return list;
  }

  Text Export(bool with_objects) const {
    std::string xml = "<DoorsModule><Attributes>";
    for (std::size_t id = 0; id < Attributes.size(); ++id)
      xml += "<Attribute Name=\"" + Escaped(Attributes[id]) + "\" ID=\"" + std::to_string(id) + "\"/>";
    xml += "</Attributes><Objects>";
    for (std::size_t i = 0; with_objects && i < Objects.size(); ++i) {
      xml += "<Object>";
      for (const auto& [name, value] : Objects[i])
        xml.append("<" + name + ">").append(Escaped(value)).append("</" + name + ">");
      xml += "</Object>";
    }
    WriteFile(export_path_, xml + "</Objects></DoorsModule>");
    return export_path_;
  }

  static std::string Escaped(const Text& text) {
    std::string escaped;
    for (const char c : ToUtf8(text)) {
      const bool is_plain = c != '"' && c != '<' && c != '&' && static_cast<unsigned char>(c) >= 32;
      escaped += is_plain ? std::string(1, c) : "&#" + std::to_string(int{c}) + ";";
    }
    return escaped;
  }

  Text export_path_;
  Text result_;
};

}  // namespace kestrune::testing
