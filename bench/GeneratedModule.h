// A module of any size to measure with: always the same one for
// the same size, of the shape of real requirements documents.
#pragma once

#include <array>
#include <functional>

#include "bench/Module.h"
#include "standins/doors-database/DoorsDatabase.h"

namespace kestrune::bench {

inline constexpr std::size_t kFixedAttributes = 12;  // what every export has
inline constexpr std::size_t kOwnAttributes = 16;    // what this module has besides

struct GeneratedObject {
  int number = 0;  // from 1, in the order of the module
  int parent = 0;  // 0 at the top
  int level = 1;
  std::array<std::string, kFixedAttributes + kOwnAttributes> values;  // UTF-8; "" where the object has none
};

/// The module kRequirements: objects of chapters, sections and requirements with their details, five
/// levels deep. Requirements have a text of some sentences, one in a hundred a
/// comment of some thousand characters; one in twenty texts is not plain ASCII.
void ForEachObject(int count, Edition edition, const std::function<void(const GeneratedObject&)>& visit);

inline constexpr TextView kModulePath = u"/Plant/Requirements";
/// Makes the module in a database without it.
void FillDatabase(standins::DoorsDatabase& database, int count);

}  // namespace kestrune::bench
