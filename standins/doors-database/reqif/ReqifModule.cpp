#include <algorithm>
#include <set>

#include "standins/doors-database/reqif/ReqifContent.h"

namespace kestrune::standins {

namespace {

TablePart PartNamed(TextView table_type) {
  if (table_type == u"TableBase") return TablePart::kTable;
  if (table_type == u"TableRow") return TablePart::kRow;
  if (table_type == u"TableCell") return TablePart::kCell;
  return TablePart::kNone;
}

class ModuleMaker {
 public:
  ModuleMaker(const ReqifSpecification& specification, const ReqifContent& content, const Text& file)
      : specification_(specification), content_(content), file_(file) {}

  ExchangeModule Make() {
    module_.name = specification_.name;
    AddAttributes();
    AddModuleValues();
    for (const ReqifPlace& place : specification_.places) AddObject(place);
    return std::move(module_);
  }

 private:
  const ReqifObject& ObjectAt(const ReqifPlace& place) const {
    const auto found = content_.objects.find(place.object);
    if (found == content_.objects.end()) {
      RefuseFile(file_, place.line,
                 u"the hierarchy refers to the object \"" + FromUtf8(place.object) +
                     u"\", which the file does not hold");
    }
    return found->second;
  }

  void AddAttributes() {
    std::set<std::string> used;
    for (const ReqifPlace& place : specification_.places) used.insert(ObjectAt(place).type);
    for (const std::string& type : content_.types.ObjectTypes())
      if (used.contains(type)) AddType(type, &ExchangeAttribute::on_object);
    AddType(specification_.type, &ExchangeAttribute::on_module);
  }

  /// Definitions of one name in several types are one attribute; within one type the second is called "name
  /// (2)".
  void AddType(const std::string& type, bool ExchangeAttribute::*applies) {
    std::map<Text, int> count;
    for (const ReqifDefinition* definition : content_.types.DefinitionsOf(type)) {
      if (definition->role != Role::kAttribute) continue;
      const int nth = ++count[definition->name];
      const Text name = nth == 1 ? definition->name : definition->name + u" (" + ToText(nth) + u")";
      auto known = std::ranges::find(module_.attributes, name, &ExchangeAttribute::name);
      if (known == module_.attributes.end()) {
        known = module_.attributes.insert(known, {name, definition->type});
        known->system = definition->system;
        known->multi = definition->multi;
      }
      (*known).*applies = true;
      place_[definition] = static_cast<std::size_t>(known - module_.attributes.begin());
    }
  }

  void AddModuleValues() {
    for (const ReqifValue& value : specification_.values) {
      if (value.definition->role == Role::kPrefix) module_.prefix = value.text;
      if (value.definition->role == Role::kDescription) module_.description = value.text;
      const auto place = place_.find(value.definition);
      if (place != place_.end()) module_.values.push_back({place->second, value.text, {}});
    }
  }

  void AddObject(const ReqifPlace& place) {
    ExchangeObject object;
    object.origin = UnusedOrigin(FromUtf8(place.object));
    object.parent = place.parent;
    for (const ReqifValue& value : ObjectAt(place).values) {
      if (value.definition->role == Role::kAbsoluteNumber)
        object.absolute_number = static_cast<int>(std::clamp(NumericValue(value.text), 0.0, 2147483647.0));
      if (value.definition->role == Role::kDeleted) object.deleted = value.text == u"True";
      if (value.definition->name == u"TableType") object.part = PartNamed(value.text);
      const auto attribute = place_.find(value.definition);
      if (attribute != place_.end()) object.values.push_back({attribute->second, value.text, value.rich});
    }
    module_.objects.push_back(std::move(object));
  }

  /// An object may stand at several places; the later ones need a key of their own.
  Text UnusedOrigin(const Text& identifier) {
    const int nth = ++times_placed_[identifier];
    return nth == 1 ? identifier : identifier + u"#" + ToText(nth);
  }

  const ReqifSpecification& specification_;
  const ReqifContent& content_;
  const Text& file_;
  ExchangeModule module_;
  std::map<const ReqifDefinition*, std::size_t> place_;
  std::unordered_map<Text, int> times_placed_;
};

}  // namespace

ExchangeModule MakeModule(const ReqifSpecification& specification, const ReqifContent& content,
                          const Text& file) {
  return ModuleMaker(specification, content, file).Make();
}

}  // namespace kestrune::standins
