// The base of the typed handles: each is a counted, late-bound object of the host, or nothing (false).
#pragma once

#include "orim/Members.h"
#include "platform/Automation.h"

namespace kestrune::orim {

class Handle {
 public:
  Handle() = default;
  explicit Handle(Object object) : object_(std::move(object)) {}
  explicit operator bool() const { return static_cast<bool>(object_); }

 protected:
  Text GetText(TextView member) const { return object_.Get(member).ToText(); }
  std::int32_t GetInt(TextView member) const { return object_.Get(member).ToInt(); }
  Object GetObject(TextView member) const { return object_.Get(member).ToObject(); }
  const Object& object() const { return object_; }

 private:
  Object object_;
};

}  // namespace kestrune::orim
