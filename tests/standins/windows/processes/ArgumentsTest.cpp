// clang-format off
#include <windows.h>
#include <shellapi.h>  // needs the one above
// clang-format on

#include <gtest/gtest.h>

#include "platform/com/ComText.h"
#include "standins/windows/process/Arguments.h"

namespace kestrune::testing {
namespace {

TEST(Arguments, AreReadBackFromTheirCommandLine) {
  const std::vector<Text> words = {u"C:\\a program.exe", u"",       u"plain",      u"two words",
                                   u"ends in\\",         u"a\\\\b", u"say \"it\"", u"\\\"",
                                   u"caf\u00e9",         u"a\tb"};
  int count = 0;
  wchar_t** read = CommandLineToArgvW(standins::CommandLineOf(words).c_str(), &count);
  std::vector<Text> read_back;
  for (int i = 0; i < count; ++i) read_back.emplace_back(FromWide(read[i]));
  LocalFree(read);
  EXPECT_EQ(read_back, words);
}

}  // namespace
}  // namespace kestrune::testing
