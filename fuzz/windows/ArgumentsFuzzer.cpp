// The callbacks of Kestrune.dll, called with arguments of any kind and number, as a host or a script might by mistake:
//   fuzz-arguments SECONDS [SEED]
// Every call has its own seed, and the next call the next one. Whatever opens meanwhile is closed. What fails is named
// with the seed of its call.
#include <Kestrune_h.h>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <random>
#include <windows.h>

#include "platform/com/ComText.h"
#include "platform/com/ComVariant.h"
#include "standins/host-model/OrimModel.h"
#include "tests/windows/com/DllUnderTest.h"

namespace kestrune::fuzz {

namespace {

unsigned seed = 0;  // of the call under way

[[noreturn]] void Fail(const char* what) {
  std::fprintf(stderr, "seed %u: %s\n", seed, what);
  std::fflush(stderr);
  std::_Exit(1);
}
void Require(bool met, const char* what) {
  if (!met) Fail(what);
}

BOOL CALLBACK Close(HWND window, LPARAM) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  if (process != GetCurrentProcessId() || !IsWindowVisible(window)) return TRUE;
  for (const WPARAM button : {IDCANCEL, IDNO, IDOK}) PostMessageW(window, WM_COMMAND, button, 0);
  PostMessageW(window, WM_CLOSE, 0, 0);
  return TRUE;
}
void CALLBACK CloseAll(HWND, UINT, UINT_PTR, DWORD) {
  EnumWindows(&Close, 0);
}

LONG CALLBACK TellOfTheCrash(EXCEPTION_POINTERS*) {
  Fail("the process crashed");
}

/// The arguments of one call, and what they refer to. Their owner, as the caller is by the rules of COM.
class Arguments {
 public:
  Arguments(std::mt19937& dice, IDispatch* host) : dice_(dice), host_(host) {}
  ~Arguments() {
    for (VARIANT& each : owned_) VariantClear(&each);
  }
  Arguments(const Arguments&) = delete;
  Arguments& operator=(const Arguments&) = delete;

  unsigned Roll(unsigned sides) { return std::uniform_int_distribution<unsigned>(0, sides - 1)(dice_); }

  /// By value or by reference; as likely as not a text or the host.
  VARIANT Any() {
    VARIANT& value = Value();
    if (Roll(3) != 0) return value;
    VARIANT reference = {};
    reference.vt = static_cast<VARTYPE>(VT_BYREF | (Roll(2) == 0 ? VARTYPE{VT_VARIANT} : value.vt));
    if (Roll(10) == 0)
      reference.byref = nullptr;
    else if (reference.vt == (VT_BYREF | VT_VARIANT))
      reference.pvarVal = &value;
    else
      reference.byref = value.vt == VT_DECIMAL ? static_cast<void*>(&value) : &value.lVal;
    return reference;
  }
  BSTR AnyText() {
    VARIANT& value = owned_.emplace_back();
    value.vt = VT_BSTR;
    return value.bstrVal = NewText();
  }

 private:
  BSTR NewText() {
    static const Text kTexts[] = {u"",       u"-DOORS",           u"TreeView", u"{A1B2}",
                                  u"IconID", u"&Help|&About",     u"&Import",  u"&Options",
                                  u"7",      Text(100'000, u'x'), u"\xD800",   Text(2, u'\0')};
    const unsigned which = Roll(std::size(kTexts) + 1);
    return which == std::size(kTexts) ? nullptr : Bstr(kTexts[which]).Release();
  }
  SAFEARRAY* NewArray(VARTYPE type) {
    if (Roll(8) == 0) return nullptr;
    SAFEARRAYBOUND bounds[2] = {{Roll(3), -1}, {2, 0}};
    return SafeArrayCreate(type, 1 + Roll(2), bounds);
  }

  VARIANT& Value() {
    static constexpr VARTYPE kTypes[] = {VT_EMPTY, VT_NULL, VT_I1,   VT_UI1,   VT_I2,      VT_UI2,    VT_I4,
                                         VT_UI4,   VT_INT,  VT_UINT, VT_I8,    VT_UI8,     VT_R4,     VT_R8,
                                         VT_CY,    VT_DATE, VT_BOOL, VT_ERROR, VT_DECIMAL, VT_UNKNOWN};
    static constexpr VARTYPE kElements[] = {VT_BSTR, VT_VARIANT, VT_I4, VT_DISPATCH};
    VARIANT& value = owned_.emplace_back();
    switch (Roll(6)) {
      case 0:
      case 1:
        value.vt = VT_BSTR;
        value.bstrVal = NewText();
        break;
      case 2:
        value.vt = VT_DISPATCH;
        if (Roll(4) != 0) (value.pdispVal = host_)->AddRef();
        break;
      case 3:
        value.vt = kElements[Roll(std::size(kElements))];
        value.parray = NewArray(value.vt);
        value.vt |= VT_ARRAY;
        break;
      default:
        value.llVal = static_cast<LONGLONG>(dice_()) << Roll(33);
        value.vt = kTypes[Roll(std::size(kTypes))];
        if (value.vt == VT_UNKNOWN) value.punkVal = nullptr;
        if (value.vt == VT_ERROR && Roll(2) == 0) value.scode = DISP_E_PARAMNOTFOUND;
    }
    return value;
  }

  std::mt19937& dice_;
  IDispatch* host_;
  std::deque<VARIANT> owned_;
};

/// Whether the call came as far as the add-in.
bool CallByName(IDispatch& add_in, Arguments& arguments) {
  static constexpr UINT kCounts[] = {1, 0, 1, 3, 3, 2, 3, 3, 1, 3, 2};  // of the callbacks, from id 1 on
  const DISPID id = static_cast<DISPID>(arguments.Roll(13));
  const bool is_callback = id >= 1 && id <= static_cast<DISPID>(std::size(kCounts));
  const UINT count = is_callback && arguments.Roll(4) != 0 ? kCounts[id - 1] : arguments.Roll(6);
  std::vector<VARIANT> passed;
  for (UINT i = 0; i < count; ++i) passed.push_back(arguments.Any());
  DISPPARAMS params = {passed.data(), nullptr, count, 0};
  VARIANT answer = {};
  EXCEPINFO info = {};
  UINT wrong = 0;
  const WORD flags = static_cast<WORD>(arguments.Roll(8) == 0 ? arguments.Roll(16) : DISPATCH_METHOD);
  const HRESULT result = add_in.Invoke(
      id, IID_NULL, LOCALE_NEUTRAL, flags, arguments.Roll(50) == 0 ? nullptr : &params,
      arguments.Roll(10) == 0 ? nullptr : &answer, arguments.Roll(10) == 0 ? nullptr : &info, &wrong);
  Require(result != DISP_E_EXCEPTION || !info.scode || SysStringLen(info.bstrDescription) > 0,
          "a failure is not explained");
  for (BSTR text : {info.bstrSource, info.bstrDescription, info.bstrHelpFile}) SysFreeString(text);
  VariantClear(&answer);
  return SUCCEEDED(result) || result == DISP_E_EXCEPTION;
}

void CallEarly(_OrimDoors& add_in, Arguments& arguments, IDispatch* host) {
  IDispatch* repository = arguments.Roll(4) == 0 ? nullptr : host;
  IDispatch** at = arguments.Roll(8) == 0 ? nullptr : &repository;
  BSTR first = arguments.AnyText(), second = arguments.AnyText();
  BSTR* first_at = arguments.Roll(8) == 0 ? nullptr : &first;
  BSTR* second_at = arguments.Roll(8) == 0 ? nullptr : &second;
  const bool wants = arguments.Roll(8) != 0;
  VARIANT answer = {};
  BSTR text = nullptr;
  long number = 0;
  VARIANT_BOOL flag = VARIANT_FALSE;
  switch (arguments.Roll(11)) {
    case 0:
      add_in.Orim_Connect(at, wants ? &text : nullptr);
      break;
    case 1:
      add_in.Orim_Disconnect();
      break;
    case 2:
      add_in.Orim_OnPostInitialized(at, wants ? &answer : nullptr);
      break;
    case 3:
      add_in.Orim_GetMenuItems(at, first_at, second, wants ? &answer : nullptr);
      break;
    case 4:
      add_in.Orim_MenuClick(at, first, second);
      break;
    case 5:
      add_in.Orim_ShowHelp(first, second);
      break;
    case 6:
      add_in.Plexa_View(at, first_at, second_at, wants ? &number : nullptr);
      break;
    case 7:
      add_in.Plexa_Connect(at, wants ? &number : nullptr, first_at, &number);
      break;
    case 8:
      add_in.Plexa_GetConnectedPackages(at, wants ? &answer : nullptr);
      break;
    case 9:
      add_in.Plexa_GetProperty(at, first_at, second_at, wants ? &answer : nullptr);
      break;
    default:
      add_in.Plexa_Disconnect(at, first_at, wants ? &flag : nullptr);
  }
  SysFreeString(text);
  VariantClear(&answer);
}

ULONG References(IUnknown& object) {
  object.AddRef();
  return object.Release();
}

/// One call, and what it has left in the message queue. Whether it came as far as the add-in.
bool Call(IDispatch& add_in, _OrimDoors& early, IDispatch* host, standins::OrimModel& model) {
  std::mt19937 dice(seed);
  Arguments arguments(dice, host);
  model.SetLibraryBuild(arguments.Roll(4) == 0 ? 1 : 900);
  model.SetLocked(model.Packages().front().element_id, arguments.Roll(2) == 0);
  const bool is_early = arguments.Roll(4) == 0;
  if (is_early) CallEarly(early, arguments, host);
  const bool came = is_early || CallByName(add_in, arguments);
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
  return came;
}

int Run(DWORD seconds) {
  auto model = standins::OrimModel::Create(":memory:");
  model.SelectPackage(model.AddPackage(0, u"Requirements"));
  const ComPtr<IDispatch> host = ToDispatch(model.Repository());
  unsigned calls = 0;
  {
    const ComPtr<IDispatch> add_in = testing::NewAddIn();
    const ComPtr<_OrimDoors> early = add_in.As<_OrimDoors>(__uuidof(_OrimDoors));
    const ULONGLONG end = GetTickCount64() + 1000ULL * seconds;
    for (; GetTickCount64() < end; ++calls, ++seed) {
      const ULONG before = References(*host.Get());
      // Wine does not let go of the arguments of a call that it refuses itself.
      if (Call(*add_in.Get(), *early.Get(), host.Get(), model))
        Require(References(*host.Get()) == before, "the add-in keeps references to the host");
    }
  }
  Require(testing::Export<HRESULT STDMETHODCALLTYPE()>("DllCanUnloadNow")() == S_OK, "the DLL stays loaded");
  std::printf("%-10s %10u executions\n", "arguments", calls);
  return 0;
}

}  // namespace

}  // namespace kestrune::fuzz

int main(int argc, char** argv) {
  using namespace kestrune::fuzz;
  if (argc < 2) return 2;
  if (argc > 2) seed = static_cast<unsigned>(std::strtoul(argv[2], nullptr, 10));
  SetUnhandledExceptionFilter(&TellOfTheCrash);
  if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return 2;
  SetTimer(nullptr, 0, 10, &CloseAll);
  const int result = Run(std::strtoul(argv[1], nullptr, 10));
  CoUninitialize();
  return result;
}
