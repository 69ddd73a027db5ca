// The text fields of an element that can be filled from outside, and where the host's query answers them.
#pragma once

#include <algorithm>
#include <array>

#include "platform/Text.h"

namespace kestrune::orim {

struct ElementField {
  TextView Name;  // of the element's member
  TextView QueryColumn;
};

/// In the order in which the user is offered them.
inline constexpr auto kElementFields = std::to_array<ElementField>({
    {u"Name", u"Name"},
    {u"Alias", u"Alias"},
    {u"Status", u"Status"},
    {u"Difficulty", u"PDATA3"},
    {u"Priority", u"PDATA2"},
    {u"Author", u"Author"},
    {u"KeyWords", u"PDATA5"},
    {u"Phase", u"Phase"},
    {u"Version", u"Version"},
    {u"Notes", u"Note"},
});

/// The field of exactly that name, or null.
inline const ElementField* FindElementField(TextView name) {
  const auto found = std::ranges::find(kElementFields, name, &ElementField::Name);
  return found == kElementFields.end() ? nullptr : &*found;
}

}  // namespace kestrune::orim
