// What a running script reaches outside itself. The interpreter has no files, no output and no
// clock of its own.
#pragma once

#include "platform/Text.h"

namespace kestrune::dxl {

class Host {
 public:
  virtual ~Host() = default;
  /// Output of print.
  virtual void Print(TextView text) = 0;
  /// The Result property of the automation object, for oleGetResult and oleSetResult.
  virtual Text Result() = 0;
  virtual void SetResult(Text result) = 0;
  /// An unused path in the folder of temporary files; the file is not made.
  virtual Text TempFileName() = 0;
};

}  // namespace kestrune::dxl
