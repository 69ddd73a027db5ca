#include <gtest/gtest.h>

#include "platform/Files.h"
#include "platform/com/ComText.h"
#include "platform/windows/Win32Folders.h"
#include "tests/windows/com/DllUnderTest.h"
#include "tests/windows/com/HostStandIn.h"
#include "tests/windows/com/LateCall.h"
#include "tests/windows/dialogs/Person.h"

namespace kestrune::testing {
namespace {

struct Callback {
  const wchar_t* name;
  Args args;  // after the repository
  std::string answer;
  std::vector<std::string> calls = {};  // of the host
};

class CallbacksTest : public ::testing::TestWithParam<Passing> {
 protected:
  Args WithRepository(Args args = {}) {
    args.insert(args.begin(), Variant(Object(std::make_shared<HostRepository>(host))));
    return args;
  }
  void Expect(const Callback& callback, const Args& args) {
    host.calls.clear();
    const LateAnswer answer = CallLate(*add_in.Get(), callback.name, args, GetParam());
    const Text name(FromWide(callback.name));
    EXPECT_EQ(answer.result, S_OK) << ToUtf8(name) << ": " << answer.description;
    EXPECT_EQ(answer.value, callback.answer) << ToUtf8(name);
    EXPECT_EQ(host.calls, callback.calls) << ToUtf8(name);
  }
  /// The person presses `button` of the box that the callback opens.
  void ExpectAfter(int button, const Callback& callback) {
    WithPerson(
        [&] { PostMessageW(Screen(u"Kestrune Link").Window(), WM_COMMAND, static_cast<WPARAM>(button), 0); },
        [&] { Expect(callback, WithRepository(callback.args)); });
  }

  HostModel host;
  ComPtr<IDispatch> add_in = NewAddIn();
};

TEST_P(CallbacksTest, AnswerInTheTypesOfTheHostsAutomation) {
  const Callback callbacks[] = {
      {L"Orim_Connect", {}, "BSTR Plexa"},
      {L"orim_CONNECT", {}, "BSTR Plexa"},
      {L"Orim_OnPostInitialized",
       {},
       "EMPTY",
       {"CreateOutputTab DOORS", "WriteOutput DOORS Kestrune Link Initialized. -1"}},
      {L"Orim_GetMenuItems", {u"TreeView", u""}, "BSTR -DOORS"},
      {L"ORIM_GETMENUITEMS", {u"TreeView", u"-DOORS"}, "BSTR[] &Help|&About"},
      {L"Orim_MenuClick", {u"-DOORS", u"no such item"}, "EMPTY"},
      {L"Plexa_View", {u"{A1B2}", u"1"}, "I4 0"},
      {L"Plexa_GetProperty", {u"{A1B2}", u"HiddenMenus"}, "I4 7"},
      {L"Plexa_GetProperty", {u"{A1B2}", u"IconID"}, "BSTR " + ToUtf8(DllPath()) + "#101"},
      {L"plexa_getproperty", {u"{A1B2}", u"Language"}, "EMPTY"},
  };
  for (const Callback& callback : callbacks) Expect(callback, WithRepository(callback.args));
  Expect({L"Orim_Disconnect", {}, "EMPTY"}, {});
  Expect({L"Orim_ShowHelp", {}, "EMPTY"}, {u"-DOORS", u"&Import"});
}

TEST_P(CallbacksTest, RefusalsAndConsentOfTheUser) {
  ExpectAfter(IDNO, {L"Plexa_Disconnect", {u"{A1B2}"}, "BOOL 0"});
  ExpectAfter(IDYES,
              {L"Plexa_Disconnect", {u"{A1B2}"}, "BOOL -1", {"PackageByGuid {A1B2}", "RefreshModelView 7"}});
  host.is_locked = true;
  ExpectAfter(IDOK, {L"Plexa_Connect", {70000, u"{A1B2}"}, "I4 0", {"PackageByID 70000"}});
  ExpectAfter(IDOK, {L"Plexa_Connect", {u"42", u"{A1B2}"}, "I4 0", {"PackageByID 42"}});
  host.build = 826;
  ExpectAfter(IDOK, {L"Orim_Connect", {}, "BSTR "});
}

TEST_P(CallbacksTest, ConnectedPackagesAreAnArrayOfTexts) {
  const Text folder = *Win32Folders().RoamingAppData() + u"\\Brannock Works\\PlexaDOORS";
  const Text link_file = folder + u"\\{com-tests ö}.xml";
  CallLate(*add_in.Get(), L"Plexa_GetConnectedPackages", WithRepository());  // makes the folder
  WriteFile(link_file, "");
  const LateAnswer answer =
      CallLate(*add_in.Get(), L"Plexa_GetConnectedPackages", WithRepository(), GetParam());
  RemoveFile(link_file);
  EXPECT_TRUE(answer.value.starts_with("BSTR[] ")) << answer.value;
  EXPECT_NE(answer.value.find("{com-tests ö}"), std::string::npos) << answer.value;
}

const char* NameOf(const ::testing::TestParamInfo<Passing>& info) {
  switch (info.param) {
    case Passing::kByValue:
      return "ByValue";
    case Passing::kByReference:
      return "ByReference";
    case Passing::kVariantByReference:
      return "VariantByReference";
  }
  return "Unknown";
}

INSTANTIATE_TEST_SUITE_P(Arguments, CallbacksTest,
                         ::testing::Values(Passing::kByValue, Passing::kByReference,
                                           Passing::kVariantByReference),
                         NameOf);

}  // namespace
}  // namespace kestrune::testing
