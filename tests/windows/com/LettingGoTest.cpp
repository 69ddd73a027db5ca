// A host that lets go of the add-in in the middle of a callback, which a dialog keeps open.
#include <gtest/gtest.h>

#include "standins/windows/screen/UiThread.h"
#include "tests/options/SimulatedPackage.h"
#include "tests/windows/com/DllUnderTest.h"
#include "tests/windows/com/DoorsInProcess.h"
#include "tests/windows/com/HostStandIn.h"
#include "tests/windows/com/LateCall.h"
#include "tests/windows/dialogs/Person.h"

namespace kestrune::testing {
namespace {

/// A dialog, and the keys that open the next one from it.
struct Step {
  const char16_t* title;
  std::vector<WORD> keys = {};
  WORD held = 0;
};

struct HeldCall {
  const char* name;
  std::vector<Step> way;  // to the dialog in which the host lets go
  const wchar_t* callback;
  Args args;  // after the repository
  std::string answer;
  bool has_doors = false;
};

class LettingGoTest : public ::testing::TestWithParam<HeldCall> {
 protected:
  LettingGoTest() {
    host.build = 826;
    host.selected_package = Object(std::make_shared<SimulatedPackage>(package));
    const auto record = std::make_shared<PackageModel::Tag>();
    record->name = u"DoorsConnection";
    record->notes = u"These are\r\nthe rules.\r\n\r\nA\r\nB --> Name\r\n";
    package.tags = {record};
  }
  LateAnswer Call(IDispatch& add_in) {
    Args args = GetParam().args;
    args.insert(args.begin(), Variant(repository));
    return CallLate(add_in, GetParam().callback, args);
  }
  static HRESULT CanUnload() { return Export<HRESULT STDMETHODCALLTYPE()>("DllCanUnloadNow")(); }
  /// Opens the dialogs on the way, does `what` in the last one, and closes them all.
  static void Go(const std::function<void()>& what) {
    std::vector<Screen> opened;
    for (const Step& step : GetParam().way) {
      opened.emplace_back(step.title);
      for (const WORD key : step.keys) opened.back().Key(key, step.held);
    }
    what();
    for (; !opened.empty(); opened.pop_back()) {
      opened.back().Await("its turn to close",
                          [&] { return IsWindowEnabled(opened.back().Window()) != FALSE; });
      PostMessageW(opened.back().Window(), WM_CLOSE, 0, 0);
      opened.back().AwaitClosed();
    }
  }

  HostModel host;
  PackageModel package;
  Object repository{std::make_shared<HostRepository>(host)};
};

TEST_P(LettingGoTest, TheCallbackComesToItsEnd) {
  const standins::UiThread ui;
  std::optional<DoorsInProcess> doors;
  if (GetParam().has_doors) doors.emplace();
  IDispatch* add_in = NewAddIn().Release();
  HRESULT in_dialog = E_FAIL;
  const auto let_go = [&] {
    CallLate(*add_in, L"Orim_Disconnect", {});
    add_in->Release();
    CoFreeUnusedLibraries();
    in_dialog = CanUnload();
  };
  LateAnswer answer;
  WithPerson([&] { Go([&] { ui.Post(let_go).get(); }); }, [&] { answer = Call(*add_in); });
  EXPECT_EQ(in_dialog, S_FALSE) << "its code is running";
  EXPECT_EQ(answer.result, S_OK) << answer.description;
  EXPECT_EQ(answer.value, GetParam().answer);
  EXPECT_EQ(CanUnload(), S_OK);
}

TEST_P(LettingGoTest, ManyCallsLeaveNoReferenceBehind) {
  const ComPtr<IDispatch> add_in = NewAddIn();
  const auto references = [&] {
    add_in->AddRef();
    return add_in->Release();
  };
  std::optional<DoorsInProcess> doors;
  if (GetParam().has_doors) doors.emplace();
  const ULONG before = references();
  for (int i = 0; i < 20; ++i) WithPerson([] { Go([] {}); }, [&] { Call(*add_in.Get()); });
  EXPECT_EQ(references(), before);
  EXPECT_EQ(repository.Peer().use_count(), 1);
}

const Args kConnect = {7, u"{A}"};
const HeldCall kHeldCalls[] = {
    {"MessageBox", {{u"Kestrune Link"}}, L"Orim_Connect", {}, "BSTR "},
    {"About", {{u"About"}}, L"Orim_MenuClick", {u"-DOORS", u"&About"}, "EMPTY"},
    {"Options", {{u"Options"}}, L"Orim_MenuClick", {u"-DOORS", u"&Options"}, "EMPTY"},
    {"Wizard",
     {{u"Options", {'M'}, VK_MENU}, {u"Configure attribute mapping"}},
     L"Orim_MenuClick",
     {u"-DOORS", u"&Options"},
     "EMPTY"},
    {"Import", {{u"Connect to Doors"}}, L"Orim_MenuClick", {u"-DOORS", u"&Import"}, "EMPTY"},
    {"ConnectProgress", {{u"Connect to Doors"}}, L"Plexa_Connect", kConnect, "I4 0"},
    {"Connect", {{u"DOORS Connection"}}, L"Plexa_Connect", kConnect, "I4 0", true},
    {"Input",
     {{u"DOORS Connection", {VK_TAB, VK_SPACE}}, {u"Manual DOORS Connection"}},
     L"Plexa_Connect",
     kConnect,
     "I4 0",
     true}};
INSTANTIATE_TEST_SUITE_P(Dialogs, LettingGoTest, ::testing::ValuesIn(kHeldCalls),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace kestrune::testing
