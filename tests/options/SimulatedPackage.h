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
    Text Name, Value, Notes;
  };
  Text Name = u"Requirements";
  Text Guid = u"{A1B2}";
  bool Locked = false;
  std::vector<std::shared_ptr<Tag>> Tags;
  int Writes = 0;    // saves and deletions
  Text FailingCall;  // the member whose use fails
  int Looks = 0;     // at the tagged values

  Tag* Find(TextView name) {
    for (const auto& tag : Tags)
      if (tag->Name == name) return tag.get();
    return nullptr;
  }
};

template <typename Self>
class PackageObject : public StandInObject<Self> {
 public:
  explicit PackageObject(PackageModel& model) : model_(model) {}

 protected:
  void BeforeInvoke(Access, TextView member) override {
    if (member == u"TaggedValues") ++model_.Looks;
    if (member == model_.FailingCall) throw AutomationError(0x80004005, u"Host", u"The host failed");
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
        {u"Name", {.get = [](SimulatedTag& tag) { return Variant(tag.pending_.Name); }}},
        {u"Value", {.get = [](SimulatedTag& tag) { return Variant(tag.pending_.Value); }}},
        {u"Notes",
         {.get = [](SimulatedTag& tag) { return Variant(tag.pending_.Notes); },
          .put = [](SimulatedTag& tag, const Variant& value) { tag.pending_.Notes = value.ToText(); }}},
        {u"Save", {.call = [](SimulatedTag& tag, const Args&) { return tag.Save(); }}},
    };
    return table;
  }

 private:
  Variant Save() {
    ++model_.Writes;
    *stored_ = pending_;
    if (std::find(model_.Tags.begin(), model_.Tags.end(), stored_) == model_.Tags.end())
      model_.Tags.push_back(stored_);
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
         {.get = [](SimulatedTags& tags) { return Variant(std::int32_t(tags.model_.Tags.size())); }}},
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
    return model_.Tags.at(static_cast<std::size_t>(index.ToInt()));
  }
  Variant Handle(std::shared_ptr<PackageModel::Tag> tag) const {
    return Object(std::make_shared<SimulatedTag>(model_, std::move(tag)));
  }
  Variant ByName(const Variant& name) const {
    for (const auto& tag : model_.Tags)
      if (tag->Name == name.ToText()) return Handle(tag);
    Refuse(0x80004005, u"GetByName", u"no such tagged value");
  }
  Variant Delete(const Variant& index) {
    ++model_.Writes;
    model_.Tags.erase(model_.Tags.begin() + index.ToInt());
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
        {u"Name", {.get = [](SimulatedPackage& package) { return Variant(package.model_.Name); }}},
        {u"PackageGuid", {.get = [](SimulatedPackage& package) { return Variant(package.model_.Guid); }}},
        {u"Element", {.get = [](SimulatedPackage& package) { return package.AsObject(); }}},
        {u"Locked", {.get = [](SimulatedPackage& package) { return Variant(package.model_.Locked); }}},
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
