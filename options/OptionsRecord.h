// The text form in which a package keeps its options: the memo text of the tagged value "DoorsConnection" of
// its element.
//
//   The following attributes are copied ...          lines 0 and 1: help for whoever opens the memo
//   It is possible edit the following text ...
//                                                    line 2: empty
//   RestrictToView=Requirements only                 only with a view restriction, and an empty line after it
//
//   Created By --> (Tagged Value)                    the rules, up to the first empty line
//   Status
#pragma once

#include <span>

#include "options/MappingRule.h"

namespace kestrune {

inline constexpr TextView kRecordName = u"DoorsConnection";  // of the tagged value

struct OptionsRecord {
  Text RestrictToView;
  std::vector<MappingRule> Rules;
  Text Complaints;  // a line for each rule line that could not be read
};

/// False for a text of fewer than four lines and for one in the older layout, which had a line
/// "OrimNameAttr=".
bool IsValidRecord(TextView record);

/// What can be read of a text, valid or not.
OptionsRecord ReadRecord(TextView record);

/// The record's text. The standard view is no restriction. A rule that would not be read back as itself, or
/// whose line would be taken for another part of the record, is left out, so that it can spoil neither the
/// other rules nor the record: that is an attribute of a peculiar name, which can have no target and is found
/// again in the module.
Text WriteRecord(const Text& restrict_to_view, std::span<const MappingRule> rules);

}  // namespace kestrune
