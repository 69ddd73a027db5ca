// What a client is told of failures, late-bound and early-bound.
#include <Kestrune_h.h>
#include <gtest/gtest.h>

#include "platform/com/ComText.h"
#include "tests/support/TestHost.h"
#include "tests/windows/com/DllUnderTest.h"
#include "tests/windows/com/LateCall.h"

namespace kestrune::testing {
namespace {

constexpr auto kNumber = static_cast<HRESULT>(0x800403E9);

class FailuresTest : public ::testing::Test {
 protected:
  void FailNextCall() { host.model.Faults().FailCall(1, {0x800403E9, u"Host", u"The model is böse."}); }
  TestHost host;
  Object repository = host.model.Repository();
  ComPtr<IDispatch> add_in = NewAddIn();
};

TEST_F(FailuresTest, AHostsFailureComesBackToALateBoundCaller) {
  FailNextCall();
  const LateAnswer answer = CallLate(*add_in.Get(), L"Orim_Connect", {repository});
  EXPECT_EQ(answer.result, DISP_E_EXCEPTION);
  EXPECT_EQ(answer.number, kNumber);
  EXPECT_EQ(answer.source, "Host");
  EXPECT_EQ(answer.description, "The model is böse.");
}

TEST_F(FailuresTest, AndToAnEarlyBoundOneWhoseResultsAreItsOwn) {
  const auto early = add_in.As<_OrimDoors>(__uuidof(_OrimDoors));
  const auto supporting = add_in.As<ISupportErrorInfo>(IID_ISupportErrorInfo);
  ASSERT_TRUE(early && supporting);
  EXPECT_EQ(supporting->InterfaceSupportsErrorInfo(__uuidof(_OrimDoors)), S_OK);
  EXPECT_EQ(supporting->InterfaceSupportsErrorInfo(IID_IDispatch), S_FALSE);

  auto handed = ToDispatch(repository);
  IDispatch* handed_over = handed.Get();
  Bstr result, source, description;
  FailNextCall();
  EXPECT_EQ(early->Orim_Connect(&handed_over, result.Out()), kNumber);
  EXPECT_EQ(result.Get(), nullptr);
  ComPtr<IErrorInfo> info;
  ASSERT_EQ(GetErrorInfo(0, info.Out()), S_OK);
  info->GetSource(source.Out());
  info->GetDescription(description.Out());
  EXPECT_EQ(source.View(), u"Host");
  EXPECT_EQ(description.View(), u"The model is böse.");

  EXPECT_EQ(early->Orim_Connect(&handed_over, result.Out()), S_OK);
  EXPECT_EQ(result.View(), u"Plexa");
  EXPECT_EQ(early->Orim_Connect(&handed_over, nullptr), E_POINTER);
  long number = 5;
  EXPECT_EQ(early->Plexa_View(nullptr, nullptr, nullptr, &number), S_OK);
  EXPECT_EQ(number, 0);
}

TEST_F(FailuresTest, WrongCallsAreRefused) {
  const auto number_of = [&](const wchar_t* name, const Args& args) {
    const LateAnswer answer = CallLate(*add_in.Get(), name, args);
    return answer.result == DISP_E_EXCEPTION ? answer.number : answer.result;
  };
  EXPECT_EQ(number_of(L"Orim_Explode", {}), DISP_E_UNKNOWNNAME);
  EXPECT_EQ(number_of(L"Orim_Connect", {}), DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(number_of(L"Orim_Connect", {repository, 1}), DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(number_of(L"Orim_Connect", {u"no object"}), DISP_E_TYPEMISMATCH);
  EXPECT_EQ(number_of(L"Plexa_Connect", {repository, u"no number", u"{A}"}), DISP_E_TYPEMISMATCH);
  EXPECT_EQ(number_of(L"Orim_Connect", {Object()}), static_cast<HRESULT>(error::kObjectMissing));
}

TEST(ClassObjectTest, KeepsTheModuleAsLongAsSomebodyNeedsIt) {
  const auto can_unload = Export<HRESULT STDMETHODCALLTYPE()>("DllCanUnloadNow");
  EXPECT_EQ(can_unload(), S_OK);
  {
    const auto add_in = NewAddIn();
    EXPECT_EQ(can_unload(), S_FALSE);
  }
  EXPECT_EQ(can_unload(), S_OK);
  Factory()->LockServer(TRUE);
  EXPECT_EQ(can_unload(), S_FALSE);
  Factory()->LockServer(FALSE);
  EXPECT_EQ(can_unload(), S_OK);
}

TEST(ClassObjectTest, RefusesWhatItDoesNotMake) {
  const auto get = Export<HRESULT STDMETHODCALLTYPE(REFCLSID, REFIID, void**)>("DllGetClassObject");
  ComPtr<IUnknown> made;
  EXPECT_EQ(get(IID_IDispatch, IID_IUnknown, made.OutVoid()), CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(get(__uuidof(::OrimDoors), IID_IDispatch, made.OutVoid()), E_NOINTERFACE);
  EXPECT_EQ(Factory()->CreateInstance(nullptr, IID_IClassFactory, made.OutVoid()), E_NOINTERFACE);
  const auto outer = NewAddIn();
  EXPECT_EQ(Factory()->CreateInstance(outer.Get(), IID_IUnknown, made.OutVoid()), CLASS_E_NOAGGREGATION);
  EXPECT_FALSE(made);
}

}  // namespace
}  // namespace kestrune::testing
