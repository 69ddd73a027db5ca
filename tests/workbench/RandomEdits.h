// A user of DOORS who edits a module at random, in DOORS' database and in the reference alike.
#pragma once

#include <random>
#include <set>

#include "tests/workbench/DoorsModule.h"
#include "tests/workbench/ReferenceModule.h"

namespace kestrune::testing {

class RandomEdits {
 public:
  RandomEdits(unsigned seed, DoorsModule& doors, ReferenceModule& reference)
      : random_(seed), doors_(doors), reference_(reference) {
    for (const auto* attribute : kOwnAttributes) doors_.AddAttribute(attribute);
    reference_.rich_texts = {
        {u"{\\rtf1\\ansi plain\\par}", u"plain"},
        {u"{\\rtf1\\ansi\\b Bold\\b0  & <thin>\\par next\\par}", u"<b>Bold</b> &amp; &lt;thin&gt;\r\nnext"},
        {u"{\\rtf1\\ansi Gr\\'fc\\'dfe \\u8364?}", u"Gr\u00FC\u00DFe \u20AC"},
    };
  }

  /// Less than `limit`, which is at least 1. The same on every
  /// platform, which the library's distributions are not.
  int Roll(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }

  void EditOnce() {
    switch (Roll(10)) {
      case 0:
      case 1:
        return static_cast<void>(Add(AnyPlace()));
      case 2:
        return AddTable(AnyPlace());
      default:
        return ChangeOnce();
    }
  }

  /// Adds nothing.
  void ChangeOnce() {
    switch (Roll(7)) {
      case 0:
        return SetDeleted(true);
      case 1:
        return SetDeleted(false);
      case 2:
        return Move();
      case 3:
        return Reorder();
      case 4:
        return ToggleReadable();
      default:
        return ChangeValue();
    }
  }

  /// An object at random place below `parent`, with some values.
  int Add(int parent, const Text& part = u"none") {
    const int number = ++last_number_;
    auto& siblings = reference_.children[parent];
    siblings.insert(siblings.begin() + Roll(static_cast<int>(siblings.size()) + 1), number);
    reference_.objects[number] = {.parent = parent, .part = part};
    doors_.AddObject(number, parent, 0, part);
    PlaceSiblings(parent);
    for (int i = Roll(6); i > 0; --i) ChangeValueOf(number);
    return number;
  }

 private:
  static constexpr const char16_t* kOwnAttributes[] = {u"Status", u"Owner", u"Remark", u"Extra",
                                                       u"Rationale"};

  void AddTable(int parent) {
    const int table = Add(parent, u"table");
    for (int rows = 1 + Roll(2); rows > 0; --rows) {
      const int row = Add(table, u"row");
      for (int cells = 1 + Roll(3); cells > 0; --cells) Add(row, u"cell");
    }
  }

  /// An object of one of these kinds, 0 when there is none.
  int AnyOf(const std::set<Text>& parts) {
    std::vector<int> numbers;
    for (const auto& [number, object] : reference_.objects)
      if (parts.contains(object.part)) numbers.push_back(number);
    return numbers.empty() ? 0 : OneOf(numbers);
  }
  int AnyObject() { return AnyOf({u"none"}); }
  int AnyPlace() { return Roll(3) == 0 ? 0 : AnyObject(); }
  /// An object or a table, which goes as a whole.
  int AnyBranch() { return AnyOf({u"none", u"table"}); }

  void PlaceSiblings(int parent) {
    int position = 0;
    for (const int number : reference_.children[parent]) doors_.Place(number, parent, ++position);
  }

  void SetDeleted(bool deleted) {
    const int top = AnyBranch();
    if (top == 0) return;
    for (const int number : reference_.Branch(top)) {
      reference_.objects[number].deleted = deleted;
      doors_.SetDeleted(number, deleted);
    }
  }

  void ToggleReadable() {
    const int number = AnyObject();
    if (number == 0) return;
    bool& readable = reference_.objects[number].readable;
    readable = !readable;
    doors_.SetReadable(number, readable);
  }

  void Move() {
    const int number = AnyBranch();
    const int target = AnyPlace();
    if (number == 0) return;
    const auto branch = reference_.Branch(number);
    if (std::find(branch.begin(), branch.end(), target) != branch.end()) return;
    const int source = std::exchange(reference_.objects[number].parent, target);
    std::erase(reference_.children[source], number);
    auto& siblings = reference_.children[target];
    siblings.insert(siblings.begin() + Roll(static_cast<int>(siblings.size()) + 1), number);
    PlaceSiblings(target);
  }

  void Reorder() {
    const int parent = AnyPlace();
    auto& siblings = reference_.children[parent];
    for (std::size_t i = siblings.size(); i > 1; --i)
      std::swap(siblings[i - 1], siblings[static_cast<std::size_t>(Roll(static_cast<int>(i)))]);
    PlaceSiblings(parent);
  }

  void ChangeValue() {
    if (reference_.objects.empty()) return;
    auto object = reference_.objects.begin();
    std::advance(object, Roll(static_cast<int>(reference_.objects.size())));
    ChangeValueOf(object->first);
  }

  void ChangeValueOf(int number) {
    switch (Roll(6)) {
      case 0:
        return Set(number, u"Object Heading",
                   OneOf<Text>({u"", u"Scope", u"Rest & <Risk>", Text(240, u'h')}));
      case 1:
        return Set(number, u"Object Text", LongerText(true));
      case 2:
        return Set(number, u"Status", OneOf<Text>({u"", u"Open", u"Closed", u"Open "}));
      case 3:
        return Set(number, u"Extra", OneOf<Text>({u"", u"extra", u"x \"quoted\" 'too'"}));
      case 4:
        return Set(number, u"Remark", LongerText(false));
      default:
        return Set(number, Roll(2) ? u"Rationale" : u"Owner", LongerText(true));
    }
  }

  Text LongerText(bool rich) {
    static const Text kFits(255, u'y'), kTooLong(256, u'y');
    static const std::vector<Text> kPlain = {u"",
                                             u"short",
                                             u"x",
                                             u"<memo>",
                                             u"a <b> & c \"d\" 'e' ]]> &amp;",
                                             u"two\nlines",
                                             u"two\r\nlines\n",
                                             u"\U0001D11E \U0001F600 \u00E4",
                                             u"page\fbreak",
                                             u"  blanks around  ",
                                             u" ",
                                             u"\ttab\t",
                                             u"\n",
                                             kFits,
                                             kTooLong,
                                             u"{\\b no rich text}",
                                             u"12",
                                             u"012"};
    if (rich && Roll(5) == 0) {
      auto pair = reference_.rich_texts.begin();
      std::advance(pair, Roll(static_cast<int>(reference_.rich_texts.size())));
      return pair->first;
    }
    if (Roll(6) == 0) return Text(static_cast<std::size_t>(200 + Roll(400)), u'z') + u"\nend";
    return OneOf(kPlain);
  }

  template <typename Item>
  const Item& OneOf(const std::vector<Item>& items) {
    return items[static_cast<std::size_t>(Roll(static_cast<int>(items.size())))];
  }

  void Set(int number, const Text& attribute, const Text& value) {
    reference_.objects[number].values[attribute] = value;
    doors_.Set(number, attribute, value);
  }

  std::mt19937 random_;
  DoorsModule& doors_;
  ReferenceModule& reference_;
  int last_number_ = 0;
};

}  // namespace kestrune::testing
