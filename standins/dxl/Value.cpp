#include "standins/dxl/Value.h"

namespace kestrune::dxl {

const Text Value::kEmptyText;

Value Value::Array(Type element, std::size_t size) {
  Value array(Type{element.id, true});
  array.shared_ = std::make_shared<std::vector<Value>>(size);
  return array;
}

Value Value::Reference(Value* target) {
  Value reference(kReference);
  reference.scalar_.reference = target;
  return reference;
}

}  // namespace kestrune::dxl
