// What DOORS shows for a formatted value that travels as XHTML.
#pragma once

#include <libxml/tree.h>

#include "platform/Text.h"

namespace kestrune::standins {

struct XhtmlText {
  Text plain;
  Text rich;  // in DOORS' markup; empty when nothing is formatted
};

/// The content of `value`, whatever its own name. Blocks, list items, table rows and br begin lines, table
/// cells are set apart by tabs, embedded objects read "OLE Object"; white space around the whole is dropped,
/// and a run of white space with a line end in it is one blank.
XhtmlText ReadXhtml(const xmlNode* value);

}  // namespace kestrune::standins
