// A regular expression on the first line, and the text to be searched.
#include "fuzz/Fuzz.h"
#include "standins/dxl/Error.h"
#include "standins/dxl/Regex.h"

namespace kestrune::fuzz {

void Fuzz(std::string_view input) {
  const auto [pattern, tail] = SplitLine(input);
  const Text text = FromUtf8(tail);
  try {
    const auto found = dxl::Regex(FromUtf8(pattern)).Search(text);
    for (const dxl::Extent& extent : found) {
      if (extent.first < 0) continue;  // took no part
      Require(extent.first <= extent.end, "a match begins before its end");
      Require(found[0].first <= extent.first && extent.end <= found[0].end, "a group lies in the match");
      Require(extent.end <= static_cast<std::int32_t>(text.size()), "a match lies in the text");
    }
  } catch (const dxl::ScriptError&) {
    return;  // no pattern
  }
}

}  // namespace kestrune::fuzz
