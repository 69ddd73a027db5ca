#include "standins/doors-database/DoorsApplication.h"

namespace kestrune::standins {

const DoorsApplication::Members& DoorsApplication::Table() {
  static const Members table = {
      {u"Result",
       {.get = [](DoorsApplication& self) { return Variant(self.doors_->result_); },
        .put = [](DoorsApplication& self, const Variant& value) { self.doors_->result_ = value.ToText(); }}},
      {u"RunStr",
       {.call =
            [](DoorsApplication& self, const Args& args) {
              self.doors_->RunStr(args[0].ToText());
              return Variant();
            },
        .arg_count = 1}},
  };
  return table;
}

void DoorsApplication::BeforeInvoke(Access, TextView member) {
  if (!doors_ || doors_->state_ != DoorsPhase::kReady)
    Refuse(error::kNotConnected, member, u"DOORS is not running");
}

}  // namespace kestrune::standins
