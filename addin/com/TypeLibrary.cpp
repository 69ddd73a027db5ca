#include "addin/com/TypeLibrary.h"

#include "platform/com/ComText.h"
#include "platform/com/Failure.h"
#include "platform/windows/Module.h"

namespace kestrune {

ComPtr<ITypeInfo> OwnTypeInfo(REFIID iid) {
  ComPtr<ITypeLib> library;
  Require(LoadTypeLibEx(Wide(ThisModulePath()), REGKIND_NONE, library.Out()));
  ComPtr<ITypeInfo> info;
  Require(library->GetTypeInfoOfGuid(iid, info.Out()));
  return info;
}

}  // namespace kestrune
