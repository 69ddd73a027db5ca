// The host and DOORS, each killed in the middle of an import.
#include <random>

#include "platform/com/ComText.h"
#include "standins/windows/process/Arguments.h"
#include "tests/windows/long/HostRun.h"

namespace kestrune::testing {
namespace {

constexpr int kMoments = 20;
constexpr int kObjects = 300;

/// What the package and its trash hold, a line for each item. An empty tagged value is as good as none.
Text Shown(const Text& model_file) {
  const auto model = standins::OrimModel::Open(ToPath(model_file));
  Text shown;
  for (const auto& item : model.Tree(model.FindPackage(u"Requirements").id)) {
    shown += Text(static_cast<std::size_t>(item.depth), u' ') + item.type + u" " + item.name + u" at " +
             ToText(item.tree_pos);
    for (const auto& tag : item.tagged_values)
      if (!tag.value.empty()) shown += u" " + tag.name + u"=" + tag.value;
    shown += u"\n";
  }
  return shown;
}

/// The host in a process of its own each time.
class KilledHost : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { RegisterAddIn(); }

  std::vector<Text> HostPlaying(const Text& script) {
    WriteFile(folder_.File(u"x.play"), ToUtf8(script));
    return {FromUtf8(KESTRUNE_HOST_PROGRAM),
            u"play",
            folder_.File(u"x.play"),
            u"--model",
            model_,
            u"--package",
            u"Requirements",
            u"--doors",
            doors_};
  }
  void Play(const Text& script) {
    const Text lines = folder_.File(u"lines");
    std::wstring line = L"\"" + standins::CommandLineOf(HostPlaying(script));
    line.append(L" >").append(Wide(lines)).append(L" 2>&1\"");
    ASSERT_EQ(_wsystem(line.c_str()), 0) << ReadFile(lines);
  }
  /// The model as it was when it was linked, and nothing of a later one.
  void GoBack(const std::string& linked) {
    for (const TextView part : {u"-wal", u"-shm"}) std::filesystem::remove(ToPath(model_ + Text(part)));
    WriteFile(model_, linked);
  }

  TempFolder folder_;
  const Text model_ = MakeModel(folder_.File(u"model"));
  const Text doors_ = MakeModule(folder_.File(u"doors"));
};

TEST_F(KilledHost, IsHealedByTheNextImport) {
  Play(Text(kLink) + kFirstImport);
  {
    auto database = standins::DoorsDatabase::Open(ToPath(doors_));
    AddObjects(database, kObjects);
  }
  const std::string linked = ReadFile(model_);
  const Text at_first = Shown(model_);
  const ULONGLONG start = GetTickCount64();
  Play(kImport);
  const auto duration = static_cast<unsigned>(GetTickCount64() - start);
  const Text expected = Shown(model_);
  ASSERT_GT(Split(expected, u"\n").size(), std::size_t{kObjects});

  std::mt19937 random(1);
  int unfinished = 0;
  for (int i = 0; i < kMoments && !HasFailure(); ++i) {
    GoBack(linked);
    const HANDLE host = standins::StartProgram(HostPlaying(kImport));
    const DWORD moment = duration / 4 + random() % duration;  // the host starts before anything is written
    WaitForSingleObject(host, moment);
    TerminateProcess(host, 9);
    WaitForSingleObject(host, INFINITE);
    CloseHandle(host);
    SCOPED_TRACE(::testing::Message() << "killed after " << moment << " ms");
    const Text left = Shown(model_);
    unfinished += left != expected && left != at_first;
    Play(kImport);
    EXPECT_TRUE(Shown(model_) == expected) << "the package is not what it would be";
    const std::string healed = ReadFile(model_);
    Play(kImport);
    EXPECT_TRUE(ReadFile(model_) == healed) << "something is written";
  }
  std::cout << "of " << kMoments << " kills within " << duration << " ms " << unfinished
            << " left an import half done\n";
  Play(kUnlink);
}

TEST_F(HostRun, ADoorsThatDiesAnywhereCostsNothing) {
  auto database = standins::DoorsDatabase::Open(ToPath(folder_.File(u"doors")));
  AddObjects(database, kObjects);
  ASSERT_EQ(Play(Text(kLink) + kFirstImport), "");
  const Text expected = Shown(folder_.File(u"model"));
  std::mt19937 random(1);
  for (int i = 0; i < kMoments; ++i) {
    const Text perm = ToText(static_cast<int>(1 + random() % (10 * kObjects)));
    SCOPED_TRACE(ToUtf8(perm));
    ASSERT_EQ(Play(u"dies \"" + perm + uR"("
click "&Import"
  form frmImport
  wait
  answer OK "Unexpected error communicating with DOORS..."
  press cmdClose
doors ready
)" + kImport),
              "");
    EXPECT_TRUE(Shown(folder_.File(u"model")) == expected);
  }
  EXPECT_EQ(Play(kUnlink), "");
}

}  // namespace
}  // namespace kestrune::testing
