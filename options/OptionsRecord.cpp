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
  const Text text = RuleText(rule);
  return ReadsBack(rule) && !text.starts_with(kViewKey) && !text.starts_with(kOldLayoutKey);
}

bool IsRestriction(const Text& view) {
  return !view.empty() && view != LoadResText(text::kStandardView) && view.find(kCrLf) == Text::npos;
}

}  // namespace

bool IsValidRecord(TextView text) {
  return Split(text, kCrLf).size() > kFirstLine &&
         text.find(Text(kCrLf).append(kOldLayoutKey)) == TextView::npos;
}

OptionsRecord ReadRecord(TextView text) {
  OptionsRecord record;
  const std::vector<Text> lines = Split(text, kCrLf);
  if (lines.size() <= kFirstLine) return record;
  std::size_t line = kFirstLine;
  if (lines[line].starts_with(kViewKey)) {
    record.RestrictToView = lines[line].substr(kViewKey.size());
    line += 2;
  }
  for (; line < lines.size() && !Trim(lines[line]).empty(); ++line) ReadRuleLine(Trim(lines[line]), record);
  return record;
}

Text WriteRecord(const Text& restrict_to_view, std::span<const MappingRule> rules) {
  Text text = LoadResText(text::kRecordHelp).append(kCrLf).append(kCrLf);
  if (IsRestriction(restrict_to_view))
    text.append(kViewKey).append(restrict_to_view).append(kCrLf).append(kCrLf);
  for (const MappingRule& rule : rules)
    if (HasOwnLine(rule)) text.append(RuleText(rule)).append(kCrLf);
  return text;
}

}  // namespace kestrune
