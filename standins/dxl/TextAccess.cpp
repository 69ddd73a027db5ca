#include "standins/dxl/TextAccess.h"

#include "standins/dxl/Error.h"

namespace kestrune::dxl {

Value SliceOf(TextView text, std::int32_t first, std::int32_t last) {
  const auto size = static_cast<std::int32_t>(text.size());
  if (first < 0 || first >= size)
    throw ScriptError(u"start of range outside the text (" + ToText(first) + u")");
  if (last < first) throw ScriptError(u"end of range before its start (" + ToText(last) + u")");
  return Value(text.substr(static_cast<std::size_t>(first), static_cast<std::size_t>(last - first) + 1));
}

Value CharAt(TextView text, std::int32_t index) {
  const bool inside = index >= 0 && static_cast<std::size_t>(index) < text.size();
  if (!inside) throw ScriptError(u"index outside the text (" + ToText(index) + u")");
  return Value(text[static_cast<std::size_t>(index)]);
}

}  // namespace kestrune::dxl
