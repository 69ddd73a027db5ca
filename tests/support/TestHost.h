// A host with one model: a package "Requirements" that is selected, and what a test wants to know of it.
#pragma once

#include "orim/Repository.h"
#include "standins/host-model/OrimModel.h"
#include "tests/support/TestPlatform.h"

namespace kestrune::testing {

struct TestHost {
  /// The model is a new one, in memory where no file is named.
  explicit TestHost(const std::filesystem::path& model_file = ":memory:")
      : model(standins::OrimModel::Create(model_file)) {
    model.SelectPackage(package_id);
  }

  /// An element made as a user would make it, saved; tagged values by name.
  orim::Element AddElement(const Text& name, const std::map<Text, Text>& tagged_values = {}) {
    const orim::Element element = Package().Elements().AddNew(name, u"Requirement");
    element.Save();
    for (const auto& [tag, value] : tagged_values) element.TaggedValues().AddNew(tag, value).Save();
    return element;
  }
  /// The record of the package's link, in place of the one that it may have; an empty text makes none. What this
  /// costs is not counted.
  void StoreRecord(const Text& record) {
    const auto tagged_values = Package().Element().TaggedValues();
    if (tagged_values.Count() > 0) tagged_values.DeleteAt(0, true);
    if (!record.empty()) {
      const orim::TaggedValue stored = tagged_values.AddNew(u"DoorsConnection", u"<memo>");
      stored.SetNotes(record);
      stored.Save();
    }
    model.Counters().Reset();
  }
  Text StoredRecord() const {
    const auto stored = Package().Element().TaggedValues().Find(u"DoorsConnection");
    return stored ? stored.Notes() : u"no record";
  }
  void SetLocked(bool locked) { model.SetLocked(Package().Element().ElementID(), locked); }
  orim::Package Package() const { return repository.PackageByID(package_id); }
  Text Guid() const { return Package().PackageGuid(); }

  standins::OrimModel model;
  std::int32_t package_id = model.AddPackage(0, u"Requirements");
  orim::Repository repository{model.Repository()};
};

}  // namespace kestrune::testing
