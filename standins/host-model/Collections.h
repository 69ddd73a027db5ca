// The host's collections: child packages and elements of a package, tagged values of an element.
#pragma once

#include "standins/host-model/HostCollection.h"

namespace kestrune::standins {

class PackageCollection : public HostCollection<PackageCollection> {
 public:
  static constexpr const char16_t* kClassName = u"Packages";
  using HostCollection::HostCollection;

  std::vector<std::int32_t> List();
  std::optional<std::int32_t> Find(const Text& name);
  Object Item(std::int32_t id);
  /// `type` is empty or "Package"; the host knows no other kind.
  Object AddNew(Text name, const Variant& type);
  void Delete(std::int32_t id);
};

/// The elements that lie in the package itself; the elements
/// of child packages are reached through those packages.
class ElementCollection : public HostCollection<ElementCollection> {
 public:
  static constexpr const char16_t* kClassName = u"Elements";
  using HostCollection::HostCollection;

  std::vector<std::int32_t> List();
  std::optional<std::int32_t> Find(const Text& name);
  Object Item(std::int32_t id);
  Object AddNew(Text name, const Variant& type);
  void Delete(std::int32_t id);
};

class TaggedValueCollection : public HostCollection<TaggedValueCollection> {
 public:
  static constexpr const char16_t* kClassName = u"TaggedValues";
  using HostCollection::HostCollection;

  std::vector<std::int32_t> List();
  std::optional<std::int32_t> Find(const Text& name);
  Object Item(std::int32_t id);
  Object AddNew(Text name, const Variant& value);
  void Delete(std::int32_t id);
};

}  // namespace kestrune::standins
