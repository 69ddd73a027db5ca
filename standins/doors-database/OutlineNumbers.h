// The outline numbers of a module's objects, such as 2.1.1-0.1.
#pragma once

#include "standins/doors-database/ModuleContent.h"

namespace kestrune::standins {

/// Headings count 1, 2, 3 below their parent ("2.1"); the other objects below a heading count apart from them
/// ("2.1-0.1"); what lies below one of those goes on with a dot ("2.1-0.1.1"). Deleted objects take no
/// number, and get none, unless they are shown. Only an object's own part is kept: the numbers of a long
/// chain are longer than any memory.
class OutlineNumbers {
 public:
  OutlineNumbers(const ModuleContent& content, bool show_deleted);
  /// The number of the object at a place; "" for none.
  Text At(int place) const;

 private:
  struct Part {
    TextView before = u"";  // what stands between the parent's number and the own one
    int own = 0;            // 0: no number
  };

  const ModuleContent& content_;
  std::vector<Part> parts_;
};

}  // namespace kestrune::standins
