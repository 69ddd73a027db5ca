#include "workbench/AddInObject.h"

namespace kestrune::workbench {

namespace {

orim::Repository RepositoryIn(const Args& args) {
  return orim::Repository(args[0].ToObject());
}

}  // namespace

const AddInObject::Members& AddInObject::Table() {
  using Self = AddInObject;
  static const Members table = {
      {u"Orim_Connect",
       {.call = [](Self& self, const Args& args) { return self.add_in_.Orim_Connect(RepositoryIn(args)); },
        .arg_count = 1}},
      {u"Orim_Disconnect",
       {.call =
            [](Self& self, const Args&) {
              self.add_in_.Orim_Disconnect();
              return Variant();
            }}},
      {u"Orim_OnPostInitialized",
       {.call = [](Self& self,
                   const Args& args) { return self.add_in_.Orim_OnPostInitialized(RepositoryIn(args)); },
        .arg_count = 1}},
      {u"Orim_GetMenuItems",
       {.call =
            [](Self& self, const Args& args) {
              return self.add_in_.Orim_GetMenuItems(RepositoryIn(args), args[1].ToText(), args[2].ToText());
            },
        .arg_count = 3}},
      {u"Orim_MenuClick",
       {.call =
            [](Self& self, const Args& args) {
              self.add_in_.Orim_MenuClick(RepositoryIn(args), args[1].ToText(), args[2].ToText());
              return Variant();
            },
        .arg_count = 3}},
      {u"Plexa_GetConnectedPackages",
       {.call = [](Self& self,
                   const Args& args) { return self.add_in_.Plexa_GetConnectedPackages(RepositoryIn(args)); },
        .arg_count = 1}},
      {u"Plexa_Connect",
       {.call = [](Self& self, const Args& args) -> Variant {
          return self.add_in_.Plexa_Connect(RepositoryIn(args), args[1].ToInt(), args[2].ToText());
        },
        .arg_count = 3}},
      {u"Plexa_Disconnect",
       {.call = [](Self& self, const Args& args) -> Variant {
          return self.add_in_.Plexa_Disconnect(RepositoryIn(args), args[1].ToText());
        },
        .arg_count = 2}},
  };
  return table;
}

}  // namespace kestrune::workbench
