// A compiled help file, as the system's own reader of the format finds it.
#pragma once

#include <map>
#include <objidl.h>
#include <string>

#include "platform/Text.h"
#include "platform/com/ComPtr.h"

namespace kestrune::testing {

class CompiledHelp {
 public:
  /// Throws AutomationError when `path` cannot be read as such a file.
  explicit CompiledHelp(const Text& path);

  /// Whether `path`, such as "images/a.png", is in it.
  bool Has(const std::string& path) const;
  /// The bytes of a file in it; "" when there is none.
  std::string Read(const std::string& path) const;
  /// The page of each context number.
  std::map<int, std::string> Contexts() const;

 private:
  ComPtr<IStream> Open(const std::string& path) const;

  ComPtr<IStorage> storage_;
};

}  // namespace kestrune::testing
