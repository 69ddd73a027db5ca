#include <gtest/gtest.h>

#include "platform/Files.h"
#include "platform/com/ComText.h"
#include "platform/windows/Win32Folders.h"
#include "tests/support/TestHost.h"
#include "tests/windows/com/DllUnderTest.h"
#include "tests/windows/com/LateCall.h"
#include "tests/windows/dialogs/Person.h"

namespace kestrune::testing {
namespace {

class CallbacksTest : public ::testing::TestWithParam<Passing> {
 protected:
  void Expect(const wchar_t* callback, const Args& args, const std::string& value) {
    const LateAnswer answer = CallLate(*add_in.Get(), callback, args, GetParam());
    const Text name(FromWide(callback));
    EXPECT_EQ(answer.result, S_OK) << ToUtf8(name) << ": " << answer.description;
    EXPECT_EQ(answer.value, value) << ToUtf8(name);
  }

  TestHost host;
  Object repository = host.model.Repository();
  ComPtr<IDispatch> add_in = NewAddIn();
};

TEST_P(CallbacksTest, AnswerInTheTypesOfTheHostsAutomation) {
  const struct {
    const wchar_t* name;
    Args args;  // after the repository
    std::string answer;
  } callbacks[] = {
      {L"Orim_Connect", {}, "BSTR Plexa"},
      {L"orim_CONNECT", {}, "BSTR Plexa"},
      {L"Orim_OnPostInitialized", {}, "EMPTY"},
      {L"Orim_GetMenuItems", {u"TreeView", u""}, "BSTR -DOORS"},
      {L"ORIM_GETMENUITEMS", {u"TreeView", u"-DOORS"}, "BSTR[] &Help|&About"},
      {L"Orim_MenuClick", {u"-DOORS", u"no such item"}, "EMPTY"},
      {L"Plexa_View", {u"{A1B2}", u"1"}, "I4 0"},
      {L"Plexa_GetProperty", {u"{A1B2}", u"HiddenMenus"}, "I4 7"},
      {L"Plexa_GetProperty", {u"{A1B2}", u"IconID"}, "BSTR " + ToUtf8(DllPath()) + "#101"},
      {L"plexa_getproperty", {u"{A1B2}", u"Language"}, "EMPTY"},
  };
  for (const auto& each : callbacks) Expect(each.name, With(repository, each.args), each.answer);
  EXPECT_EQ(host.model.OutputLines(u"DOORS").size(), 1u) << "the repository was reached";
  Expect(L"Orim_Disconnect", {}, "EMPTY");
  Expect(L"Orim_ShowHelp", {u"-DOORS", u"&Import"}, "EMPTY");
}

TEST_P(CallbacksTest, NumbersAreTakenFromWhatAHostPasses) {
  host.model.SetLocked(host.Package().Element().ElementID(), true);
  const auto connect = [&](const Variant& id) {
    WithPerson([] { PostMessageW(Screen(u"Kestrune Link").Window(), WM_COMMAND, IDOK, 0); },
               [&] {
                 Expect(L"Plexa_Connect", With(repository, {id, host.Guid()}), "I4 0");
               });
  };
  connect(host.package_id);
  connect(ToText(host.package_id));
}

TEST_P(CallbacksTest, ConnectedPackagesAreAnArrayOfTexts) {
  const Text folder = *Win32Folders().RoamingAppData() + u"\\Brannock Works\\PlexaDOORS";
  const Text link_file = folder + u"\\{com-tests ö}.xml";
  CallLate(*add_in.Get(), L"Plexa_GetConnectedPackages", With(repository));  // makes the folder
  WriteFile(link_file, "");
  const LateAnswer answer =
      CallLate(*add_in.Get(), L"Plexa_GetConnectedPackages", With(repository), GetParam());
  RemoveFile(link_file);
  EXPECT_TRUE(answer.value.starts_with("BSTR[] ")) << answer.value;
  EXPECT_NE(answer.value.find("{com-tests ö}"), std::string::npos) << answer.value;
}

INSTANTIATE_TEST_SUITE_P(Arguments, CallbacksTest,
                         ::testing::Values(Passing::kByValue, Passing::kByReference,
                                           Passing::kVariantByReference));

}  // namespace
}  // namespace kestrune::testing
