#include "standins/dxl/Call.h"

#include <stdexcept>

#include "standins/dxl/Error.h"

namespace kestrune::dxl {

void Call::Set(std::size_t i, Value value) {
  if (value.Kind() == kUntypedHandle) value.SetHandleType(types_[i]);
  if (value.Kind() != types_[i]) throw ScriptError(u"value of another type than the variable");
  *arguments_[i].AsReference() = std::move(value);
}

Value Promised(Value value, Type type) {
  if (type == kAny || type == kVoid) return value;
  if (value.Kind() == kUntypedHandle && IsHandle(type)) value.SetHandleType(type);
  if (value.Kind() != type)
    throw std::logic_error("a perm gave a value of another type than its signature says");
  return value;
}

}  // namespace kestrune::dxl
