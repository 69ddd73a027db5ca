// What the host's three collections share.
#pragma once

#include <optional>

#include "standins/host-model/Host.h"

namespace kestrune::standins {

/// The children of one owner. Count and GetAt go by a list that is read when first needed and again after
/// Refresh; GetByName asks the model each time. Self provides what differs:
///
///   std::vector<std::int32_t> List();                    // the ids, in the host's order
///   std::optional<std::int32_t> Find(const Text& name);  // the first of that name, exactly
///   Object Item(std::int32_t id);                        // throws when it is gone
///   Object AddNew(Text name, const Variant& second);     // not stored before its Save
///   void Delete(std::int32_t id);
template <typename Self>
class HostCollection : public HostObject<Self> {
 public:
  using typename StandInObject<Self>::Members;

  HostCollection(HostPtr host, std::int32_t owner_id)
      : HostObject<Self>(std::move(host)), owner_id_(owner_id) {}

  static const Members& Table() {
    static const Members table = {
        {u"Count", {.get = &HostCollection::Count}},
        {u"GetAt", {.call = &HostCollection::GetAt, .arg_count = 1}},
        {u"GetByName", {.call = &HostCollection::GetByName, .arg_count = 1}},
        {u"AddNew", {.call = &HostCollection::MakeNew, .arg_count = 2}},
        {u"DeleteAt", {.call = &HostCollection::DeleteAt, .arg_count = 2}},
        {u"Refresh", {.call = &HostCollection::Refresh}},
    };
    return table;
  }

 protected:
  std::int32_t owner_id_;

 private:
  Self& AsSelf() { return static_cast<Self&>(*this); }

  const std::vector<std::int32_t>& Ids() {
    if (!ids_) ids_ = AsSelf().List();
    return *ids_;
  }

  std::int32_t IdAt(const Variant& index) {
    const std::int32_t at = index.ToInt();
    if (at < 0 || static_cast<std::size_t>(at) >= Ids().size())
      RefuseByHost(Text(Self::kClassName) + u": there is no item " + ToText(at));
    return Ids()[static_cast<std::size_t>(at)];
  }

  Variant Count() { return static_cast<std::int32_t>(Ids().size()); }
  Variant GetAt(const Args& args) { return AsSelf().Item(IdAt(args[0])); }

  Variant GetByName(const Args& args) {
    const Text name = args[0].ToText();
    const std::optional<std::int32_t> id = AsSelf().Find(name);
    if (!id) RefuseByHost(Text(Self::kClassName) + u": there is no item \"" + name + u"\"");
    return AsSelf().Item(*id);
  }

  Variant MakeNew(const Args& args) { return AsSelf().AddNew(args[0].ToText(), args[1]); }

  /// Without the wish to refresh, the list keeps the place of what is gone.
  Variant DeleteAt(const Args& args) {
    const bool refresh = args[1].ToBool();
    AsSelf().Delete(IdAt(args[0]));
    if (refresh) ids_.reset();
    return {};
  }

  Variant Refresh(const Args&) {
    ids_.reset();
    return {};
  }

  std::optional<std::vector<std::int32_t>> ids_;
};

}  // namespace kestrune::standins
