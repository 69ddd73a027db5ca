// A package of the host's with an element and that element's tagged values, as automation objects. As the
// host's do, they keep changes to themselves until saved. Not modelled: anything else of a package.
#pragma once

#include <algorithm>

#include "orim/Package.h"
#include "standins/StandInObject.h"

namespace kestrune::testing {

using standins::StandInObject;

/// What the model holds, and what befalls whoever works on it.
struct PackageModel {
  struct Tag {
    Text name, value, notes;
  };
  Text name = u"Requirements";
  Text guid = u"{A1B2}";
  bool locked = false;
  std::vector<std::shared_ptr<Tag>> tags;
  int writes = 0;     // saves and deletions
  Text failing_call;  // the member whose use fails
  int looks = 0;      // at the tagged values

  Tag* Find(TextView tag_name) {
    for (const auto& tag : tags)
      if (tag->name == tag_name) return tag.get();
    return nullptr;
  }
};

template <typename Self>
class PackageObject : public StandInObject<Self> {
 public:
  explicit PackageObject(PackageModel& model) : model_(model) {}

 protected:
  void BeforeInvoke(Access, TextView member) override {
    if (member == u"TaggedValues") ++model_.looks;
    if (member == model_.failing_call) throw AutomationError(0x80004005, u"Host", u"The host failed");
  }
  PackageModel& model_;
};

class SimulatedTag : public PackageObject<SimulatedTag> {
 public:
  static constexpr const char16_t* kClassName = u"TaggedValue";
  SimulatedTag(PackageModel& model, std::shared_ptr<PackageModel::Tag> stored)
      : PackageObject(model), stored_(std::move(stored)), pending_(*stored_) {}

  static const Members& Table() {
    static const Members table = {
        {u"Name", {.get = [](SimulatedTag& tag) { return Variant(tag.pending_.name); }}},
        {u"Value", {.get = [](SimulatedTag& tag) { return Variant(tag.pending_.value); }}},
        {u"Notes",
         {.get = [](SimulatedTag& tag) { return Variant(tag.pending_.notes); },
          .put = [](SimulatedTag& tag, const Variant& value) { tag.pending_.notes = value.ToText(); }}},
        {u"Save", {.call = [](SimulatedTag& tag, const Args&) { return tag.Save(); }}},
    };
    return table;
  }

 private:
  Variant Save() {
    ++model_.writes;
    *stored_ = pending_;
    if (std::find(model_.tags.begin(), model_.tags.end(), stored_) == model_.tags.end())
      model_.tags.push_back(stored_);
    return {};
  }
  std::shared_ptr<PackageModel::Tag> stored_;
  PackageModel::Tag pending_;
};

class SimulatedTags : public PackageObject<SimulatedTags> {
 public:
  static constexpr const char16_t* kClassName = u"TaggedValues";
  using PackageObject::PackageObject;

  static const Members& Table() {
    static const Members table = {
        {u"Count",
         {.get = [](SimulatedTags& tags) { return Variant(std::int32_t(tags.model_.tags.size())); }}},
        {u"GetAt",
         {.call = [](SimulatedTags& tags, const Args& args) { return tags.Handle(tags.At(args[0])); },
          .arg_count = 1}},
        {u"GetByName",
         {.call = [](SimulatedTags& tags, const Args& args) { return tags.ByName(args[0]); },
          .arg_count = 1}},
        {u"AddNew",
         {.call =
              [](SimulatedTags& tags, const Args& args) {
                return tags.Handle(
                    std::make_shared<PackageModel::Tag>(args[0].ToText(), args[1].ToText(), Text()));
              },
          .arg_count = 2}},
        {u"DeleteAt",
         {.call = [](SimulatedTags& tags, const Args& args) { return tags.Delete(args[0]); },
          .arg_count = 2}},
        {u"Refresh", {.call = [](SimulatedTags&, const Args&) { return Variant(); }}},
    };
    return table;
  }

 private:
  std::shared_ptr<PackageModel::Tag> At(const Variant& index) {
    return model_.tags.at(static_cast<std::size_t>(index.ToInt()));
  }
  Variant Handle(std::shared_ptr<PackageModel::Tag> tag) const {
    return Object(std::make_shared<SimulatedTag>(model_, std::move(tag)));
  }
  Variant ByName(const Variant& name) const {
    for (const auto& tag : model_.tags)
      if (tag->name == name.ToText()) return Handle(tag);
    Refuse(0x80004005, u"GetByName", u"no such tagged value");
  }
  Variant Delete(const Variant& index) {
    ++model_.writes;
    model_.tags.erase(model_.tags.begin() + index.ToInt());
    return {};
  }
};

/// The package and its element in one.
class SimulatedPackage : public PackageObject<SimulatedPackage> {
 public:
  static constexpr const char16_t* kClassName = u"Package";
  using PackageObject::PackageObject;
  static const Members& Table() {
    static const Members table = {
        {u"Name", {.get = [](SimulatedPackage& package) { return Variant(package.model_.name); }}},
        {u"PackageGuid", {.get = [](SimulatedPackage& package) { return Variant(package.model_.guid); }}},
        {u"Element", {.get = [](SimulatedPackage& package) { return package.AsObject(); }}},
        {u"Locked", {.get = [](SimulatedPackage& package) { return Variant(package.model_.locked); }}},
        {u"TaggedValues",
         {.get =
              [](SimulatedPackage& package) {
                return Object(std::make_shared<SimulatedTags>(package.model_));
              }}},
    };
    return table;
  }
};

}  // namespace kestrune::testing
