// Scripts cut short and scripts with a hole, made from those in scripts/. Most are wrong; none may do worse
// than fail.
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

#include "ScriptRun.h"

namespace kestrune::dxl {

namespace {

std::vector<std::string> Scripts() {
  std::vector<std::string> scripts;
  for (const auto& entry : std::filesystem::directory_iterator(KESTRUNE_SOURCE_DIR "/tests/dxl/scripts")) {
    std::ifstream file(entry.path(), std::ios::binary);
    scripts.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
  }
  return scripts;
}

/// A script that sets the run limit itself is left out: with a hole in it, it may run for ever.
void TryOut(const std::string& script) {
  if (script.find("runLim") != std::string::npos) return;
  EXPECT_NO_THROW(RunScript("pragma runLim, 5000\n" + script)) << script;
}

TEST(DamagedScript, MayEndAnywhere) {
  for (const std::string& script : Scripts()) {
    for (std::size_t end = 0; end < script.size(); end += 17) TryOut(script.substr(0, end));
  }
}

TEST(DamagedScript, MayLackAnyPiece) {
  constexpr std::size_t kHole = 3;
  for (const std::string& script : Scripts()) {
    for (std::size_t at = 0; at + kHole < script.size(); at += 23)
      TryOut(script.substr(0, at) + script.substr(at + kHole));
  }
}

}  // namespace

}  // namespace kestrune::dxl
