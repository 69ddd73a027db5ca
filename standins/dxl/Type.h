// Static types. The base types have fixed ids; a Library hands out the ids of handle types as they are added.
#pragma once

#include <cstdint>

namespace kestrune::dxl {

struct Type {
  std::uint16_t id = 0;
  bool is_array = false;

  constexpr Type Element() const { return {id, false}; }
  friend constexpr bool operator==(Type, Type) = default;
};

inline constexpr Type kNone{0};       // of a variable that was never assigned
inline constexpr Type kReference{1};  // inside the interpreter: a by-reference argument
inline constexpr Type kNull{2};       // of the word null, which becomes a value of any type
inline constexpr Type kAny{3};        // what a Skip keeps: the type is known at run time only
inline constexpr Type kVoid{4};
inline constexpr Type kBool{5};
inline constexpr Type kChar{6};
inline constexpr Type kInt{7};
inline constexpr Type kReal{8};
inline constexpr Type kString{9};
inline constexpr Type kUntypedHandle{10};  // fresh from a perm, until its signature's type is put on it
inline constexpr std::uint16_t kFirstHandleId = 11;

constexpr bool IsHandle(Type type) {
  return type.id >= kFirstHandleId && !type.is_array;
}

}  // namespace kestrune::dxl
