#include "platform/com/ComObjectFactory.h"

#include "platform/com/ComText.h"
#include "platform/com/ComVariant.h"
#include "platform/com/Failure.h"

namespace kestrune {

Object ComObjectFactory::Create(TextView prog_id) {
  CLSID class_id;
  Require(CLSIDFromProgID(Wide(Text(prog_id)), &class_id), prog_id);
  ComPtr<IDispatch> object;
  Require(CoCreateInstance(class_id, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER, IID_IDispatch,
                           object.OutVoid()),
          prog_id);
  return FromDispatch(object.Get());
}

}  // namespace kestrune
