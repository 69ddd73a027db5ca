#include "standins/doors-database/reqif/ReqifReader.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "standins/doors-database/reqif/ReqifContent.h"

namespace kestrune::standins {

namespace {

/// Names that can stand in a path, each given once.
class ModuleNames {
 public:
  Text Give(Text name) {
    std::ranges::replace(name, u'/', u'-');
    if (name.empty()) name = u"Unnamed";
    Text unique = name;
    for (int& nth = numbered_[name]; !taken_.insert(unique).second;)
      unique = name + u" (" + ToText(++nth + 1) + u")";
    return unique;
  }

 private:
  std::unordered_map<Text, int> numbered_;
  std::unordered_set<Text> taken_;
};

}  // namespace

Exchange ReadReqif(const std::string& xml, const Text& file) {
  const ReqifContent content = ReadReqifContent(xml, file);
  Exchange exchange{content.title, {}};
  ModuleNames names;
  for (const ReqifSpecification& specification : content.specifications) {
    exchange.modules.push_back(MakeModule(specification, content, file));
    exchange.modules.back().name = names.Give(std::move(exchange.modules.back().name));
  }
  return exchange;
}

}  // namespace kestrune::standins
