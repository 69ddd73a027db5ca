// A ReqIF file as it stands, before its specifications become modules.
#pragma once

#include <unordered_map>

#include "standins/doors-database/reqif/ReqifTypes.h"

namespace kestrune::standins {

struct ReqifObject {
  std::string type;
  std::vector<ReqifValue> values;
};

/// A place in a hierarchy, in document order.
struct ReqifPlace {
  std::string object;
  int parent = -1;  // the place above
  long line = 0;
};

struct ReqifSpecification {
  Text name;
  std::string type;
  std::vector<ReqifValue> values;
  std::vector<ReqifPlace> places;
};

struct ReqifContent {
  Text title;
  ReqifTypes types;
  std::unordered_map<std::string, ReqifObject> objects;
  std::vector<ReqifSpecification> specifications;
};

/// Throws AutomationError for what is no well-formed ReqIF.
ReqifContent ReadReqifContent(const std::string& xml, const Text& file);

/// The module that a specification becomes. Its attributes are those of the object types
/// that its objects use.
ExchangeModule MakeModule(const ReqifSpecification& specification, const ReqifContent& content,
                          const Text& file);

}  // namespace kestrune::standins
