// An element of the host's model and its tagged values. What is put is kept by the object until Save.
#pragma once

#include "orim/Collection.h"

namespace kestrune::orim {

/// What a tagged value holds as its value when its text is in its memo.
inline constexpr TextView kMemoValue = u"<memo>";
/// The longest text that a tagged value or a name holds, in UTF-16 units.
inline constexpr std::size_t kLongestValue = 255;

class TaggedValue : public Handle {
 public:
  using Handle::Handle;
  Text Name() const { return GetText(member::kName); }
  /// At most 255 characters.
  Text Value() const { return GetText(member::kValue); }
  void SetValue(const Text& value) const { object().Put(member::kValue, value); }
  /// The memo text, of any length.
  Text Notes() const { return GetText(member::kNotes); }
  void SetNotes(const Text& notes) const { object().Put(member::kNotes, notes); }
  void Save() const { object().Call(member::kSave); }
};

class Element : public Handle {
 public:
  using Handle::Handle;
  std::int32_t ElementID() const { return GetInt(member::kElementId); }
  bool Locked() const { return object().Get(member::kLocked).ToBool(); }
  Text Name() const { return GetText(member::kName); }
  /// One of kElementFields.
  Text Field(TextView name) const { return GetText(name); }
  void SetField(TextView name, const Text& value) const { object().Put(name, value); }
  std::int32_t PackageID() const { return GetInt(member::kPackageId); }
  void SetPackageID(std::int32_t id) const { object().Put(member::kPackageId, id); }
  /// The parent element's id; 0 when the element lies at the top of its package.
  void SetParentID(std::int32_t id) const { object().Put(member::kParentId, id); }
  void SetTreePos(std::int32_t position) const { object().Put(member::kTreePos, position); }
  Collection<TaggedValue> TaggedValues() const {
    return Collection<TaggedValue>(GetObject(member::kTaggedValues));
  }
  void Save() const { object().Call(member::kSave); }
};

}  // namespace kestrune::orim
