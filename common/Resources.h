// The texts that the add-in carries: messages and captions, DXL scripts, queries; and the filling of
// placeholders.
#pragma once

#include <initializer_list>

#include "platform/Text.h"

namespace kestrune {

/// The ids of the string table by name.
namespace text {
enum Id : int {
#define STRING(id, name, text) name = id,
#include "common/resources/strings.def"
#undef STRING
};
}  // namespace text

namespace dxl_script {
enum Id : int { kListModules = 101, kListViews = 102, kExportModule = 103, kLocateObject = 104 };
}
namespace sql_text {
enum Id : int { kPackageContent = 101, kChildren = 102, kMemoTexts = 103, kUnfinished = 104 };
}

Text LoadDxl(int id);
Text LoadSql(int id);
Text LoadResText(int id);

/// Fills each "%s" of `text` in order, then turns every two characters "\n" into CR LF. The first "%s" that
/// is left is the next to be filled, also one that came with an argument; arguments too many are ignored.
Text FormatText(Text text, std::initializer_list<Text> args);

/// FormatText on the string-table entry.
Text FormatResText(int id, std::initializer_list<Text> args = {});

}  // namespace kestrune
