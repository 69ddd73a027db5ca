#include "options/OptionsRecord.h"

#include "common/Resources.h"
#include "platform/Automation.h"

namespace kestrune {

namespace {

constexpr TextView kViewKey = u"RestrictToView=";
constexpr TextView kOldLayoutKey = u"OrimNameAttr=";
constexpr std::size_t kFirstLine = 3;  // of what follows the help text

void ReadRuleLine(TextView line, OptionsRecord& record) {
  try {
    if (auto rule = ParseRule(line)) record.Rules.push_back(std::move(*rule));
  } catch (const AutomationError& malformed) {
    record.Complaints.append(record.Complaints.empty() ? TextView() : kCrLf).append(malformed.Description);
  }
}

bool HasOwnLine(const MappingRule& rule) {
  const Text line = RuleText(rule);
  return ReadsBack(rule) && !line.starts_with(kViewKey) && !line.starts_with(kOldLayoutKey);
}

bool IsRestriction(const Text& view) {
  return !view.empty() && view != LoadResText(text::kStandardView) && view.find(kCrLf) == Text::npos;
}

}  // namespace

bool IsValidRecord(TextView record) {
  return Split(record, kCrLf).size() > kFirstLine &&
         record.find(Text(kCrLf).append(kOldLayoutKey)) == TextView::npos;
}

OptionsRecord ReadRecord(TextView record) {
  OptionsRecord read;
  const std::vector<Text> lines = Split(record, kCrLf);
  if (lines.size() <= kFirstLine) return read;
  std::size_t line = kFirstLine;
  if (lines[line].starts_with(kViewKey)) {
    read.RestrictToView = lines[line].substr(kViewKey.size());
    line += 2;
  }
  for (; line < lines.size() && !Trim(lines[line]).empty(); ++line) ReadRuleLine(Trim(lines[line]), read);
  return read;
}

Text WriteRecord(const Text& restrict_to_view, std::span<const MappingRule> rules) {
  Text record = LoadResText(text::kRecordHelp).append(kCrLf).append(kCrLf);
  if (IsRestriction(restrict_to_view))
    record.append(kViewKey).append(restrict_to_view).append(kCrLf).append(kCrLf);
  for (const MappingRule& rule : rules)
    if (HasOwnLine(rule)) record.append(RuleText(rule)).append(kCrLf);
  return record;
}

}  // namespace kestrune
