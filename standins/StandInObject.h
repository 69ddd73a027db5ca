// What every automation object of the stand-ins shares: a table of members per class, and the refusal of all
// else.
#pragma once

#include <functional>
#include <map>

#include "platform/Automation.h"

namespace kestrune::standins {

/// An automation object whose class lists its members once:
///
///   class Tab : public StandInObject<Tab> {
///     static const Members& Table() {
///       static const Members table = {
///           {u"Name", {.get = [](Tab& tab) { return Variant(tab.name_); }}},
///           {u"Write", {.call = [](Tab& tab, const Args& args) { ... }, .arg_count = 1}},
///       };
///       return table;
///     }
///   };
///
/// A member that the table lacks, an access that the member lacks and a wrong number of arguments are refused
/// with an AutomationError that names the class (Self::kClassName) and the member.
template <typename Self>
class StandInObject : public Dispatch, public std::enable_shared_from_this<Self> {
 public:
  struct Member {
    std::function<Variant(Self&)> get;
    std::function<void(Self&, const Variant&)> put;
    std::function<Variant(Self&, const Args&)> call;
    std::size_t arg_count = 0;  // of Call
  };
  using Members = std::map<Text, Member, std::less<>>;

  Variant Invoke(Access access, TextView name, Args args) final {
    BeforeInvoke(access, name);
    auto& self = static_cast<Self&>(*this);
    const auto& table = Self::Table();
    const auto found = table.find(name);
    if (found == table.end()) Refuse(error::kUnknownMember, name, u"there is no such member");
    const Member& member = found->second;
    if (access == Access::kGet && member.get) {
      CheckCount(name, args.size(), 0);
      return member.get(self);
    }
    if (access == Access::kPut && member.put) {
      CheckCount(name, args.size(), 1);
      member.put(self, args.front());
      return {};
    }
    if (access == Access::kCall && member.call) {
      CheckCount(name, args.size(), member.arg_count);
      return member.call(self, args);
    }
    Refuse(error::kUnknownMember, name, u"the member cannot be used in this way");
  }

  Object AsObject() { return Object(this->shared_from_this()); }

 protected:
  /// Called before every use of a member: the place to count calls and to make one fail.
  virtual void BeforeInvoke(Access, TextView) {}

  [[noreturn]] static void Refuse(std::uint32_t number, TextView member, TextView why) {
    throw AutomationError(number, Self::kClassName,
                          Text(Self::kClassName).append(u".").append(member).append(u": ").append(why));
  }

 private:
  static void CheckCount(TextView member, std::size_t given, std::size_t wanted) {
    if (given != wanted) Refuse(error::kWrongArgumentCount, member, u"wrong number of arguments");
  }
};

}  // namespace kestrune::standins
