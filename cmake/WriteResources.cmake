# Writes OUTPUT, a C++ source with the bytes of FILES; a file's folder is its resource type, its leading number its id.
set(entries "")
foreach(file ${FILES})
  get_filename_component(name ${file} NAME)
  get_filename_component(folder ${file} DIRECTORY)
  get_filename_component(folder ${folder} NAME)
  string(TOUPPER ${folder} type)
  string(REGEX MATCH "^[0-9]+" id ${name})
  file(READ ${file} hex HEX)
  string(REGEX REPLACE "([0-9a-f][0-9a-f])" "'\\\\x\\1'," bytes "${hex}")
  string(APPEND entries "    {{u\"${type}\", ${id}}, {${bytes}}},\n")
endforeach()
file(WRITE ${OUTPUT} "#include <map>

#include \"platform/Automation.h\"
#include \"platform/ResourceStore.h\"

namespace kestrune {

namespace {

const std::map<std::pair<Text, int>, std::string> kBytes = {
${entries}};

const std::map<int, Text> kStrings = {
#define STRING(id, name, text) {id, u\"\" text},
#include \"common/resources/strings.def\"
#undef STRING
};

}  // namespace

Text StoredString(int id) {
  const auto found = kStrings.find(id);
  return found == kStrings.end() ? Text() : found->second;
}

std::string StoredBytes(TextView type, int id) {
  const auto found = kBytes.find({Text(type), id});
  if (found == kBytes.end()) {
    throw AutomationError(error::kFileFailure, u\"Kestrune\",
                          Text(u\"There is no resource \").append(type).append(u\" \") + ToText(id));
  }
  return found->second;
}

}  // namespace kestrune
")
