// The rows of tagged values in the model file.
#pragma once

#include <optional>

#include "standins/sqlite/Database.h"

namespace kestrune::standins {

inline constexpr std::size_t kMaxTaggedValueLength = 255;  // UTF-16 units; the notes of one have no limit

struct TaggedValueRow {
  std::int32_t id = 0;  // 0 until the row is in the table
  std::int32_t element_id = 0;
  Text name;
  Text value;
  Text notes;
};

std::optional<TaggedValueRow> FindTaggedValue(Database& model, std::int32_t id);

/// Adds a row with id 0 and gives it its id, or rewrites the row with that
/// id. Throws AutomationError for a value that is too long, for an element
/// that is missing or locked, and for a row that was deleted meanwhile.
void SaveTaggedValue(Database& model, TaggedValueRow& row);

/// Throws AutomationError as SaveTaggedValue does.
void DeleteTaggedValue(Database& model, const TaggedValueRow& row);

}  // namespace kestrune::standins
