#include "documents/DoorsDoc.h"

#include <optional>
#include <unordered_map>

#include "common/Utilities.h"
#include "documents/ExportReader.h"
#include "documents/OutputTab.h"
#include "platform/Files.h"

namespace kestrune {

namespace {

constexpr TextView kSource = u"DoorsDoc.Load";

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

/// Once more where the export turns out to need it.
std::optional<XmlParseError> ReadOnce(const Text& path, ExportReader& reader) {
  auto error = ReadXmlFile(path, reader);
  if (error || !reader.IsTheWrongWayRound()) return error;
  reader.ReadAgain();
  return ReadXmlFile(path, reader);
}

void Read(const Text& path, const Platform& platform, const OutputTab& output, ExportReader& reader) {
  const auto error = ReadOnce(path, reader);
  if (!error) return;
  if (error->Code == 0) ThrowUnreadable(path);
  ReportParseError(output, path, *error);
  output.Write(u"Attempting to post-process xml file...");
  const Text copy = CleanExportFile(platform, path);
  if (const auto still = ReadOnce(copy, reader)) {
    ReportParseError(output, copy, *still);
    ThrowBadExport(ParseReport(copy, *still));
  }
  output.Write(u"Success.");
  std::error_code ignored;  // it is replaced by the next one
  std::filesystem::remove(ToPath(copy), ignored);
}

}  // namespace

void DoorsDoc::Load(const Text& path, Options& options, const Platform& platform,
                    const orim::Repository& repository) {
  ExportReader reader(columns_);
  Read(path, platform, OutputTab(repository), reader);
  // Anything else that happens to be XML must not pass for a module that has lost its attributes and objects.
  if (!reader.IsThere() || !reader.HasObjects() || !reader.IdOf(Text(kObjectIdentifier)))
    ThrowUnreadable(path);
  options.RefreshDoorsAttributesFromXML(reader);
  table_ = reader.TakeTable();
  NumberSiblings();
}

// What lies below an object that is not in the export stands at the top, in its turn.
void DoorsDoc::NumberSiblings() {
  std::unordered_map<TextView, int> last_position = {{u"", 0}};  // by the parent's identifier
  last_position.reserve(table_.UpperRow() + 1);
  for (std::size_t row = 1; row <= table_.UpperRow(); ++row)
    last_position.emplace(table_.At(row, column::kIdentifier).AsText(), 0);
  for (std::size_t row = 1; row <= table_.UpperRow(); ++row) {
    auto parent = last_position.find(table_.At(row, column::kParent).AsText());
    if (parent == last_position.end()) parent = last_position.find(u"");
    table_.Put(row, column::kPosition, parent->second += 10);
  }
}

}  // namespace kestrune
