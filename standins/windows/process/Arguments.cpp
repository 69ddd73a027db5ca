#include "standins/windows/process/Arguments.h"

// clang-format off
#include <windows.h>
#include <shellapi.h>  // needs the one above
// clang-format on

#include "platform/com/ComText.h"

namespace kestrune::standins {

std::vector<std::string> ProgramArguments() {
  int count = 0;
  wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) arguments.push_back(ToUtf8(FromWide(words[i])));
  LocalFree(words);
  return arguments;
}

// Back slashes are themselves, except before a quotation mark.
std::wstring CommandLineOf(const std::vector<std::u16string>& words) {
  std::wstring line;
  for (const std::u16string& word : words) {
    line += line.empty() ? L"\"" : L" \"";
    std::size_t slashes = 0;
    for (const char16_t c : word) {
      if (c == u'"') line.append(slashes + 1, L'\\');
      slashes = c == u'\\' ? slashes + 1 : 0;
      line += static_cast<wchar_t>(c);
    }
    line.append(slashes, L'\\') += L'"';
  }
  return line;
}

}  // namespace kestrune::standins
