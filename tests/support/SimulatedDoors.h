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

  Text module = u"/P/M";
  std::vector<Text> attributes, views;
  std::vector<ExportedObject> objects;
  std::optional<Text> answer_instead;      // whatever script is run
  std::optional<AutomationError> failure;  // of every script
  std::function<void()> while_running;
  std::vector<Text> parameters, scripts;  // as they came

  static const Members& Table() {
    static const Members table = {
        {u"Result",
         {.get = [](SimulatedDoors& doors) { return Variant(doors.result_); },
          .put =
              [](SimulatedDoors& doors, const Variant& value) {
                doors.result_ = doors.parameters.emplace_back(value.ToText());
              }}},
        {u"RunStr",
         {.call = [](SimulatedDoors& doors, const Args& args) { return doors.Run(args[0].ToText()); },
          .arg_count = 1}},
    };
    return table;
  }

 private:
  Variant Run(const Text& script) {
    scripts.push_back(script);
    if (while_running) while_running();
    if (failure) throw *failure;
    result_ = answer_instead ? *answer_instead : AnswerTo(script);
    return {};
  }

  Text AnswerTo(const Text& script) const {
    const bool lists_views = script == LoadDxl(dxl_script::kListViews);
    if (!lists_views && script != LoadDxl(dxl_script::kExportModule))
      Refuse(error::kTypeMismatch, u"RunStr", u"this script is not simulated");
    const Text wanted = result_.substr(0, result_.find(u'~'));
    if (wanted != module) return u"Error: Module '" + wanted + u"' not found.";
    if (!lists_views) return Export(result_.find(u"~1~") == Text::npos);
    Text list;
    for (const Text& view : views) list += view + u"\n";
    return list;
  }

  Text Export(bool with_objects) const {
    std::string xml = "<DoorsModule><Attributes>";
    for (std::size_t id = 0; id < attributes.size(); ++id)
      xml += "<Attribute Name=\"" + Escaped(attributes[id]) + "\" ID=\"" + std::to_string(id) + "\"/>";
    xml += "</Attributes><Objects>";
    for (std::size_t i = 0; with_objects && i < objects.size(); ++i) {
      xml += "<Object>";
      for (const auto& [name, value] : objects[i])
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
