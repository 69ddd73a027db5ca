// kestrune-workbench as it is run at a terminal, in a folder of its own.
#pragma once

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <sstream>

#include "platform/Files.h"
#include "standins/doors-database/DoorsDatabase.h"
#include "tests/support/TestPlatform.h"
#include "workbench/Program.h"

namespace kestrune::testing {

using Words = std::vector<std::string>;

struct Outcome {
  int status = 0;
  std::string out;
  std::string err;
};

class CommandLine : public ::testing::Test {
 protected:
  /// The command on a model, a DOORS database and a package, at first those of the test itself.
  static Words On(Words words, const char* model = "@m.orim", const char* doors = "@d.doors",
                  const char* package = "Req") {
    words.insert(words.end(), {"--model", model, "--doors", doors, "--package", package});
    return words;
  }

  /// A word that begins with "@" is a file in the test's folder. The add-in's files go to "@data", unless
  /// the words say where.
  Outcome Run(Words words) {
    if (std::ranges::find(words, "--data") == words.end()) words.insert(words.end(), {"--data", "@data"});
    Words args;
    for (const std::string& word : words) args.push_back(word.starts_with('@') ? At(word.substr(1)) : word);
    std::istringstream in;
    std::ostringstream out, err;
    Outcome outcome;
    outcome.status = workbench::RunWorkbench(args, {in, out, err});
    outcome.out = WithoutFolder(out.str());
    outcome.err = WithoutFolder(err.str());
    return outcome;
  }

  /// A command that must succeed and complain of nothing; what it printed.
  std::string Do(const Words& words) {
    const Outcome outcome = Run(words);
    EXPECT_EQ(outcome.status, 0) << ::testing::PrintToString(words);
    EXPECT_EQ(outcome.err, "") << ::testing::PrintToString(words);
    return outcome.out;
  }

  std::string At(const std::string& name) const { return ToUtf8(folder.File(FromUtf8(name))); }

  static std::string Sample(const std::string& name) {
    return std::string(KESTRUNE_SOURCE_DIR) + "/tests/data/reqif/" + name;
  }

  /// All files in the test's folder with their content.
  std::map<std::string, std::string> Files() const {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(ToPath(folder.Path())))
      if (entry.is_regular_file()) files[entry.path().string()] = ReadFile(FromPath(entry.path()));
    return files;
  }

  TempFolder folder;

 private:
  std::string WithoutFolder(std::string text) const {
    const std::string path = ToUtf8(folder.Path()) + "/";
    for (std::size_t at; (at = text.find(path)) != std::string::npos;) text.replace(at, path.size(), "@");
    return text;
  }
};

}  // namespace kestrune::testing
