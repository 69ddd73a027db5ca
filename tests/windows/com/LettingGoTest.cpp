// A host that lets go of the add-in in the middle of a callback, which a dialog keeps open.
#include <gtest/gtest.h>

#include "standins/windows/screen/UiThread.h"
#include "tests/options/SimulatedPackage.h"
#include "tests/windows/com/DllUnderTest.h"
#include "tests/windows/com/HostStandIn.h"
#include "tests/windows/com/LateCall.h"
#include "tests/windows/dialogs/Person.h"

namespace kestrune::testing {
namespace {

struct HeldCall {
  const char* name;
  const char16_t* title;  // of the dialog that it opens
  const wchar_t* callback;
  Args args;  // after the repository
  std::string answer;
};

class LettingGoTest : public ::testing::TestWithParam<HeldCall> {
 protected:
  LettingGoTest() {
    host.Build = 826;
    host.SelectedPackage = Object(std::make_shared<SimulatedPackage>(package));
    const auto record = std::make_shared<PackageModel::Tag>();
    record->Name = u"DoorsConnection";
    record->Notes = u"These are\r\nthe rules.\r\n\r\nA\r\nB --> Name\r\n";
    package.Tags = {record};
  }
  LateAnswer Call(IDispatch& add_in) {
    Args args = GetParam().args;
    args.insert(args.begin(), Variant(repository));
    return CallLate(add_in, GetParam().callback, args);
  }
  static HRESULT CanUnload() { return Export<HRESULT STDMETHODCALLTYPE()>("DllCanUnloadNow")(); }
  static void Leave(const Screen& dialog) { PostMessageW(dialog.Window(), WM_CLOSE, 0, 0); }

  HostModel host;
  PackageModel package;
  Object repository{std::make_shared<HostRepository>(host)};
};

TEST_P(LettingGoTest, TheCallbackComesToItsEnd) {
  const standins::UiThread ui;
  IDispatch* add_in = NewAddIn().Release();
  HRESULT in_dialog = E_FAIL;
  const auto let_go = [&] {
    CallLate(*add_in, L"Orim_Disconnect", {});
    add_in->Release();
    CoFreeUnusedLibraries();
    in_dialog = CanUnload();
  };
  LateAnswer answer;
  WithPerson(
      [&] {
        const Screen dialog(GetParam().title);
        ui.Post(let_go).get();
        Leave(dialog);
      },
      [&] { answer = Call(*add_in); });
  EXPECT_EQ(in_dialog, S_FALSE) << "its code is running";
  EXPECT_EQ(answer.Result, S_OK) << answer.Description;
  EXPECT_EQ(answer.Value, GetParam().answer);
  EXPECT_EQ(CanUnload(), S_OK);
}

TEST_P(LettingGoTest, ManyCallsLeaveNoReferenceBehind) {
  const ComPtr<IDispatch> add_in = NewAddIn();
  const auto references = [&] {
    add_in->AddRef();
    return add_in->Release();
  };
  const ULONG before = references();
  for (int i = 0; i < 20; ++i)
    WithPerson([&] { Leave(Screen(GetParam().title)); }, [&] { Call(*add_in.Get()); });
  EXPECT_EQ(references(), before);
  EXPECT_EQ(repository.Peer().use_count(), 1);
}

const HeldCall kHeldCalls[] = {
    {"MessageBox", u"Kestrune Link", L"Orim_Connect", {}, "BSTR "},
    {"About", u"About", L"Orim_MenuClick", {u"-DOORS", u"&About"}, "EMPTY"},
    {"Options", u"Options", L"Orim_MenuClick", {u"-DOORS", u"&Options"}, "EMPTY"},
    {"Import", u"Connect to Doors", L"Orim_MenuClick", {u"-DOORS", u"&Import"}, "EMPTY"},
    {"ConnectProgress", u"Connect to Doors", L"Plexa_Connect", {7, u"{A}"}, "I4 0"}};
INSTANTIATE_TEST_SUITE_P(Dialogs, LettingGoTest, ::testing::ValuesIn(kHeldCalls),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace kestrune::testing
