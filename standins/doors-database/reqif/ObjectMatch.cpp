#include "standins/doors-database/reqif/ObjectMatch.h"

#include <algorithm>
#include <limits>
#include <unordered_set>

namespace kestrune::standins {

namespace {

struct Known {
  MatchedObject object;
  bool is_taken = false;
};

class Matcher {
 public:
  Matcher(Database& database, ItemId module) {
    Statement row = database.Prepare(
        "SELECT id, absolute_number, deleted, origin FROM object WHERE module = ? ORDER BY id", module);
    while (row.Step()) {
      const std::size_t place = known_.size();
      known_.push_back({{row.Int64(0), row.Int(1), row.Int(2) != 0}, false});
      by_number_[row.Int(1)] = place;
      if (!row.IsNull(3)) by_origin_[row.GetText(3)] = place;
      highest_ = std::max(highest_, row.Int(1));
    }
  }

  ObjectMatch Match(const std::vector<ExchangeObject>& objects) {
    ObjectMatch match;
    match.objects.resize(objects.size());
    for (std::size_t i = 0; i < objects.size(); ++i) Take(by_origin_, objects[i].origin, match.objects[i]);
    for (std::size_t i = 0; i < objects.size(); ++i)
      if (!match.objects[i].id) Take(by_number_, objects[i].absolute_number, match.objects[i]);
    NumberNewObjects(objects, match);
    for (const Known& known : known_)
      if (!known.is_taken && !known.object.was_deleted) match.not_in_file.push_back(known.object.id);
    return match;
  }

 private:
  template <typename Key>
  void Take(const std::unordered_map<Key, std::size_t>& index, const Key& key, MatchedObject& object) {
    const auto found = index.find(key);
    if (found == index.end() || known_[found->second].is_taken) return;
    known_[found->second].is_taken = true;
    object = known_[found->second].object;
  }

  void NumberNewObjects(const std::vector<ExchangeObject>& objects, ObjectMatch& match) {
    std::unordered_set<int> used;
    for (const Known& known : known_) used.insert(known.object.absolute_number);
    for (std::size_t i = 0; i < objects.size(); ++i) {
      const int given = objects[i].absolute_number;
      if (match.objects[i].id || given <= 0 || !used.insert(given).second) continue;
      match.objects[i].absolute_number = given;
      highest_ = std::max(highest_, given);
    }
    for (MatchedObject& object : match.objects)
      if (!object.absolute_number) object.absolute_number = NextNumber(used);
  }

  /// The one after the highest, or the lowest that is free once there is none.
  int NextNumber(const std::unordered_set<int>& used) {
    if (highest_ < std::numeric_limits<int>::max()) return ++highest_;
    while (used.contains(++lowest_)) {
    }
    return lowest_;
  }

  std::vector<Known> known_;
  std::unordered_map<Text, std::size_t> by_origin_;
  std::unordered_map<int, std::size_t> by_number_;
  int highest_ = 0;
  int lowest_ = 0;  // numbers up to this one are taken, once the highest is
};

}  // namespace

ObjectMatch MatchObjects(Database& database, ItemId module, const std::vector<ExchangeObject>& objects) {
  return Matcher(database, module).Match(objects);
}

}  // namespace kestrune::standins
