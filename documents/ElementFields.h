// The text fields of an element that a mapping rule can name, and where the host's query answers them.
#pragma once

#include <array>

#include "platform/Text.h"

namespace kestrune {

/// What a tagged value holds as its value when its text is in its memo.
inline constexpr TextView kMemoValue = u"<memo>";
/// The longest text that a tagged value holds without a memo, in UTF-16 units.
inline constexpr std::size_t kLongestValue = 255;

struct ElementField {
  TextView Name;
  TextView QueryColumn;
};

inline constexpr std::array<ElementField, 10> kElementFields = {{
    {u"Name", u"Name"},
    {u"Alias", u"Alias"},
    {u"Author", u"Author"},
    {u"Phase", u"Phase"},
    {u"Version", u"Version"},
    {u"Notes", u"Note"},
    {u"Priority", u"PDATA2"},
    {u"Difficulty", u"PDATA3"},
    {u"KeyWords", u"PDATA5"},
    {u"Status", u"Status"},
}};

/// The field's place in kElementFields; throws AutomationError 0x80040001 "Unknown field: ..." for any other
/// name.
std::size_t ElementFieldIndex(TextView name);

}  // namespace kestrune
