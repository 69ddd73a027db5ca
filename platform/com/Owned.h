// Owners of what the system hands out and wants back: handles, memory, arrays.
#pragma once

#include <memory>
#include <type_traits>
#include <windows.h>

namespace kestrune {

/// Gives back what it is called with by `Release`, a function of the system.
template <auto Release>
struct Releaser {
  template <typename Handle>
  void operator()(Handle handle) const {
    Release(handle);
  }
};

template <typename Handle, auto Release>
using Owned = std::unique_ptr<std::remove_pointer_t<Handle>, Releaser<Release>>;

using OwnedArray = Owned<SAFEARRAY*, SafeArrayDestroy>;
using OwnedFont = Owned<HFONT, DeleteObject>;
using OwnedHandle = Owned<HANDLE, CloseHandle>;
using OwnedLocalText = Owned<wchar_t*, LocalFree>;
using OwnedMemory = Owned<HGLOBAL, GlobalFree>;
using OwnedMenu = Owned<HMENU, DestroyMenu>;

}  // namespace kestrune
