#include "tests/windows/com/DoorsInProcess.h"

#include "platform/com/ComText.h"
#include "platform/com/ComVariant.h"
#include "platform/com/Counted.h"
#include "platform/com/Failure.h"
#include "standins/StandInObject.h"

namespace kestrune::testing {

namespace {

constexpr CLSID kClass = {0x5D1A3F0E, 0x4C77, 0x4E1B, {0x9A, 0x55, 0x21, 0x6B, 0x0C, 0x3D, 0x8E, 0x47}};
constexpr const wchar_t* kKey = L"Software\\Classes\\Doors.Application\\CLSID";

class Application : public standins::StandInObject<Application> {
 public:
  static constexpr const char16_t* kClassName = u"Application";
  static const Members& Table() {
    static const Members table = {
        {u"Result",
         {.get = [](Application&) { return Variant(u"/Demo/Reqs\n"); },
          .put = [](Application&, const Variant&) {}}},
        {u"RunStr", {.call = [](Application&, const Args&) { return Variant(); }, .arg_count = 1}},
    };
    return table;
  }
};

class Factory : public Counted<IClassFactory> {
 public:
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID iid, void** out) override {
    return Guarded(
        [&] { return ToDispatch(Object(std::make_shared<Application>()))->QueryInterface(iid, out); });
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
};

}  // namespace

DoorsInProcess::DoorsInProcess() {
  wchar_t id[39] = L"";
  StringFromGUID2(kClass, id, static_cast<int>(std::size(id)));
  Require(HRESULT_FROM_WIN32(
      static_cast<DWORD>(RegSetKeyValueW(HKEY_LOCAL_MACHINE, kKey, nullptr, REG_SZ, id, sizeof id))));
  ComPtr<IClassFactory> factory;
  *factory.Out() = new Factory;
  Require(
      CoRegisterClassObject(kClass, factory.Get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &registration_));
}

DoorsInProcess::~DoorsInProcess() {
  CoRevokeClassObject(registration_);
  RegDeleteTreeW(HKEY_LOCAL_MACHINE, kKey);
}

}  // namespace kestrune::testing
