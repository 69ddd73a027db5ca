// The ReqIF documents in a file: the file itself, or the members of an archive.
#pragma once

#include <vector>

#include "standins/doors-database/reqif/Exchange.h"

namespace kestrune::standins {

struct ReqifDocument {
  Text name;  // the path; in an archive followed by "!" and the member
  std::string xml;
};

/// Whether it is an archive is told by the file's first bytes. Throws AutomationError for a file that cannot
/// be read and for an archive that is damaged or has no member *.reqif.
std::vector<ReqifDocument> ReadReqifDocuments(const Text& path);

}  // namespace kestrune::standins
