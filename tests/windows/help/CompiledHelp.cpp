#include "tests/windows/help/CompiledHelp.h"

#include <windows.h>

#include "platform/com/ComText.h"
#include "platform/com/Failure.h"

namespace kestrune::testing {

// Not in the unnamed namespace: the compiler would see that nothing implements it, and call nothing.
struct Storages : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE StgCreateDocfile(const WCHAR*, DWORD, DWORD, IStorage**) = 0;
  virtual HRESULT STDMETHODCALLTYPE StgCreateDocfileOnILockBytes(ILockBytes*, DWORD, DWORD, IStorage**) = 0;
  virtual HRESULT STDMETHODCALLTYPE StgIsStorageFile(const WCHAR*) = 0;
  virtual HRESULT STDMETHODCALLTYPE StgIsStorageILockBytes(ILockBytes*) = 0;
  virtual HRESULT STDMETHODCALLTYPE StgOpenStorage(const WCHAR* name, IStorage* priority, DWORD mode,
                                                   SNB exclude, DWORD reserved, IStorage** storage) = 0;
};

namespace {

// The system's storages in such files (itss.dll); MinGW has no header for them.
constexpr CLSID kStoragesClass = {
    0x5d02926a, 0x212e, 0x11d0, {0x9d, 0xf9, 0x00, 0xa0, 0xc9, 0x22, 0xe6, 0xec}};
constexpr IID kStoragesInterface = {
    0x88cc31de, 0x27ab, 0x11d0, {0x9d, 0xf9, 0x00, 0xa0, 0xc9, 0x22, 0xe6, 0xec}};

std::uint32_t NumberAt(const std::string& bytes, std::size_t at) {
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < 4; ++i)
    number |= static_cast<std::uint32_t>(static_cast<std::uint8_t>(bytes.at(at + i))) << 8 * i;
  return number;
}

}  // namespace

CompiledHelp::CompiledHelp(const Text& path) {
  ComPtr<Storages> storages;
  Require(CoCreateInstance(kStoragesClass, nullptr, CLSCTX_INPROC_SERVER, kStoragesInterface,
                           storages.OutVoid()));
  Require(storages->StgOpenStorage(Wide(path), nullptr, STGM_READ | STGM_SHARE_DENY_WRITE, nullptr, 0,
                                   storage_.Out()));
}

ComPtr<IStream> CompiledHelp::Open(const std::string& path) const {
  ComPtr<IStream> stream;
  const Text name = u"/" + FromUtf8(path);
  storage_->OpenStream(Wide(name), nullptr, STGM_READ | STGM_SHARE_DENY_WRITE, 0, stream.Out());
  return stream;
}

bool CompiledHelp::Has(const std::string& path) const {
  return static_cast<bool>(Open(path));
}

std::string CompiledHelp::Read(const std::string& path) const {
  const auto stream = Open(path);
  std::string bytes;
  char part[4096];
  ULONG count = 0;
  while (stream && SUCCEEDED(stream->Read(part, sizeof part, &count)) && count > 0) bytes.append(part, count);
  return bytes;
}

// "#IVB" is its own size and then pairs: a number and where in "#STRINGS" its page is named.
std::map<int, std::string> CompiledHelp::Contexts() const {
  const std::string pairs = Read("#IVB");
  const std::string names = Read("#STRINGS");
  std::map<int, std::string> contexts;
  for (std::size_t at = 4; at + 8 <= pairs.size(); at += 8)
    contexts[static_cast<int>(NumberAt(pairs, at))] = names.c_str() + NumberAt(pairs, at + 4);
  return contexts;
}

}  // namespace kestrune::testing
