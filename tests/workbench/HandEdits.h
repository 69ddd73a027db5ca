// A user of the host who edits the linked package at random, as people do who know nothing of imports, and mends what an
// import complains of in the way that it names.
#pragma once

#include <set>

#include "tests/workbench/PackageState.h"
#include "tests/workbench/RandomEdits.h"

namespace kestrune::testing {

class HandEdits {
 public:
  HandEdits(EndToEnd& setup, RandomEdits& random)
      : setup_(setup), random_(random), elsewhere_(setup.model.AddPackage(0, u"Elsewhere")) {}

  void Edit(int count) {
    for (; count > 0; --count) EditOnce();
  }

  /// The identifiers that are in the package or its trash.
  std::set<Text> Present() const {
    std::set<Text> identifiers;
    for (const Item& item : Elements()) identifiers.insert(*IdentifierOf(item));
    return identifiers;
  }
  /// Those whose values were edited.
  const std::set<Text>& Edited() const { return edited_; }

  /// Does what the message of an import that has ended early asks for.
  void MendAsTold(const Text& message) {
    if (message.find(u"is carried by two elements") != Text::npos) return DeleteDoubledElement();
    if (message.find(u"lies below") != Text::npos) return PutStraysAtTheTop();
    FAIL() << "nothing that can be mended: " << ToUtf8(message);
  }

  void DeleteDoubledValues() {
    for (const auto& item : Elements()) {
      const auto tags = setup_.repository.ElementByID(item.id).TaggedValues();
      std::set<Text> seen;
      // The last one is the one that imports keep.
      for (std::int32_t i = tags.Count() - 1; i >= 0; --i)
        if (!seen.insert(tags.GetAt(i).Name()).second) tags.DeleteAt(i, true);
    }
  }

 private:
  using Item = standins::TreeItem;

  static const Text* IdentifierOf(const Item& item) {
    for (const auto& tag : item.tagged_values)
      if (tag.name == u"Object Identifier") return &tag.value;
    return nullptr;
  }
  std::vector<Item> Elements() const {
    auto items = setup_.model.Tree(setup_.package_id);
    std::erase_if(items, [](const Item& item) { return item.type == u"Package" || !IdentifierOf(item); });
    return items;
  }
  std::optional<Item> AnyElement(bool is_living_only) {
    auto items = Elements();
    if (is_living_only)
      std::erase_if(items, [&](const Item& item) { return item.package_id != setup_.package_id; });
    if (items.empty()) return std::nullopt;
    return items[static_cast<std::size_t>(random_.Roll(static_cast<int>(items.size())))];
  }

  void EditOnce() {
    const int what = random_.Roll(8);
    const auto item = AnyElement(what >= 4);
    if (!item) return;
    const orim::Element element = setup_.repository.ElementByID(item->id);
    switch (what) {
      case 0:
        return Delete(*item);
      case 1:
        return Move(element, elsewhere_);
      case 2:
        return Move(element, setup_.Package().Packages().Find(u"Trash Can").PackageID());
      case 3:
        return Move(element, setup_.package_id);
      case 4:
        return Copy(*item);
      case 5:
        edited_.insert(*IdentifierOf(*item));
        element.TaggedValues().AddNew(u"Rationale", u"by hand").Save();
        return;
      case 6:
        edited_.insert(*IdentifierOf(*item));
        element.SetField(u"Notes", u"by hand");
        element.SetTreePos(random_.Roll(100));
        return element.Save();
      default:
        element.SetParentID(setup_.AddElement(u"drawn by hand").ElementID());
        return element.Save();
    }
  }

  static void Move(const orim::Element& element, std::int32_t package_id) {
    element.SetPackageID(package_id);
    element.Save();
  }

  void Delete(const Item& item) {
    const auto elements = setup_.repository.PackageByID(item.package_id).Elements();
    for (std::int32_t i = 0; i < elements.Count(); ++i)
      if (elements.GetAt(i).ElementID() == item.id) return elements.DeleteAt(i, true);
  }

  /// The copy lacks the fields of the original.
  void Copy(const Item& item) {
    edited_.insert(*IdentifierOf(item));
    const orim::Element copy = setup_.AddElement(item.name);
    for (const auto& tag : item.tagged_values) {
      const auto made = copy.TaggedValues().AddNew(tag.name, tag.value);
      made.SetNotes(tag.notes);
      made.Save();
    }
  }

  void DeleteDoubledElement() {
    std::map<Text, Item> seen;
    for (const Item& item : Elements()) {
      const auto [first, is_new] = seen.emplace(*IdentifierOf(item), item);
      if (is_new) continue;
      Delete(item.id > first->second.id ? item : first->second);
      return;
    }
    FAIL() << "there are no two elements with one identifier";
  }

  void PutStraysAtTheTop() {
    std::set<std::int32_t> imported;
    for (const Item& item : Elements()) imported.insert(item.id);
    for (const Item& item : Elements()) {
      if (item.parent_id == 0 || imported.contains(item.parent_id)) continue;
      const orim::Element element = setup_.repository.ElementByID(item.id);
      element.SetParentID(0);
      element.Save();
    }
  }

  EndToEnd& setup_;
  RandomEdits& random_;
  std::int32_t elsewhere_;  // another package
  std::set<Text> edited_;
};

}  // namespace kestrune::testing
