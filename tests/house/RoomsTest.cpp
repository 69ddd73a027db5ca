// The house keeps its floors: an include only ever points down the list of rooms, and no two files include
// each other in a circle.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <set>

namespace kestrune {
namespace {

namespace fs = std::filesystem;

/// From the top floor to the ground.
const std::vector<std::string> kRooms = {"workbench",
                                         "standins/windows",
                                         "standins/stage",
                                         "standins/play",
                                         "standins/host-model",
                                         "standins/doors-database",
                                         "standins/dxl",
                                         "standins/sqlite",
                                         "standins/desktop",
                                         "standins",
                                         "addin",
                                         "import",
                                         "documents",
                                         "options",
                                         "doors",
                                         "common",
                                         "orim",
                                         "platform"};

/// The stand-ins know nothing of the add-in, and those of its two neighbours nothing of each other.
const std::map<std::string, std::set<std::string>> kStandInsMayUse = {
    {"standins/windows",
     {"standins/stage", "standins/play", "standins/host-model", "standins/doors-database", "standins/desktop",
      "standins", "platform"}},
    {"standins/stage",
     {"standins/play", "standins/host-model", "standins/doors-database", "standins", "orim", "platform"}},
    {"standins/play", {"standins/desktop", "standins", "platform"}},
    {"standins/host-model", {"standins/sqlite", "standins", "platform"}},
    {"standins/doors-database",
     {"standins/desktop", "standins/dxl", "standins/sqlite", "standins", "platform"}},
    {"standins/dxl", {"standins", "platform"}},
    {"standins/sqlite", {"standins", "platform"}},
    {"standins/desktop", {"standins", "platform"}},
    {"standins", {"platform"}}};

std::string RoomOf(const std::string& file) {
  for (const std::string& room : kRooms)
    if (file.starts_with(room + "/")) return room;
  return "";
}

bool MayUse(const std::string& room, const std::string& other) {
  if (room == other) return true;
  const auto stand_in = kStandInsMayUse.find(room);
  if (stand_in != kStandInsMayUse.end()) return stand_in->second.contains(other);
  const auto place = [](const std::string& name) { return std::find(kRooms.begin(), kRooms.end(), name); };
  return place(room) < place(other);
}

using Includes = std::map<std::string, std::vector<std::string>>;

Includes ReadIncludes() {
  const fs::path root = KESTRUNE_SOURCE_DIR;
  const std::regex include("#include \"([^\"]+)\"");
  Includes includes;
  for (const std::string& room : kRooms) {
    if (!fs::exists(root / room)) continue;
    for (const auto& entry : fs::recursive_directory_iterator(root / room)) {
      const auto extension = entry.path().extension();
      if (extension != ".h" && extension != ".cpp") continue;
      auto& included = includes[fs::relative(entry.path(), root).generic_string()];
      std::ifstream file(entry.path());
      std::smatch match;
      for (std::string line; std::getline(file, line);)
        if (std::regex_search(line, match, include)) included.push_back(match[1]);
    }
  }
  return includes;
}

TEST(RoomsTest, IncludesPointDownTheListOfRooms) {
  const Includes includes = ReadIncludes();
  ASSERT_GT(includes.size(), 100u);
  for (const auto& [file, included] : includes) {
    for (const std::string& other : included) {
      if (other == "common/resources/strings.def") continue;
      ASSERT_FALSE(RoomOf(other).empty()) << file << " includes " << other << ", which is in no room";
      EXPECT_TRUE(MayUse(RoomOf(file), RoomOf(other))) << file << " includes " << other;
    }
  }
}

TEST(RoomsTest, NoFilesIncludeEachOtherInACircle) {
  const Includes includes = ReadIncludes();
  std::set<std::string> done, on_path;
  const std::function<void(const std::string&)> visit = [&](const std::string& file) {
    ASSERT_TRUE(on_path.insert(file).second) << "a circle through " << file;
    const auto found = includes.find(file);
    if (found != includes.end())
      for (const std::string& other : found->second)
        if (!done.contains(other)) visit(other);
    on_path.erase(file);
    done.insert(file);
  };
  for (const auto& [file, included] : includes)
    if (!done.contains(file)) visit(file);
}

TEST(RoomsTest, OnlyThePlatformAndTheComEntryKnowWindows) {
  const fs::path root = KESTRUNE_SOURCE_DIR;
  const std::regex windows_only("_WIN32|<windows\\.h>");
  for (const auto& [file, included] : ReadIncludes()) {
    if (file.starts_with("platform/") || file.starts_with("addin/com/") ||
        file.starts_with("standins/windows/"))
      continue;
    std::ifstream stream(root / file);
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    EXPECT_FALSE(std::regex_search(text, windows_only)) << file;
  }
}

}  // namespace
}  // namespace kestrune
