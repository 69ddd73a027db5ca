// The add-in in a host that is never closed: whatever a thousand imports take from the system they give back.
#include <random>
#include <set>
#include <sqlite3.h>
#include <windows.h>

#include "tests/windows/dialogs/SystemObjects.h"
#include "tests/windows/long/HostRun.h"

namespace kestrune::testing {
namespace {

constexpr int kImports = 1000;
constexpr int kSettled = 10;  // imports, after which caches are filled
constexpr int kObjects = 100;
constexpr int kParents = 60;  // the first objects, which are never deleted

struct Held {
  DWORD handles = 0;
  SystemObjects objects;
  long references = 0;     // to objects of the host
  std::size_t memory = 0;  // bytes

  friend std::ostream& operator<<(std::ostream& out, const Held& held) {
    return out << held.handles << " handles, " << held.objects.windows << " windows, " << held.objects.fonts
               << " fonts, " << held.objects.drawing << " drawing objects, " << held.references
               << " references, " << held.memory / 1024 << " KB";
  }
};

/// Wine has no figure for it.
DWORD CountHandles() {
  constexpr std::uintptr_t kLast = 0x4000, kStep = 4;  // handles are multiples of four, given from below
  DWORD count = 0, flags = 0;
  for (std::uintptr_t value = kStep; value <= kLast; value += kStep)
    count += GetHandleInformation(reinterpret_cast<HANDLE>(value), &flags) != FALSE;
  return count;
}

/// What is in use of all heaps, but for what the stand-ins' databases keep at hand.
std::size_t HeapInUse() {
  HANDLE heaps[100];
  const DWORD count = std::min<DWORD>(GetProcessHeaps(std::size(heaps), heaps), std::size(heaps));
  std::size_t bytes = 0;
  for (DWORD i = 0; i < count; ++i) {
    HeapLock(heaps[i]);
    PROCESS_HEAP_ENTRY entry = {};
    while (HeapWalk(heaps[i], &entry))
      if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) bytes += entry.cbData;
    HeapUnlock(heaps[i]);
  }
  return bytes - static_cast<std::size_t>(sqlite3_memory_used());
}

Held LookAt(standins::HostProgram& host) {
  return {.handles = CountHandles(),
          .objects = CountSystemObjects(),
          .references = host.Session().Model().HeldObjects(),
          .memory = HeapInUse()};
}

/// Changes, moves, deletes and restores objects, and knows what the import says of it.
class Colleague {
 public:
  explicit Colleague(standins::DoorsDatabase& database) : sql_(database.Sql()) {}

  /// The lines of a script with which the user answers.
  Text EditAndAnswers() {
    const std::set<int> before = deleted_;
    for (int edits = 1 + Roll(4); edits > 0; --edits) EditOnce();
    Text answers;
    const auto lacks = [](const std::set<int>& some, const std::set<int>& others) {
      return !std::includes(some.begin(), some.end(), others.begin(), others.end());
    };
    if (lacks(before, deleted_)) answers += u"answer OK \"...\"\n";  // some are archived
    if (lacks(deleted_, before)) answers += u"answer OK \"...\"\n";  // some are restored
    return answers;
  }

 private:
  int Roll(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }

  void EditOnce() {
    const int number = 2 + Roll(kObjects - 1);
    switch (Roll(4)) {
      case 0:
        sql_.Prepare("UPDATE object SET parent = ?2, position = ?3 WHERE id = ?1", number,
                     1 + Roll(std::min(number, kParents + 1) - 1), Roll(kObjects))
            .Run();
        return;
      case 1: {
        if (number <= kParents) return;
        const bool deletes = deleted_.insert(number).second;
        if (!deletes) deleted_.erase(number);
        sql_.Prepare("UPDATE object SET deleted = ?2 WHERE id = ?1", number, deletes).Run();
        return;
      }
      default:
        sql_.Prepare("UPDATE value SET text = ?2 WHERE object = ?1", number,
                     u"Part " + Text(static_cast<std::size_t>(Roll(400)), u'x') + ToText(Roll(1000)))
            .Run();
    }
  }

  standins::Database& sql_;
  std::mt19937 random_{1};
  std::set<int> deleted_;
};

/// The system keeps texts that have been let go, for the next of their length.
void HaveTextsGivenBack() {
  using NoCache = void WINAPI();
  const auto no_cache = GetProcAddress(GetModuleHandleW(L"oleaut32.dll"), "SetOaNoCache");
  reinterpret_cast<NoCache*>(reinterpret_cast<void*>(no_cache))();
}

TEST_F(HostRun, AThousandImportsGiveBackWhatTheyTake) {
  HaveTextsGivenBack();
  auto database = standins::DoorsDatabase::Open(ToPath(folder_.File(u"doors")));
  AddObjects(database, kObjects);
  ASSERT_EQ(Play(Text(kLink) + kFirstImport), "");
  Colleague colleague(database);
  Held settled;
  for (int i = 1; i <= kImports; ++i) {
    const Text answers = colleague.EditAndAnswers();
    host_.Doors().CloseModules();
    ASSERT_EQ(Play(u"click \"&Import\"\nform frmImport\nwait until cmdClose enabled\n" + answers +
                   u"expect List1 row \"*** Import Complete ***\"\npress cmdClose\n"),
              "")
        << "import " << i;
    out_.str({});
    if (i == kSettled) settled = LookAt(host_);
    if (i % 100 == 0 || i == kSettled) std::cout << i << " imports: " << LookAt(host_) << std::endl;
  }
  const Held held = LookAt(host_);
  SCOPED_TRACE(::testing::Message() << "after " << kSettled << " imports: " << settled);
  EXPECT_EQ(held.objects.windows, settled.objects.windows);
  EXPECT_EQ(held.objects.fonts, settled.objects.fonts);
  EXPECT_LT(held.objects.drawing, settled.objects.drawing + 50) << "the system keeps some for later";
  EXPECT_EQ(held.references, settled.references);
  EXPECT_LE(held.handles, settled.handles + 5);
  EXPECT_LT(held.memory, settled.memory + 500'000);
  EXPECT_EQ(Play(kUnlink), "");
}

}  // namespace
}  // namespace kestrune::testing
