// A script in DXL, compiled, and run for a while.
#include "fuzz/Fuzz.h"
#include "tests/standins/dxl/ScriptRun.h"

namespace kestrune::fuzz {

void Fuzz(std::string_view input) {
  constexpr std::size_t kMemory = 20'000'000;
  // Such a script may ask for as long a run as it likes.
  if (input.find("runLim") != std::string_view::npos) {
    const auto library = dxl::NewTestLibrary();
    dxl::CheckDxl({u"script", FromUtf8(input)}, *library);
    return;
  }
  const dxl::Outcome outcome = dxl::RunScript("pragma runLim, 20000\n" + std::string(input), kMemory);
  Require(outcome.cost.peak_bytes <= kMemory, "a script keeps to its memory");
}

}  // namespace kestrune::fuzz
