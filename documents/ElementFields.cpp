#include "documents/ElementFields.h"

#include <algorithm>

#include "platform/Automation.h"

namespace kestrune {

std::size_t ElementFieldIndex(TextView name) {
  const auto found = std::find_if(kElementFields.begin(), kElementFields.end(),
                                  [name](const ElementField& field) { return field.Name == name; });
  if (found == kElementFields.end())
    throw AutomationError(error::kBase + 1, u"OrimDoc.Load", Text(u"Unknown field: ").append(name));
  return static_cast<std::size_t>(found - kElementFields.begin());
}

}  // namespace kestrune
