#include <algorithm>
#include <set>
#include <unordered_set>

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
  /// Null for an object that the file does not hold.
  const ReqifObject* ObjectAt(const ReqifPlace& place) const {
    const auto found = content_.objects.find(place.object);
    return found == content_.objects.end() ? nullptr : &found->second;
  }

  void AddAttributes() {
    std::set<std::string> used;
    for (const ReqifPlace& place : specification_.places)
      if (const ReqifObject* object = ObjectAt(place)) used.insert(object->type);
    for (const std::string& type : content_.types.ObjectTypes())
      if (used.contains(type)) AddType(type, &ExchangeAttribute::on_object);
    AddType(specification_.type, &ExchangeAttribute::on_module);
  }

  /// Definitions of one name in several types are one attribute; within one type the second is called "name
  /// (2)", or the next number that is nobody's name there.
  void AddType(const std::string& type, bool ExchangeAttribute::*applies) {
    const auto& definitions = content_.types.DefinitionsOf(type);
    std::unordered_set<Text> own_names;
    for (const ReqifDefinition* definition : definitions) own_names.insert(definition->name);
    std::unordered_map<Text, int> count;
    for (const ReqifDefinition* definition : definitions) {
      if (definition->role != Role::kAttribute) continue;
      Text name = definition->name;
      for (int& nth = count[definition->name]; ++nth > 1;) {
        name = definition->name + u" (" + ToText(nth) + u")";
        if (own_names.insert(name).second) break;
      }
      AttributeNamed(name, *definition).*applies = true;
      place_[definition] = place_by_name_.at(name);
    }
  }

  ExchangeAttribute& AttributeNamed(const Text& name, const ReqifDefinition& definition) {
    const auto [place, is_new] = place_by_name_.try_emplace(name, module_.attributes.size());
    if (is_new) {
      module_.attributes.push_back({name, definition.type});
      module_.attributes.back().system = definition.system;
      module_.attributes.back().multi = definition.multi;
    }
    return module_.attributes[place->second];
  }

  void AddModuleValues() {
    for (const ReqifValue& value : specification_.values) {
      if (value.definition->role == Role::kPrefix) module_.prefix = value.text;
      if (value.definition->role == Role::kDescription) module_.description = value.text;
      const auto place = place_.find(value.definition);
      if (place != place_.end()) module_.values.push_back({place->second, value.text, {}});
    }
  }

  /// What lies below an entry without an object lies below the one above it then.
  void AddObject(const ReqifPlace& place) {
    const int parent = place.parent < 0 ? -1 : object_of_place_[static_cast<std::size_t>(place.parent)];
    const ReqifObject* source = ObjectAt(place);
    if (!source) {
      module_.warnings.push_back(FileMessage(file_, place.line,
                                             u"the hierarchy refers to the object \"" +
                                                 FromUtf8(place.object) +
                                                 u"\", which the file does not hold; it is left out"));
      object_of_place_.push_back(parent);
      return;
    }
    object_of_place_.push_back(static_cast<int>(module_.objects.size()));
    ExchangeObject object;
    object.origin = UnusedOrigin(place.object);
    object.parent = parent;
    for (const ReqifValue& value : source->values) {
      if (value.definition->role == Role::kAbsoluteNumber)
        object.absolute_number = static_cast<int>(std::clamp(NumericValue(value.text), 0.0, 2147483647.0));
      if (value.definition->role == Role::kDeleted) object.deleted = value.text == u"True";
      if (value.definition->name == u"TableType") object.part = PartNamed(value.text);
      const auto attribute = place_.find(value.definition);
      if (attribute != place_.end()) object.values.push_back({attribute->second, value.text, value.rich});
    }
    module_.objects.push_back(std::move(object));
  }

  /// An object may stand at several places; the later ones need a key of their own, which
  /// no other object has.
  Text UnusedOrigin(const std::string& identifier) {
    int& nth = times_placed_[identifier];
    std::string origin = identifier;
    while (++nth > 1) {
      origin = identifier + "#" + std::to_string(nth);
      if (!content_.objects.contains(origin) && made_origins_.insert(origin).second) break;
    }
    return FromUtf8(origin);
  }

  const ReqifSpecification& specification_;
  const ReqifContent& content_;
  const Text& file_;
  ExchangeModule module_;
  std::map<const ReqifDefinition*, std::size_t> place_;
  std::unordered_map<Text, std::size_t> place_by_name_;
  std::vector<int> object_of_place_;
  std::unordered_map<std::string, int> times_placed_;
  std::unordered_set<std::string> made_origins_;
};

}  // namespace

ExchangeModule MakeModule(const ReqifSpecification& specification, const ReqifContent& content,
                          const Text& file) {
  return ModuleMaker(specification, content, file).Make();
}

}  // namespace kestrune::standins
