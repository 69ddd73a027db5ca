// Our text as Windows and COM hold it, and the owner of a BSTR.
#pragma once

#include <utility>
#include <windows.h>

#include "platform/Text.h"

namespace kestrune {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

inline const wchar_t* Wide(const Text& text) {
  return reinterpret_cast<const wchar_t*>(text.c_str());
}
inline TextView FromWide(std::wstring_view text) {
  return {reinterpret_cast<const char16_t*>(text.data()), text.size()};
}

/// Owns a BSTR; none is the empty text.
class Bstr {
 public:
  Bstr() = default;
  explicit Bstr(TextView text);
  Bstr(Bstr&& other) noexcept : text_(other.Release()) {}
  Bstr& operator=(Bstr&&) = delete;
  ~Bstr() { SysFreeString(text_); }

  BSTR Get() const { return text_; }
  /// Where a call puts its result; only while this owns nothing.
  BSTR* Out() { return &text_; }
  /// Gives the BSTR to the caller.
  BSTR Release() { return std::exchange(text_, nullptr); }
  TextView View() const;

 private:
  BSTR text_ = nullptr;
};

/// The text of a BSTR that somebody else owns.
TextView ViewOf(BSTR text);

/// Text of the system's 8-bit code page.
Text FromSystemCodePage(std::string_view bytes);

/// What the system says of an HRESULT, in one line; its number in hexadecimal when it says nothing.
Text SystemMessage(HRESULT result);

}  // namespace kestrune
