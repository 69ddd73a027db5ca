// What every COM object of ours shares: it is born with one reference and dies with the last one.
#pragma once

#include <atomic>
#include <oaidl.h>
#include <type_traits>

namespace kestrune {

/// IUnknown for an object with these interfaces; the first one's bases IUnknown and IDispatch are its own.
template <typename First, typename... More>
class Counted : public First, public More... {
 public:
  Counted() = default;
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
    if (!out) return E_POINTER;
    *out = nullptr;
    const bool is_first = iid == __uuidof(IUnknown) || iid == __uuidof(First) ||
                          (std::is_base_of_v<IDispatch, First> && iid == __uuidof(IDispatch));
    if (is_first) *out = static_cast<First*>(this);
    ((iid == __uuidof(More) ? void(*out = static_cast<More*>(this)) : void()), ...);
    if (!*out) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

 protected:
  virtual ~Counted() = default;

 private:
  std::atomic<ULONG> references_ = 1;
};

}  // namespace kestrune
