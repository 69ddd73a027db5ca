// A host that is kept open for a year: of a thousand imports none leaves anything behind.
#include <iostream>
#include <malloc.h>
#include <sqlite3.h>

#include "tests/workbench/RandomScene.h"

/// There is one where the address sanitizer is, of whose heap malloc's own figures know nothing.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes() __attribute__((weak));

namespace kestrune {
namespace {

using testing::RandomScene;

constexpr int kImports = 1000;
constexpr int kObjects = 60;  // as many as ever: they change, go and come back
/// The stand-ins remember every window that was opened and every refresh, which makes some 80 bytes an import.
constexpr long long kSlack = 160 * kImports;

/// Bytes of the heap, without what the stand-ins keep on purpose: the model, the database, the host's output tab.
long long BytesInUse(const RandomScene& scene) {
  const struct mallinfo2 heap = mallinfo2();
  const std::size_t bytes = __sanitizer_get_current_allocated_bytes
                                ? __sanitizer_get_current_allocated_bytes()
                                : heap.uordblks + heap.hblkhd;
  std::size_t kept = static_cast<std::size_t>(sqlite3_memory_used());
  const auto& output = scene.setup.model.OutputLines(u"DOORS");
  kept += output.capacity() * sizeof(output[0]);
  for (const auto& each : output) kept += each.line.capacity() * sizeof(char16_t);
  return static_cast<long long>(bytes) - static_cast<long long>(kept);
}

long CountFiles(const std::filesystem::path& folder) {
  std::error_code ignored;  // a link in /proc/self/fd is gone when it is looked at
  std::filesystem::recursive_directory_iterator files(folder, ignored);
  return std::distance(begin(files), end(files));
}

TEST(LongRun, LeavesMemoryAndFilesAsAfterTheTenthImport) {
  RandomScene scene(1);
  for (int n = 0; n < kObjects; ++n) scene.edits.Add(scene.edits.Roll(n + 1));
  // Every object has an element and every attribute has had long texts: what the test itself keeps grows no more.
  scene.ImportAndCheck();
  for (int edits = 0; edits < 20000; ++edits) scene.edits.ChangeOnce();
  const auto temp = ToPath(scene.setup.folders.Temp());
  long long bytes = 0;
  long files = 0;
  for (int n = 2; n <= kImports && !HasFailure(); ++n) {
    SCOPED_TRACE("import " + std::to_string(n));
    for (int edits = 1 + scene.edits.Roll(6); edits > 0; --edits) scene.edits.ChangeOnce();
    scene.setup.doors.UserClosesAll();
    if (scene.edits.Roll(3) == 0) scene.ChangeView();
    scene.ImportAndCheck();
    if (n == 10) {
      bytes = BytesInUse(scene);
      files = CountFiles("/proc/self/fd");
    }
  }
  const long long more = BytesInUse(scene) - bytes;
  std::cout << "heap after the tenth import: " << bytes << " bytes, at the end: " << bytes + more << '\n';
  EXPECT_LT(more, kSlack);
  EXPECT_EQ(CountFiles("/proc/self/fd"), files);
  EXPECT_EQ(CountFiles(temp), 0);
}

}  // namespace
}  // namespace kestrune
