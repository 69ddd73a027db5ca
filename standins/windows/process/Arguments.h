// The words of a program's command line.
#pragma once

#include <string>
#include <vector>

namespace kestrune::standins {

/// In UTF-8, without the program's name. main's own arguments have lost what the system's code page lacks.
std::vector<std::string> ProgramArguments();

/// `words` as a command line from which a program reads them back.
std::wstring CommandLineOf(const std::vector<std::u16string>& words);

}  // namespace kestrune::standins
