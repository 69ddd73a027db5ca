// The ReqIF documents in a file: the file itself, or the members of an archive.
#pragma once

#include <functional>

#include "platform/Text.h"

namespace kestrune::standins {

/// Calls `visit` with each document, one after the other, so that no two are held at once; the name is
/// the path, in an archive followed by "!" and the member. Whether the file is an archive is told by its
/// first bytes. Throws AutomationError for a file that cannot be read and for an archive that is damaged
/// or has no member *.reqif.
void ForEachReqifDocument(const Text& path,
                          const std::function<void(const std::string& xml, const Text& name)>& visit);

}  // namespace kestrune::standins
