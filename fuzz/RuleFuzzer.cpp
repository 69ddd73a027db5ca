// A line of a mapping rule; and, in the parts of the line between "|", a rule that was put together.
#include "fuzz/Fuzz.h"
#include "options/MappingRule.h"
#include "platform/Automation.h"

namespace kestrune::fuzz {

namespace {

std::optional<MappingRule> TryToParse(TextView line) {
  try {
    return ParseRule(line);
  } catch (const AutomationError& failure) {
    Require(failure.Number == error::kMalformedRule, "a line that is no rule is called malformed");
    return std::nullopt;
  }
}

}  // namespace

void Fuzz(std::string_view input) {
  const Text line = FromUtf8(input);
  if (const auto rule = TryToParse(line); rule && !rule->Target.empty())
    Require(TryToParse(RuleText(*rule)) == rule, "a rule that was read is written so that it reads back");

  std::vector<Text> parts = Split(line, u"|");
  parts.resize(4);
  const MappingRule rule{parts[0], parts[1], parts[2], parts[3]};
  if (ReadsBack(rule))
    Require(TryToParse(RuleText(rule)) == rule, "a rule reads back where that is promised");
}

}  // namespace kestrune::fuzz
