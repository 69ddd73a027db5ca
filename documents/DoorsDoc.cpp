#include "documents/DoorsDoc.h"

#include <optional>
#include <unordered_map>

#include "common/Utilities.h"
#include "documents/OutputTab.h"

namespace kestrune {

namespace {

constexpr TextView kSource = u"DoorsDoc.Load";
constexpr std::size_t kLongestId = 6;  // a million attributes are enough for anybody

[[noreturn]] void ThrowBadExport(Text description) {
  throw AutomationError(DoorsDoc::kBadExport, Text(kSource), std::move(description));
}

[[noreturn]] void ThrowUnreadable(const Text& path) {
  ThrowBadExport(CannotReadXml(path));
}

Text ParseReport(const Text& path, const XmlParseError& error) {
  return Text(u"Error Parsing XML Result\r\nFile: ") + path + u"\r\nLine: " + ToText(error.Line) +
         u"\r\nPos: " + ToText(error.LinePosition) + u"\r\nAbs: " + ToText(error.FilePosition) +
         u"\r\nReason: " + error.Reason;
}

void ReportParseError(const OutputTab& output, const Text& path, const XmlParseError& error) {
  output.Write(u"XML Error detected - " + path + u" - " + error.Reason);
}

XmlDocument LoadExport(const Text& path, const Platform& platform, const OutputTab& output) {
  XmlDocument document;
  if (document.LoadFile(path)) return document;
  if (document.ParseError().Code == 0) ThrowUnreadable(path);
  ReportParseError(output, path, document.ParseError());
  output.Write(u"Attempting to post-process xml file...");
  const Text copy = CleanExportFile(platform, path);
  if (!document.LoadFile(copy)) {
    ReportParseError(output, copy, document.ParseError());
    ThrowBadExport(ParseReport(copy, document.ParseError()));
  }
  output.Write(u"Success.");
  return document;
}

/// The number that the digits make; nothing for anything else.
std::optional<std::size_t> IdIn(TextView digits) {
  if (digits.empty() || digits.size() > kLongestId) return std::nullopt;
  std::size_t id = 0;
  for (const char16_t digit : digits) {
    if (digit < u'0' || digit > u'9') return std::nullopt;
    id = id * 10 + (digit - u'0');
  }
  return id;
}

/// The number in an element name such as "a12"; nothing for any other name.
std::optional<std::size_t> IdOfElement(TextView name) {
  if (!name.starts_with(u'a')) return std::nullopt;
  return IdIn(name.substr(1));
}

std::unordered_map<Text, std::size_t> IdsByName(const XmlNode& attributes) {
  std::unordered_map<Text, std::size_t> ids;
  for (XmlNode each = attributes.FirstChild(); each; each = each.NextSibling()) {
    const auto name = each.Attribute(u"Name");
    const auto id = IdIn(each.Attribute(u"ID").value_or(u""));
    if (name && id) ids.emplace(*name, *id);
  }
  return ids;
}

}  // namespace

void DoorsDoc::Load(const Text& path, Options& options, const Platform& platform,
                    const orim::Repository& repository) {
  const XmlDocument document = LoadExport(path, platform, OutputTab(repository));
  const XmlNode attributes = document.SelectSingleNode(u"DoorsModule/Attributes");
  const XmlNode objects = document.SelectSingleNode(u"DoorsModule/Objects");
  // Anything else that happens to be XML must not pass for a module that has lost its attributes and objects.
  if (!attributes || !objects || !IdsByName(attributes).contains(Text(kObjectIdentifier)))
    ThrowUnreadable(path);
  options.RefreshDoorsAttributesFromXML(document);
  ReadObjects(objects, ResolveFields(attributes));
}

DoorsDoc::UsesById DoorsDoc::ResolveFields(const XmlNode& attributes) const {
  const auto ids = IdsByName(attributes);
  UsesById uses;
  const auto resolve = [&](const Text& attribute, Use use) {
    const auto found = ids.find(attribute);
    if (found == ids.end()) return;
    if (found->second >= uses.size()) uses.resize(found->second + 1);
    uses[found->second].push_back(use);
  };
  for (std::size_t c = 1; c < columns_.size(); ++c) {
    // Without the first attribute there is nothing for the second to be put behind.
    if (columns_[c].Attribute == kFieldPosition || !ids.contains(columns_[c].Attribute)) continue;
    resolve(columns_[c].Attribute, {c, false});
    resolve(columns_[c].ExtraAttribute, {c, true});
  }
  return uses;
}

void DoorsDoc::ReadObjects(const XmlNode& objects, const UsesById& uses) {
  std::size_t count = 0;
  for (XmlNode each = objects.FirstChild(); each; each = each.NextSibling()) ++count;
  table_ = DataTable(count, columns_.size() - 1);
  std::vector<Text> extras(columns_.size());
  PositionByParent last_position = {{u"", 0}};
  last_position.reserve(count + 1);
  std::size_t row = 0;
  for (XmlNode each = objects.FirstChild(); each; each = each.NextSibling()) {
    ReadObject(++row, each, uses, extras);
    last_position.emplace(table_.TextAt(row, column::kIdentifier), 0);
  }
  NumberSiblings(last_position);
}

void DoorsDoc::ReadObject(std::size_t row, const XmlNode& object, const UsesById& uses,
                          std::vector<Text>& extras) {
  const auto put = [&](const Use& use, Text content) {
    if (use.IsExtra)
      extras[use.Column] = std::move(content);
    else
      table_.At(row, use.Column) = std::move(content);
  };
  for (XmlNode value = object.FirstChild(); value; value = value.NextSibling()) {
    const auto id = IdOfElement(value.Name());
    if (!id) continue;
    if (*id == 0) table_.At(row, column::kKey) = NumericValue(value.Content());
    if (*id >= uses.size() || uses[*id].empty()) continue;
    Text content = WidenLineFeeds(value.Content());
    for (std::size_t i = 1; i < uses[*id].size(); ++i) put(uses[*id][i], content);
    put(uses[*id].front(), std::move(content));
  }
  for (std::size_t c = 1; c < columns_.size(); ++c) {
    if (extras[c].empty()) continue;
    Variant& cell = table_.At(row, c);
    cell = cell.ToText() + columns_[c].Separator + extras[c];
    extras[c].clear();
  }
}

// What lies below an object that is not in the export stands at the top, in its turn.
void DoorsDoc::NumberSiblings(PositionByParent& last_position) {
  for (std::size_t row = 1; row <= table_.UpperRow(); ++row) {
    auto parent = last_position.find(table_.TextAt(row, column::kParent));
    if (parent == last_position.end()) parent = last_position.find(u"");
    table_.At(row, column::kPosition) = parent->second += 10;
  }
}

}  // namespace kestrune
