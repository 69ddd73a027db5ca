// The text of an options record, and a template from the clipboard.
#include "fuzz/Fuzz.h"
#include "options/LinkSettings.h"
#include "options/OptionsRecord.h"
#include "platform/Automation.h"

namespace kestrune::fuzz {

namespace {

void FuzzRecord(TextView text) {
  const OptionsRecord first = ReadRecord(text);
  const Text written = WriteRecord(first.RestrictToView, first.Rules);
  const OptionsRecord second = ReadRecord(written);
  Require(IsValidRecord(written), "what is written is a record");
  Require(second.Complaints.empty(), "what is written can be read");
  Require(WriteRecord(second.RestrictToView, second.Rules) == written, "what is written stays");
  Require(second.RestrictToView == (first.RestrictToView == u"Standard view" ? u"" : first.RestrictToView),
          "the view is kept");
  auto kept = second.Rules.begin();
  for (const MappingRule& rule : first.Rules) {
    const bool is_kept = kept != second.Rules.end() && *kept == rule;
    if (is_kept) ++kept;
    Require(is_kept || rule.Target.empty() || RuleText(rule).find(u'=') != Text::npos, "a rule is kept");
  }
  Require(kept == second.Rules.end(), "no rule comes from nowhere");
}

void FuzzTemplate(TextView text) {
  LinkSettings first, second;
  first.ResetToDefaults();
  try {
    if (!first.ApplyTemplate(text)) return;
  } catch (const AutomationError&) {
    return;
  }
  second.ResetToDefaults();
  Require(second.ApplyTemplate(first.GetTemplate()), "what is copied can be pasted");
  Require(second.GetTemplate() == first.GetTemplate(), "a template stays");
}

}  // namespace

void Fuzz(std::string_view input) {
  const Text text = FromUtf8(input);
  FuzzRecord(text);
  FuzzTemplate(text);
}

}  // namespace kestrune::fuzz
