// Reads a ReqIF file (the exchange format of requirement tools) into modules.
#pragma once

#include "standins/doors-database/reqif/Exchange.h"

namespace kestrune::standins {

/// `xml` is the file's content, `file` its name for messages. Every specification becomes a module, every
/// node of its hierarchy an object. Throws AutomationError with file, line and reason for what is no
/// well-formed ReqIF or has a document type definition.
Exchange ReadReqif(const std::string& xml, const Text& file);

}  // namespace kestrune::standins
