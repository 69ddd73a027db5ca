// The types of a ReqIF file: enumerations and attribute definitions by their identifiers.
#pragma once

#include <map>

#include "standins/doors-database/reqif/Exchange.h"
#include "standins/doors-database/reqif/ReqifNode.h"

namespace kestrune::standins {

/// What a value of an attribute is to a DOORS module.
enum class Role { kAttribute, kAbsoluteNumber, kDeleted, kPrefix, kDescription, kModuleName };

struct ReqifDefinition {
  Text name;  // as DOORS calls it
  Text type;
  Role role = Role::kAttribute;
  bool system = false;
  bool multi = false;
};

struct ReqifValue {
  const ReqifDefinition* definition = nullptr;
  Text text;
  Text rich;
};

class ReqifTypes {
 public:
  /// Each takes in one element: a DATATYPE-DEFINITION-..., a SPEC-OBJECT-TYPE or SPECIFICATION-TYPE. A type
  /// that comes again under the same identifier, as tools write it that merge files, adds to the first.
  void AddDatatype(const xmlNode* element);
  void AddObjectType(const xmlNode* element) { AddType(element, false); }
  void AddModuleType(const xmlNode* element) { AddType(element, true); }

  /// The object types in file order.
  const std::vector<std::string>& ObjectTypes() const { return object_types_; }
  /// The definitions of a type in file order; none for an unknown type.
  const std::vector<const ReqifDefinition*>& DefinitionsOf(const std::string& type) const;

  /// The values below a SPEC-OBJECT or SPECIFICATION; those without a definition in the file are left out.
  std::vector<ReqifValue> ReadValues(const xmlNode* owner) const;

 private:
  void AddType(const xmlNode* element, bool is_module_type);
  ReqifDefinition ReadDefinition(const xmlNode* element, bool is_module_type) const;
  Text EnumText(const xmlNode* value) const;
  void FillValue(const xmlNode* element, ReqifValue& value) const;

  std::map<std::string, Text> datatype_names_;
  std::map<std::string, Text> enum_names_;
  std::map<std::string, ReqifDefinition> definitions_;
  std::map<std::string, std::vector<const ReqifDefinition*>> types_;
  std::vector<std::string> object_types_;
};

}  // namespace kestrune::standins
