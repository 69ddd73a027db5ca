// Characters and ranges of texts, for strings and Buffers alike. What DXL leaves open (a start beyond the
// end, an end before the start) is a run-time error.
#pragma once

#include <limits>

#include "standins/dxl/Value.h"

namespace kestrune::dxl {

inline constexpr std::int32_t kToTheEnd = std::numeric_limits<std::int32_t>::max();

/// text[first:last], both included; a last beyond the end is cut off. Throws ScriptError.
Value SliceOf(TextView text, std::int32_t first, std::int32_t last);
/// Throws ScriptError for an index outside the text.
Value CharAt(TextView text, std::int32_t index);

}  // namespace kestrune::dxl
