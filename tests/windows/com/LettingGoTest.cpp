// A host that lets go of the add-in in the middle of a callback, which a dialog keeps open.
#include <gtest/gtest.h>

#include "standins/windows/screen/UiThread.h"
#include "tests/support/TestHost.h"
#include "tests/windows/com/DllUnderTest.h"
#include "tests/windows/com/LateCall.h"
#include "tests/windows/dialogs/Person.h"

namespace kestrune::testing {
namespace {

/// A dialog, and the key that opens the next one from it, with Alt.
struct Step {
  const char16_t* title;
  WORD key = 0;
};

struct HeldCall {
  const char* name;
  std::vector<Step> way;  // to the dialog in which the host lets go
  const wchar_t* callback;
  Args args;  // after the repository
  std::string answer;
};

class LettingGoTest : public ::testing::TestWithParam<HeldCall> {
 protected:
  LettingGoTest() {
    host.model.SetLibraryBuild(826);
    const auto record = host.Package().Element().TaggedValues().AddNew(u"DoorsConnection", u"<memo>");
    record.SetNotes(u"These are\r\nthe rules.\r\n\r\nA\r\nB --> Name\r\n");
    record.Save();
  }
  LateAnswer Call(IDispatch& add_in) {
    return CallLate(add_in, GetParam().callback, With(repository, GetParam().args));
  }
  static HRESULT CanUnload() { return Export<HRESULT STDMETHODCALLTYPE()>("DllCanUnloadNow")(); }
  /// Opens the dialogs on the way, does `what` in the last one, and closes them all.
  static void Go(const std::function<void()>& what) {
    std::vector<Screen> opened;
    for (const Step& step : GetParam().way) {
      opened.emplace_back(step.title);
      if (step.key) opened.back().Key(step.key, VK_MENU);
    }
    what();
    for (; !opened.empty(); opened.pop_back()) {
      opened.back().Await("its turn to close",
                          [&] { return IsWindowEnabled(opened.back().Window()) != FALSE; });
      PostMessageW(opened.back().Window(), WM_CLOSE, 0, 0);
      opened.back().AwaitClosed();
    }
  }

  TestHost host;
  Object repository = host.model.Repository();
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
  const ULONG before = references();
  const auto repositories = repository.Peer().use_count();
  for (int i = 0; i < 20; ++i) WithPerson([] { Go([] {}); }, [&] { Call(*add_in.Get()); });
  EXPECT_EQ(references(), before);
  EXPECT_EQ(repository.Peer().use_count(), repositories);
}

const HeldCall kHeldCalls[] = {
    {"MessageBox", {{u"Kestrune Link"}}, L"Orim_Connect", {}, "BSTR "},
    {"About", {{u"About"}}, L"Orim_MenuClick", {u"-DOORS", u"&About"}, "EMPTY"},
    {"Wizard",
     {{u"Options", 'M'}, {u"Configure attribute mapping"}},
     L"Orim_MenuClick",
     {u"-DOORS", u"&Options"},
     "EMPTY"},
    {"Import", {{u"Connect to Doors"}}, L"Orim_MenuClick", {u"-DOORS", u"&Import"}, "EMPTY"},
    {"Connect", {{u"Connect to Doors"}}, L"Plexa_Connect", {1, u"{A}"}, "I4 0"}};
INSTANTIATE_TEST_SUITE_P(Dialogs, LettingGoTest, ::testing::ValuesIn(kHeldCalls),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace kestrune::testing
