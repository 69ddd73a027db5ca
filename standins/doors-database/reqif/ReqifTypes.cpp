#include "standins/doors-database/reqif/ReqifTypes.h"

#include <array>
#include <cstdio>
#include <set>

#include "standins/doors-database/reqif/XhtmlText.h"

namespace kestrune::standins {

namespace {

const std::map<std::string, Text> kDoorsNames = {
    {"ReqIF.ForeignID", u"Absolute Number"},
    {"ReqIF.ChapterName", u"Object Heading"},
    {"ReqIF.Text", u"Object Text"},
    {"ReqIF.Name", u"Object Short Text"},
    {"ReqIF.ForeignCreatedBy", u"Created By"},
    {"ReqIF.ForeignCreatedOn", u"Created On"},
    {"ReqIF.ForeignCreatedThru", u"Created Thru"},
    {"ReqIF.ForeignModifiedBy", u"Last Modified By"},
    {"ReqIF.ForeignModifiedOn", u"Last Modified On"},
};

// The layout of DOORS' tables; a tool that re-saves the file may lose the mark that says
// they are system attributes.
const std::set<Text> kTableAttributes = {
    u"TableType",           u"TableTopBorder", u"TableBottomBorder", u"TableLeftBorder",
    u"TableRightBorder",    u"TableCellAlign", u"TableCellWidth",    u"TableChangeBars",
    u"TableLinkIndicators", u"TableShowAttrs", u"TableShowWide",     u"TableShowBookform",
};

Role RoleOf(const std::string& name, bool is_module_type) {
  if (!is_module_type && (name == "ReqIF.ForeignID" || name == "Absolute Number"))
    return Role::kAbsoluteNumber;
  if (name == "ReqIF.ForeignDeleted") return Role::kDeleted;
  if (!is_module_type) return Role::kAttribute;
  if (name == "ReqIF.Prefix") return Role::kPrefix;
  if (name == "ReqIF.Description") return Role::kDescription;
  if (name == "ReqIF.Name") return Role::kModuleName;
  return Role::kAttribute;
}

/// "2014-01-23T14:24:16.000+01:00" as DOORS prints a date: "23 January 2014 14:24:16", without
/// a time at midnight.
Text DateText(const std::string& value) {
  static constexpr std::array<const char*, 12> kMonths = {"January",   "February", "March",    "April",
                                                          "May",       "June",     "July",     "August",
                                                          "September", "October",  "November", "December"};
  int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
  const int fields =
      std::sscanf(value.c_str(), "%d-%d-%dT%d:%d:%d", &year, &month, &day, &hour, &minute, &second);
  if (fields < 3 || month < 1 || month > 12) return FromUtf8(value);
  char text[64];
  const auto* month_name = kMonths[static_cast<std::size_t>(month - 1)];
  std::snprintf(text, sizeof text, "%d %s %d", day, month_name, year);
  Text date = FromUtf8(text);
  if (hour == 0 && minute == 0 && second == 0) return date;
  std::snprintf(text, sizeof text, " %02d:%02d:%02d", hour, minute, second);
  return date + FromUtf8(text);
}

/// What the kind of a value is called where its data type has no name.
Text KindName(std::string_view element_name) {
  const auto kind = element_name.substr(element_name.rfind('-') + 1);
  if (kind == "INTEGER") return u"Integer";
  if (kind == "REAL") return u"Real";
  if (kind == "BOOLEAN") return u"Boolean";
  if (kind == "DATE") return u"Date";
  if (kind == "ENUMERATION") return u"Enumeration";
  return kind == "XHTML" ? u"Text" : u"String";
}

Text LongName(const xmlNode* element) {
  return FromUtf8(AttributeOf(element, "LONG-NAME"));
}

}  // namespace

void ReqifTypes::AddDatatype(const xmlNode* element) {
  datatype_names_[AttributeOf(element, "IDENTIFIER")] = LongName(element);
  const xmlNode* value = Wrapped(element, "SPECIFIED-VALUES");
  for (; value; value = NextElement(value)) enum_names_[AttributeOf(value, "IDENTIFIER")] = LongName(value);
}

void ReqifTypes::AddType(const xmlNode* element, bool is_module_type) {
  const std::string id = AttributeOf(element, "IDENTIFIER");
  const auto [type, is_new] = types_.try_emplace(id);
  if (is_new && !is_module_type) object_types_.push_back(id);
  auto& definitions = type->second;
  std::set<const ReqifDefinition*> known(definitions.begin(), definitions.end());
  const xmlNode* attribute = Wrapped(element, "SPEC-ATTRIBUTES");
  for (; attribute; attribute = NextElement(attribute)) {
    const auto& definition =
        definitions_
            .try_emplace(AttributeOf(attribute, "IDENTIFIER"), ReadDefinition(attribute, is_module_type))
            .first->second;
    if (known.insert(&definition).second) definitions.push_back(&definition);
  }
}

ReqifDefinition ReqifTypes::ReadDefinition(const xmlNode* element, bool is_module_type) const {
  const std::string name = AttributeOf(element, "LONG-NAME");
  ReqifDefinition definition;
  const auto known = kDoorsNames.find(name);
  definition.name = known == kDoorsNames.end() ? FromUtf8(name) : known->second;
  if (name.empty()) definition.name = FromUtf8(AttributeOf(element, "IDENTIFIER"));
  definition.role = RoleOf(name, is_module_type);
  definition.system =
      AttributeOf(element, "DESC") == "System Attribute" || kTableAttributes.contains(definition.name);
  definition.multi = AttributeOf(element, "MULTI-VALUED") == "true";
  const auto type = datatype_names_.find(TextOf(Child(element, "TYPE")));
  const bool has_type_name = type != datatype_names_.end() && !type->second.empty();
  definition.type = has_type_name ? type->second : KindName(NameOf(element));
  return definition;
}

const std::vector<const ReqifDefinition*>& ReqifTypes::DefinitionsOf(const std::string& type) const {
  static const std::vector<const ReqifDefinition*> none;
  const auto found = types_.find(type);
  return found == types_.end() ? none : found->second;
}

std::vector<ReqifValue> ReqifTypes::ReadValues(const xmlNode* owner) const {
  std::vector<ReqifValue> values;
  for (const xmlNode* element = Wrapped(owner, "VALUES"); element; element = NextElement(element)) {
    const auto definition = definitions_.find(TextOf(Child(element, "DEFINITION")));
    if (definition == definitions_.end()) continue;
    ReqifValue value{&definition->second, {}, {}};
    FillValue(element, value);
    if (!value.text.empty()) values.push_back(std::move(value));
  }
  return values;
}

void ReqifTypes::FillValue(const xmlNode* element, ReqifValue& value) const {
  const auto name = NameOf(element);
  if (name == "ATTRIBUTE-VALUE-XHTML") {
    const xmlNode* content = Child(element, "THE-VALUE");
    if (!content) return;
    XhtmlText text = ReadXhtml(content);
    value.text = std::move(text.plain);
    value.rich = std::move(text.rich);
  } else if (name == "ATTRIBUTE-VALUE-ENUMERATION") {
    value.text = EnumText(element);
  } else {
    const std::string text = AttributeOf(element, "THE-VALUE");
    if (name == "ATTRIBUTE-VALUE-DATE") {
      value.text = DateText(text);
    } else if (name == "ATTRIBUTE-VALUE-BOOLEAN" && !text.empty()) {
      value.text = text == "true" || text == "1" ? u"True" : u"False";
    } else {
      value.text = FromUtf8(text);
    }
  }
}

Text ReqifTypes::EnumText(const xmlNode* value) const {
  Text text;
  for (const xmlNode* ref = Wrapped(value, "VALUES"); ref; ref = NextElement(ref)) {
    const auto name = enum_names_.find(TextOf(ref));
    if (name == enum_names_.end()) continue;
    if (!text.empty()) text += u'\n';
    text += name->second;
  }
  return text;
}

}  // namespace kestrune::standins
