#include "standins/doors-database/reqif/ReqifReader.h"

#include <algorithm>
#include <set>

#include "standins/doors-database/reqif/ReqifContent.h"

namespace kestrune::standins {

namespace {

/// A name that can stand in a path and that no earlier module of the file has.
Text ModuleName(Text name, std::set<Text>& taken) {
  std::ranges::replace(name, u'/', u'-');
  Text unique = name;
  for (int nth = 2; !taken.insert(unique).second; ++nth) unique = name + u" (" + ToText(nth) + u")";
  return unique;
}

}  // namespace

Exchange ReadReqif(const std::string& xml, const Text& file) {
  const ReqifContent content = ReadReqifContent(xml, file);
  Exchange exchange{content.title, {}};
  std::set<Text> taken;
  for (const ReqifSpecification& specification : content.specifications) {
    exchange.modules.push_back(MakeModule(specification, content, file));
    exchange.modules.back().name = ModuleName(std::move(exchange.modules.back().name), taken);
  }
  return exchange;
}

}  // namespace kestrune::standins
