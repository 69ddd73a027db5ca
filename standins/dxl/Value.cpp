#include "standins/dxl/Value.h"

#include "standins/dxl/Operators.h"

namespace kestrune::dxl {

namespace {

constexpr std::size_t kBlockOverhead = 48;  // of a counted allocation: its counters and the allocator's own

/// The elements know what they took before they are there.
struct KeptArray {
  explicit KeptArray(std::size_t size) : lease(kBlockOverhead + size * sizeof(Value)), elements(size) {}
  Lease lease;
  std::vector<Value> elements;
};

}  // namespace

const Text Value::kEmptyText;

std::size_t BytesOf(const Text& text) {
  constexpr std::size_t kFitsIntoItself = 8;
  return text.capacity() < kFitsIntoItself ? 0 : (text.capacity() + 1) * sizeof(char16_t) + kBlockOverhead;
}

Value::KeptText::KeptText(Text given)
    : text(std::move(given)), lease(BytesOf(text) + sizeof(KeptText) + kBlockOverhead) {}

Value::Value(Text value) : type_(kString) {
  if (value.empty()) return;
  if (Budget* const budget = Budget::Current()) {
    budget->CountString();
    budget->SpendOn(value.size());
  }
  shared_ = std::make_shared<KeptText>(std::move(value));
}

void Value::AppendInPlace(TextView more) {
  auto& kept = *static_cast<KeptText*>(shared_.get());
  const std::size_t before = BytesOf(kept.text);
  Append(kept.text, more);
  kept.lease.Grow(BytesOf(kept.text) - before);
  if (Budget* const budget = Budget::Current()) budget->CountString();
}

Value Value::Array(Type element, std::size_t size) {
  Value array(Type{element.id, true});
  auto kept = std::make_shared<KeptArray>(size);
  array.shared_ = std::shared_ptr<std::vector<Value>>(kept, &kept->elements);
  return array;
}

Value Value::Reference(Value* target) {
  Value reference(kReference);
  reference.scalar_.reference = target;
  return reference;
}

}  // namespace kestrune::dxl
