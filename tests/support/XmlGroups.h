// A look into an XML document: the elements of one path, each with its children.
#pragma once

#include <gtest/gtest.h>

#include "platform/Xml.h"

namespace kestrune::testing {

struct XmlLeaf {
  Text name;
  XmlAttributes attributes;
  Text content;
};
using XmlGroup = std::vector<XmlLeaf>;  // the children of one element

class XmlGroups : public XmlHandler {
 public:
  /// `path` names an element at each level, such as u"Root/Rows/Row".
  explicit XmlGroups(TextView path) : path_(Split(path, u"/")) {}

  static std::vector<XmlGroup> InFile(const Text& file, TextView path) {
    XmlGroups groups(path);
    const auto error = ReadXmlFile(file, groups);
    EXPECT_FALSE(error) << ToUtf8(file + u": " + error->Reason);
    return std::move(groups.groups_);
  }
  static std::vector<XmlGroup> InText(TextView xml, TextView path) {
    XmlGroups groups(path);
    const auto error = ReadXmlText(xml, groups);
    EXPECT_FALSE(error) << ToUtf8(error->Reason);
    return std::move(groups.groups_);
  }

  void OnDocument() override {
    open_.clear();
    groups_.clear();
  }
  bool OnStart(TextView name, const XmlAttributes& attributes) override {
    const bool is_leaf = open_ == path_;
    if (is_leaf) groups_.back().push_back({Text(name), attributes, {}});
    open_.emplace_back(name);
    if (open_ == path_) groups_.emplace_back();
    return is_leaf;
  }
  void OnEnd(TextView content) override {
    open_.pop_back();
    if (open_ == path_) groups_.back().back().content = content;
  }

 private:
  std::vector<Text> path_;
  std::vector<Text> open_;
  std::vector<XmlGroup> groups_;
};

}  // namespace kestrune::testing
