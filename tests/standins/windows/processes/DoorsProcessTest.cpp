#include <gtest/gtest.h>

#include "platform/windows/TopWindows.h"
#include "standins/windows/host/ChildProcess.h"
#include "tests/standins/windows/processes/DoorsRun.h"

namespace kestrune::testing {
namespace {

using standins::DoorsPhase;

constexpr Text::size_type kMillion = 1000000;

struct Seen {
  int windows = 0;
  int visible = 0;
  LONG style = 0;  // of the visible one, as far as it tells how far DOORS has come
  bool operator==(const Seen&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Seen& seen) {
  return out << seen.windows << " windows, " << seen.visible << " visible, style " << std::hex << seen.style;
}

Seen LookForDoors() {
  Seen seen;
  VisitTopWindows([&](HWND window) {
    wchar_t name[40] = {};
    GetClassNameW(window, name, 40);
    if (name != std::wstring_view(L"DOORSWindow")) return true;
    ++seen.windows;
    if (!IsWindowVisible(window)) return true;
    ++seen.visible;
    seen.style = GetWindowLongW(window, GWL_STYLE) & 0x04FF0000;
    return true;
  });
  return seen;
}

TEST_F(DoorsRun, AnswersScriptsOfAnotherProcess) {
  const Object application = Application();
  application.Put(u"Result", u"caf\u00e9 \U0001F697 \u4f60");
  EXPECT_EQ(Run(application, u"oleSetResult(\"<\" oleGetResult() \">\")"), u"<caf\u00e9 \U0001F697 \u4f60>");
  EXPECT_EQ(Run(Application(), u"Module m = read(\"/Car\", false)\noleSetResult(fullName(m))"), u"/Car")
      << "a second client";
}

TEST_F(DoorsRun, AnswersAMillionCharacters) {
  const Object application = Application();
  Text text(kMillion, u'\u00e4');
  text.back() = u'.';
  application.Put(u"Result", text);
  const Text answer = Run(application, u"string s = oleGetResult()\noleSetResult(s s)");
  EXPECT_EQ(answer.size(), 2 * kMillion);
  EXPECT_TRUE(answer == text + text);
}

TEST_F(DoorsRun, ShowsHowFarItHasCome) {
  const Object application = Application();
  const struct {
    DoorsPhase state;
    Seen seen;
    std::uint32_t failure;  // of using the automation object meanwhile
  } cases[] = {
      {DoorsPhase::kReady, {1, 1, 0x04CF0000}, 0},
      {DoorsPhase::kStartUp, {1, 1, 0x04000000}, error::kNotConnected},
      {DoorsPhase::kLogin, {1, 1, 0x04C80000}, error::kNotConnected},
      {DoorsPhase::kPasswordCheck, {1, 0, 0}, error::kNotConnected},
      {DoorsPhase::kReady, {1, 1, 0x04CF0000}, 0},
      {DoorsPhase::kNotRunning, {0, 0, 0}, error::kServerUnavailable},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(ToUtf8(standins::kDoorsPhaseNames[static_cast<int>(each.state)]));
    doors.SetPhase(each.state);
    EXPECT_EQ(LookForDoors(), each.seen);
    EXPECT_EQ(FailureOf([&] { application.Get(u"Result"); }), each.failure);
  }
  doors.SetPhase(DoorsPhase::kLogin);
  EXPECT_EQ(LookForDoors(), (Seen{1, 1, 0x04C80000})) << "started anew";
  doors.SetPhase(DoorsPhase::kReady);
  EXPECT_EQ(Run(Application(), u"oleSetResult \"again\""), u"again");
}

TEST_F(DoorsRun, GivesAModuleAWindowInFront) {
  const Object application = Application();
  Run(application, u"read(\"/Car\", true)");
  EXPECT_EQ(LookForDoors(), (Seen{2, 2, 0x04CF0000}));
  DWORD owner = 0, front = 0;
  VisitTopWindows([&](HWND window) {
    wchar_t name[40] = {};
    GetClassNameW(window, name, 40);
    if (name == std::wstring_view(L"DOORSWindow")) GetWindowThreadProcessId(window, &owner);
    return true;
  });
  GetWindowThreadProcessId(GetForegroundWindow(), &front);
  EXPECT_EQ(front, owner);
  doors.CloseModules();
  EXPECT_EQ(LookForDoors(), (Seen{1, 1, 0x04CF0000}));
}

TEST_F(DoorsRun, DiesInTheMiddleOfAScriptAndCanBeStartedAgain) {
  for (int death = 1; death <= 3; ++death) {
    const Object application = Application();
    doors.DieAtPerm(2);
    EXPECT_EQ(FailureOf([&] { Run(application, u"read(\"/Car\", false)\nread(\"/Car\", false)"); }),
              error::kCallFailed);
    EXPECT_FALSE(doors.IsRunning());
    EXPECT_EQ(FailureOf([&] { application.Get(u"Result"); }), error::kServerUnavailable);
    EXPECT_EQ(LookForDoors(), Seen{});
    doors.SetPhase(DoorsPhase::kReady);
    EXPECT_EQ(Run(Application(), u"oleSetResult \"alive\""), u"alive");
  }
}

TEST_F(DoorsRun, IsStartedByTheSystemWhereItIsRegistered) {
  doors.SetPhase(DoorsPhase::kNotRunning);
  ASSERT_EQ(LookForDoors(), Seen{});
  EXPECT_EQ(Run(Application(), u"oleSetResult(fullName(read(\"/Car\", false)))"), u"/Car");
  doors.SetPhase(DoorsPhase::kLogin);
  EXPECT_EQ(LookForDoors(), (Seen{1, 1, 0x04C80000})) << "the other one has gone";
  doors.SetPhase(DoorsPhase::kNotRunning);

  const Text program = FromUtf8(KESTRUNE_DOORS_PROGRAM);
  EXPECT_EQ(
      standins::AwaitEnd(standins::StartProgram({program, folder.File(u"doors"), u"--unregister"}), 20000),
      0u);
  EXPECT_EQ(FailureOf([&] { Application(); }), error::kNoSuchClass);
}

TEST_F(DoorsRun, LogsWhatScriptsPrintAndWhatIsWrongWithThem) {
  const Object application = Application();
  Run(application, u"print \"one\\n\"");
  application.Put(u"Result", u"before");
  EXPECT_EQ(Run(application, u"Module m = nothing"), u"before");
  const std::string log = ReadFile(folder.File(u"log"));
  EXPECT_TRUE(log.starts_with("one\n")) << log;
  EXPECT_NE(log.find("nothing"), std::string::npos) << log;
}

TEST_F(DoorsRun, DamagesTheNextFileThatAScriptNames) {
  const Object application = Application();
  const Text file = folder.File(u"export");
  WriteFile(file, "0123456789");
  doors.DamageNextExport();
  application.Put(u"Result", u"no file");
  Run(application, u"string s = oleGetResult()");
  application.Put(u"Result", file);
  Run(application, u"string s = oleGetResult()");
  EXPECT_EQ(ReadFile(file), "01234");
  Run(application, u"string s = oleGetResult()");
  EXPECT_EQ(ReadFile(file), "01234") << "damaged twice";
}

TEST_F(DoorsRun, LendsScriptsTheSystemsXmlDocuments) {
  const Object application = Application();
  application.Put(u"Result", folder.File(u"xml"));
  Run(application,
      uR"(
    OleAutoObj doc = oleCreateAutoObject("MSXML2.DOMDocument")
    OleAutoArgs args = create
    OleAutoObj root = null
    put(args, "root")
    oleMethod(doc, "createElement", args, root)
    olePut(root, "text", "a < b")
    clear(args)
    put(args, root)
    oleMethod(doc, "appendChild", args)
    clear(args)
    put(args, oleGetResult())
    oleMethod(doc, "save", args)
  )");
  EXPECT_NE(ReadFile(folder.File(u"xml")).find("<root>a &lt; b</root>"), std::string::npos);
}

TEST_F(DoorsRun, SeesWhatOthersWriteToItsDatabase) {
  const Object application = Application();
  const Text views =
      u"Module m = read(\"/Car\", false)\nstring v\nstring all = \"\"\n"
      u"for v in views m do all = all v \";\"\noleSetResult all";
  const Text before = Run(application, views);
  doors.AddView(u"/Car", u"Long", u"Status", u"Open");
  EXPECT_EQ(Run(application, views), before + u"Long;");
}

}  // namespace
}  // namespace kestrune::testing
