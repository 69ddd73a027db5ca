#include "platform/com/ComText.h"

#include <new>

#include "platform/com/Owned.h"

namespace kestrune {

namespace {

Text HexNumber(HRESULT result) {
  Text digits;
  for (int shift = 28; shift >= 0; shift -= 4)
    digits += u"0123456789ABCDEF"[static_cast<unsigned long>(result) >> shift & 15];
  return digits;
}

}  // namespace

Bstr::Bstr(TextView text)
    : text_(
          SysAllocStringLen(reinterpret_cast<const wchar_t*>(text.data()), static_cast<UINT>(text.size()))) {
  if (!text_) throw std::bad_alloc();
}

TextView Bstr::View() const {
  return ViewOf(text_);
}

TextView ViewOf(BSTR text) {
  return FromWide({text, SysStringLen(text)});
}

Text FromSystemCodePage(std::string_view bytes) {
  const int size = static_cast<int>(bytes.size());
  const int length = MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(length), L'\0');
  MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, wide.data(), length);
  return Text(FromWide(wide));
}

Text SystemMessage(HRESULT result) {
  wchar_t* message = nullptr;
  const DWORD length = FormatMessageW(
      FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
      static_cast<DWORD>(result), 0, reinterpret_cast<wchar_t*>(&message), 0, nullptr);
  const OwnedLocalText owned(message);
  const TextView text = Trim(FromWide({message, length}));
  return text.empty() ? u"Automation error " + HexNumber(result) : Text(text);
}

}  // namespace kestrune
