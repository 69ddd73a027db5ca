#include "options/ExportAttributes.h"

#include <algorithm>

namespace kestrune {

namespace {

constexpr std::size_t kLongestId = 6;  // a million attributes are enough for anybody

const Text* Find(const XmlAttributes& attributes, TextView name) {
  const auto found =
      std::ranges::find(attributes, name, [](const auto& each) { return TextView(each.first); });
  return found == attributes.end() ? nullptr : &found->second;
}

}  // namespace

std::optional<std::size_t> ExportIdIn(TextView digits) {
  if (digits.empty() || digits.size() > kLongestId) return std::nullopt;
  std::size_t id = 0;
  for (const char16_t digit : digits) {
    if (digit < u'0' || digit > u'9') return std::nullopt;
    id = id * 10 + (digit - u'0');
  }
  return id;
}

std::optional<std::size_t> ExportAttributes::IdOf(const Text& name) const {
  const auto found = ids_.find(name);
  if (found == ids_.end()) return std::nullopt;
  return found->second;
}

void ExportAttributes::OnDocument() {
  depth_ = 0;
  is_in_list_ = is_in_module_ = false;
  if (is_kept_) return;
  names_.clear();
  ids_.clear();
  is_there_ = false;
}

bool ExportAttributes::OnStart(TextView name, const XmlAttributes& attributes) {
  ++depth_;
  if (depth_ == 1) is_in_module_ = name == u"DoorsModule";
  if (depth_ == 2 && is_in_module_ && !is_there_) is_there_ = is_in_list_ = name == u"Attributes";
  if (depth_ == 3 && is_in_list_) Add(attributes);
  return false;
}

void ExportAttributes::OnEnd(TextView) {
  if (--depth_ == 1) is_in_list_ = false;
}

void ExportAttributes::Add(const XmlAttributes& attributes) {
  const Text* name = Find(attributes, u"Name");
  if (!name) return;
  names_.push_back(*name);
  const Text* digits = Find(attributes, u"ID");
  if (const auto id = digits ? ExportIdIn(*digits) : std::nullopt) ids_.emplace(*name, *id);
}

}  // namespace kestrune
