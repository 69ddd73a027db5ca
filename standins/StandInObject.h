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
///           {u"Name", {.Get = [](Tab& tab) { return Variant(tab.name_); }}},
///           {u"Write", {.Call = [](Tab& tab, const Args& args) { ... }, .ArgCount = 1}},
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
    std::function<Variant(Self&)> Get;
    std::function<void(Self&, const Variant&)> Put;
    std::function<Variant(Self&, const Args&)> Call;
    std::size_t ArgCount = 0;  // of Call
  };
  using Members = std::map<Text, Member, std::less<>>;

  Variant Invoke(Access access, TextView name, Args args) final {
    BeforeInvoke(access, name);
    auto& self = static_cast<Self&>(*this);
    const auto& table = Self::Table();
    const auto found = table.find(name);
    if (found == table.end()) Refuse(error::kUnknownMember, name, u"there is no such member");
    const Member& member = found->second;
    if (access == Access::kGet && member.Get) {
      CheckCount(name, args.size(), 0);
      return member.Get(self);
    }
    if (access == Access::kPut && member.Put) {
      CheckCount(name, args.size(), 1);
      member.Put(self, args.front());
      return {};
    }
    if (access == Access::kCall && member.Call) {
      CheckCount(name, args.size(), member.ArgCount);
      return member.Call(self, args);
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
