// The attribute list of an export: below "DoorsModule/Attributes" an element for each attribute, with its "Name" and the
// "ID" under which the objects carry its values.
#pragma once

#include <unordered_map>

#include "platform/Xml.h"

namespace kestrune {

class ExportAttributes : public XmlHandler {
 public:
  /// Whether there is such a list; "DoorsModule" is the root, and the first list counts.
  bool IsThere() const { return is_there_; }
  const std::vector<Text>& Names() const { return names_; }  // in the order of the list
  /// The ID of the first attribute of that name; nothing when there is none, or none with an ID.
  std::optional<std::size_t> IdOf(const Text& name) const;

  void OnDocument() override;
  bool OnStart(TextView name, const XmlAttributes& attributes) override;
  void OnEnd(TextView content) override;

 protected:
  /// Of the element that began last: 1 for the root.
  std::size_t Depth() const { return depth_; }
  bool IsInModule() const { return is_in_module_; }
  /// Takes the list of the document that comes next for one that it has already.
  void KeepForNextDocument() { is_kept_ = true; }

 private:
  void Add(const XmlAttributes& attributes);

  std::vector<Text> names_;
  std::unordered_map<Text, std::size_t> ids_;
  std::size_t depth_ = 0;
  bool is_there_ = false;
  bool is_in_list_ = false;
  bool is_in_module_ = false;
  bool is_kept_ = false;
};

/// The number that the digits make; nothing for anything else.
std::optional<std::size_t> ExportIdIn(TextView digits);

}  // namespace kestrune
