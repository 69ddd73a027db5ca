#include "import/AddImportFields.h"

#include <unordered_set>

namespace kestrune {

namespace {

std::unordered_set<std::size_t> UnusedSlots(const LinkSettings& settings) {
  std::unordered_set<std::size_t> slots;
  for (const UnusedRule& unused : settings.UnusedRules()) slots.insert(unused.Slot);
  return slots;
}

/// A rule of the user's for what a fixed rule fills already, with the same value.
bool IsRedundant(const LinkSettings& settings, std::size_t slot, const ImportColumn& column) {
  return slot >= LinkSettings::kFirstUserSlot && column == ColumnOf(settings.Rules[column::kIdentifier]);
}

}  // namespace

int AddImportFields(const LinkSettings& settings, OrimDoc& orim_doc, DoorsDoc& doors_doc) {
  const auto unused = UnusedSlots(settings);
  int count = 0;
  for (std::size_t slot = 1; slot < settings.Rules.size(); ++slot) {
    if (settings.Rules[slot].Target.empty() || unused.contains(slot)) continue;
    const ImportColumn column = ColumnOf(settings.Rules[slot]);
    if (IsRedundant(settings, slot, column)) continue;
    orim_doc.AddField(column);
    doors_doc.AddField(column);
    ++count;
  }
  return count;
}

}  // namespace kestrune
