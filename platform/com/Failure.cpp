#include "platform/com/Failure.h"

#include "platform/com/ComPtr.h"
#include "platform/com/ComText.h"

namespace kestrune {

namespace {

constexpr std::uint32_t kOutOfMemory = 0x8007000E;
constexpr std::uint32_t kUnexpected = 0x8000FFFF;

[[noreturn]] void Throw(HRESULT result, TextView about) {
  Text description = SystemMessage(result);
  if (!about.empty()) description.append(u" (").append(about).append(u")");
  throw AutomationError(static_cast<std::uint32_t>(result), u"Kestrune", description);
}

}  // namespace

void Require(HRESULT result, TextView about) {
  if (FAILED(result)) Throw(result, about);
}

void ThrowLastError() {
  const DWORD error = GetLastError();
  Throw(error ? HRESULT_FROM_WIN32(error) : E_FAIL, {});
}

AutomationError CurrentFailure() {
  try {
    throw;
  } catch (const AutomationError& error) {
    return error;
  } catch (const std::bad_alloc&) {
    return {kOutOfMemory, u"Kestrune", SystemMessage(E_OUTOFMEMORY)};
  } catch (const std::exception& error) {
    return {kUnexpected, u"Kestrune", FromUtf8(error.what())};
  } catch (...) {
    return {kUnexpected, u"Kestrune", SystemMessage(E_UNEXPECTED)};
  }
}

HRESULT FillIn(EXCEPINFO* info, const AutomationError& failure) {
  if (info) {
    *info = {};
    info->scode = static_cast<SCODE>(failure.Number);
    info->bstrSource = Bstr(failure.Source).Release();
    info->bstrDescription = Bstr(failure.Description).Release();
  }
  return DISP_E_EXCEPTION;
}

HRESULT LeaveErrorInfo(const AutomationError& failure) {
  ComPtr<ICreateErrorInfo> making;
  if (SUCCEEDED(CreateErrorInfo(making.Out()))) {
    making->SetSource(Bstr(failure.Source).Get());
    making->SetDescription(Bstr(failure.Description).Get());
    SetErrorInfo(0, making.As<IErrorInfo>(IID_IErrorInfo).Get());
  }
  const auto number = static_cast<HRESULT>(failure.Number);
  return FAILED(number) ? number : E_FAIL;
}

}  // namespace kestrune
