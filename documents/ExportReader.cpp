#include "documents/ExportReader.h"

namespace kestrune {

namespace {

/// The ID in an element name such as "a12"; nothing for any other name.
std::optional<std::size_t> IdOfElement(TextView name) {
  return name.starts_with(u'a') ? ExportIdIn(name.substr(1)) : std::nullopt;
}

}  // namespace

void ExportReader::OnDocument() {
  ExportAttributes::OnDocument();
  table_ = DataTable(columns_.size() - 1);
  has_objects_ = is_in_objects_ = is_resolved_ = false;
}

bool ExportReader::OnStart(TextView name, const XmlAttributes& attributes) {
  ExportAttributes::OnStart(name, attributes);
  if (Depth() == 2 && IsInModule() && !has_objects_ && name == u"Objects") {
    has_objects_ = is_in_objects_ = true;
    if (IsThere()) Resolve();
  }
  if (!is_in_objects_ || !is_resolved_) return false;
  if (Depth() == 3) row_ = table_.AddRow();
  return Depth() == 4 && Wants(name);
}

void ExportReader::OnEnd(TextView content) {
  if (is_in_objects_ && is_resolved_) {
    if (Depth() == 4) TakeValue(content);
    if (Depth() == 3) EndObject();
  }
  if (Depth() == 2) is_in_objects_ = false;
  ExportAttributes::OnEnd(content);
}

void ExportReader::Resolve() {
  is_resolved_ = true;
  uses_ = {{}};
  combined_.assign(columns_.size(), {});
  const auto add = [this](const Text& attribute, Use use) {
    const auto id = IdOf(attribute);
    if (!id) return;
    if (*id >= uses_.size()) uses_.resize(*id + 1);
    uses_[*id].push_back(use);
  };
  for (std::size_t c = 1; c < columns_.size(); ++c) {
    // Without the first attribute there is nothing for the second to be put behind.
    if (columns_[c].Attribute == kFieldPosition || !IdOf(columns_[c].Attribute)) continue;
    add(columns_[c].Attribute, {c, false});
    add(columns_[c].ExtraAttribute, {c, true});
  }
}

/// The absolute number, which has ID 0, is every object's.
bool ExportReader::Wants(TextView name) {
  const auto id = IdOfElement(name);
  id_ = id.value_or(uses_.size());
  return id_ == 0 || (id_ < uses_.size() && !uses_[id_].empty());
}

void ExportReader::TakeValue(TextView content) {
  if (id_ == 0) table_.Put(row_, column::kKey, NumericValue(content));
  if (id_ >= uses_.size()) return;
  for (const Use& use : uses_[id_]) {
    if (use.IsExtra)
      combined_[use.Column].Extra = content;
    else if (!columns_[use.Column].ExtraAttribute.empty())
      combined_[use.Column].First = content;
    else
      table_.PutText(row_, use.Column, content);
  }
}

void ExportReader::EndObject() {
  for (std::size_t c = 1; c < columns_.size(); ++c) {
    auto& [first, extra] = combined_[c];
    if (!extra.empty()) first += columns_[c].Separator + extra;
    if (!first.empty()) table_.PutText(row_, c, first);
    first.clear();
    extra.clear();
  }
}

}  // namespace kestrune
