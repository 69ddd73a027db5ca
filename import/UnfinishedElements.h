// Elements that an import made and did not come to finish, because its process ended between the two.
#pragma once

#include <optional>
#include <unordered_map>

#include "orim/Repository.h"

namespace kestrune {

/// Such an element is a requirement of the package with a name and nothing else, no tagged value above all, so that no
/// import would know it again. The host is asked for them once, when the first is needed.
class UnfinishedElements {
 public:
  UnfinishedElements(orim::Repository repository, orim::Package package)
      : repository_(std::move(repository)), package_(std::move(package)) {}

  /// One with that name, which is given away only once; nothing where there is none.
  std::optional<std::int32_t> Take(const Text& name);

 private:
  void Load();

  orim::Repository repository_;
  orim::Package package_;
  std::optional<std::unordered_multimap<Text, std::int32_t>> ids_by_name_;
};

}  // namespace kestrune
