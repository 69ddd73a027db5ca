// Scripts in a folder that say themselves what they must do:
//   print "a" "\n"      // expect: a
//   // expect error: line 3: undeclared variable (x)
//   // expect runtime error: line 3: unassigned variable (x)
#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

namespace kestrune::testing {

struct ScriptFile {
  std::string name;
  std::string source;
  std::string printed;
  std::vector<std::string> compile_errors;
  std::string runtime_error;
};

inline void PrintTo(const ScriptFile& script, std::ostream* out) {
  *out << script.name;
}

inline ScriptFile ReadScript(std::string name, std::string source) {
  ScriptFile script{std::move(name), std::move(source)};
  const auto after = [](const std::string& line, const std::string& mark) {
    const std::size_t at = line.find(mark);
    return at == std::string::npos ? std::optional<std::string>() : line.substr(at + mark.size());
  };
  std::istringstream lines(script.source);
  for (std::string line; std::getline(lines, line);) {
    if (const auto printed = after(line, "// expect: ")) script.printed += *printed + "\n";
    if (const auto error = after(line, "// expect error: ")) script.compile_errors.push_back(*error);
    if (const auto error = after(line, "// expect runtime error: ")) script.runtime_error = *error;
  }
  return script;
}

inline std::string ReadWhole(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// `room` is a folder below tests/.
inline std::vector<ScriptFile> ScriptFilesOf(const char* room) {
  std::vector<ScriptFile> scripts;
  const auto folder = std::filesystem::path(KESTRUNE_SOURCE_DIR) / "tests" / room / "scripts";
  for (const auto& entry : std::filesystem::directory_iterator(folder))
    scripts.push_back(ReadScript(entry.path().stem().string(), ReadWhole(entry.path())));
  std::sort(scripts.begin(), scripts.end(), [](const auto& a, const auto& b) { return a.name < b.name; });
  return scripts;
}

/// The examples in a document of the project: what stands between ```dxl and ```.
inline std::vector<ScriptFile> ScriptsIn(const char* document) {
  const std::string begin = "```dxl\n", end = "```\n";
  const std::string text = ReadWhole(std::filesystem::path(KESTRUNE_SOURCE_DIR) / document);
  std::vector<ScriptFile> scripts;
  for (std::size_t at = text.find(begin); at != std::string::npos; at = text.find(begin, at)) {
    at += begin.size();
    const auto line =
        std::to_string(1 + std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(at), '\n'));
    scripts.push_back(ReadScript("line " + line, text.substr(at, text.find(end, at) - at)));
  }
  return scripts;
}

}  // namespace kestrune::testing
