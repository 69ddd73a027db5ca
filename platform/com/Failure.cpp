#include "platform/com/Failure.h"

#include "platform/com/ComPtr.h"
#include "platform/com/ComText.h"

namespace kestrune {

namespace {

constexpr std::uint32_t kOutOfMemory = 0x8007000E;
constexpr std::uint32_t kUnexpected = 0x8000FFFF;

}  // namespace

void Require(HRESULT result) {
  if (FAILED(result))
    throw AutomationError(static_cast<std::uint32_t>(result), u"Kestrune", SystemMessage(result));
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
