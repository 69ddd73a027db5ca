// The rows of elements in the model file, and the rules that the host keeps when one is saved.
#pragma once

#include <array>
#include <optional>

#include "standins/sqlite/Database.h"

namespace kestrune::standins {

/// A member of an element that can be written, and the column of t_object that keeps it.
struct ElementField {
  const char16_t* member;
  const char* column;
  bool is_number;
};
inline constexpr std::array kElementFields = {
    ElementField{u"Name", "Name", false},           ElementField{u"Notes", "Note", false},
    ElementField{u"Alias", "Alias", false},         ElementField{u"Author", "Author", false},
    ElementField{u"Phase", "Phase", false},         ElementField{u"Version", "Version", false},
    ElementField{u"Priority", "PDATA2", false},     ElementField{u"Difficulty", "PDATA3", false},
    ElementField{u"KeyWords", "PDATA5", false},     ElementField{u"Status", "Status", false},
    ElementField{u"PackageID", "Package_ID", true}, ElementField{u"ParentID", "ParentID", true},
    ElementField{u"TreePos", "TPos", true},
};
inline constexpr std::size_t kNameField = 0;
inline constexpr std::size_t kPackageField = 10;
inline constexpr std::size_t kParentField = 11;
inline constexpr std::size_t kTreePosField = 12;

inline constexpr std::size_t kMaxNameLength = 255;  // UTF-16 units, of elements and packages
inline constexpr const char16_t* kPackageType = u"Package";

struct ElementRow {
  std::int32_t id = 0;  // 0 until the row is in the table
  Text type;
  Text guid;
  bool locked = false;
  std::array<Variant, kElementFields.size()> fields;  // Empty where nothing was ever stored
};

std::optional<ElementRow> FindElement(Database& model, std::int32_t id);

/// Adds a row with id 0 and gives it its id, or rewrites the row with that id. Throws AutomationError when
/// the host's rules forbid it: the name's length, locks, a package or a parent element that does not exist, a
/// circle of parents.
void SaveElement(Database& model, ElementRow& row);

/// Deletes an element with its tagged values; elements below it keep referring to it. Throws AutomationError when it is
/// missing or locked.
void DeleteElement(Database& model, std::int32_t id);

/// Throws AutomationError when the element does not exist, is locked, or lies in a locked package.
void RefuseUnlessOpen(Database& model, std::int32_t element_id);

/// Throws AutomationError when the package does not exist or is locked.
void RefuseUnlessPackageOpen(Database& model, std::int32_t package_id);

void RefuseLongName(const Text& name);

}  // namespace kestrune::standins
