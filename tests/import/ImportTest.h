// An import from a DOORS that answers the export script with files of the test's making, without running any
// script.
#pragma once

#include "common/Utilities.h"
#include "doors/frmConnectProgress.h"
#include "import/frmImport.h"
#include "options/frmOptions.h"
#include "platform/Files.h"
#include "tests/support/TestHost.h"
#include "workbench/StandInObject.h"

namespace kestrune::testing {

/// One object of an export: its values by the element's name, such as "a1".
using ExportedObject = std::vector<std::pair<std::string, std::string>>;

/// A DOORS that has one module, whose export is `Objects`; `Answer` replaces the path of the file that it
/// writes.
class ExportingDoors : public workbench::StandInObject<ExportingDoors> {
 public:
  static constexpr const char16_t* kClassName = u"ExportingDoors";
  explicit ExportingDoors(Text export_path) : export_path_(std::move(export_path)) {}

  std::vector<ExportedObject> Objects;
  std::vector<std::string> OwnAttributes;  // from a12 on
  std::optional<std::string> File;         // written instead of the export
  std::optional<Text> Answer;
  std::optional<AutomationError> Failure;  // of RunStr
  std::function<void()> WhileRunning;
  std::vector<Text> Parameters;

  static const Members& Table() {
    static const Members table = {
        {u"Result",
         {.Get = [](ExportingDoors& self) { return Variant(self.result_); },
          .Put = [](ExportingDoors& self, const Variant& value) { self.result_ = value.ToText(); }}},
        {u"RunStr",
         {.Call =
              [](ExportingDoors& self, const Args&) {
                self.Run();
                return Variant();
              },
          .ArgCount = 1}},
    };
    return table;
  }

 private:
  void Run() {
    Parameters.push_back(result_);
    if (WhileRunning) WhileRunning();
    if (Failure) throw *Failure;
    const bool attributes_only = result_.find(u"~1~") != Text::npos;
    WriteFile(export_path_, File ? *File : Export(attributes_only));
    result_ = Answer.value_or(export_path_);
  }

  std::string Export(bool attributes_only) const {
    std::string xml = "<DoorsModule><Attributes>";
    int id = 0;
    for (const char* name :
         {"Absolute Number", "Object Identifier", "Object Number", "Object Level", "Object Text",
          "Object Short Text", "Created By", "Created On", "Last Modified On", "Object Heading",
          "Object Parent", "Object Text (Formatted)"})
      xml += "<Attribute Name=\"" + std::string(name) + "\" ID=\"" + std::to_string(id++) + "\"/>";
    for (const std::string& name : OwnAttributes)
      xml += "<Attribute Name=\"" + name + "\" ID=\"" + std::to_string(id++) + "\"/>";
    xml += "</Attributes>";
    return xml + (attributes_only ? "" : "<Objects>" + ExportObjects() + "</Objects>") + "</DoorsModule>";
  }

  std::string ExportObjects() const {
    std::string xml;
    for (const ExportedObject& object : Objects) {
      xml += "<Object>";
      for (const auto& [element, value] : object) xml += "<" + element + ">" + value + "</" + element + ">";
      xml += "</Object>";
    }
    return xml;
  }

  Text export_path_;
  Text result_;
};

/// A linked package with a record of rules, and a module to import into it.
struct ImportFixture : ::testing::Test, TestPlatform, TestHost {
  ImportFixture() {
    repository.CreateOutputTab(u"DOORS");
    desktop.AddWindow({u"DOORSWindow", 0x04CF0000});
    objects.objects[u"Doors.Application"] = application->AsObject();
    SaveLinkFile(platform, Guid(), u"/P/M");
  }

  /// Stores a record with these rules, so that no dialog opens before the import.
  void StoreRules(const std::vector<Text>& rules, const Text& view = u"") {
    Options options(doors);
    options.LoadDefault(Package());
    options.Rules.resize(Options::kFirstUserSlot);
    for (const Text& rule : rules) options.AddMapping(rule);
    options.RestrictToView = view;
    options.Save();
  }

  /// Runs the import as the user sees it and returns the window's lines.
  std::vector<Text> Import(std::int32_t direction = 0) {
    std::vector<Text> lines;
    frmImport form(doors);
    desktop.OnForm<frmImport>([&](frmImport& opened) {
      EXPECT_FALSE(opened.cmdClose.Enabled());
      ExpectMessages();
      desktop.Tick();
      lines = opened.List1.Items();
      if (!opened.IsOpen()) return;
      EXPECT_TRUE(opened.cmdClose.Enabled());
      opened.cmdClose.Press();
    });
    form.Transfer(repository, direction);
    expected_.clear();
    return lines;
  }

  /// What the next import must ask or say, in this order.
  void NextMessage(Text body, Answer answer = Answer::kOk) {
    expected_.emplace_back(std::move(body), answer);
  }

  /// The element tree as text: a line each, two blanks per level, "[identifier] name", child packages by
  /// name.
  std::string Tree() const {
    std::string text;
    for (const auto& item : model.Tree(package_id)) {
      text += std::string(2 * static_cast<std::size_t>(item.Depth), ' ');
      for (const auto& tag : item.TaggedValues)
        if (tag.Name == u"Object Identifier") text += "[" + ToUtf8(tag.Value) + "] ";
      text += ToUtf8(item.Name) + "\n";
    }
    return text;
  }

  orim::Element ElementOf(const Text& identifier) const {
    for (const auto& item : model.Tree(package_id))
      for (const auto& tag : item.TaggedValues)
        if (tag.Name == u"Object Identifier" && tag.Value == identifier)
          return repository.ElementByID(item.Id);
    ADD_FAILURE() << "no element for " << ToUtf8(identifier);
    return {};
  }

  std::shared_ptr<ExportingDoors> application = std::make_shared<ExportingDoors>(folder.File(u"DP1"));
  Doors doors{platform};

 private:
  void ExpectMessages() {
    for (const auto& [body, answer] : expected_) desktop.OnMessage(body, answer);
  }
  std::vector<std::pair<Text, Answer>> expected_;
};

}  // namespace kestrune::testing
