#include "standins/doors-database/perms/PermTable.h"

namespace kestrune::standins {

void PermTable::Add(TextView signature, dxl::Perm perm) {
  library_.Add(signature, [this, perm = std::move(perm)](dxl::Call& call) {
    Count();
    for (std::size_t i = 0; i < call.Count(); ++i)
      if (call.TypeOf(i) == dxl::kString) call.State().budget.SpendOn(call.String(i).size());
    return perm(call);
  });
}

void PermTable::AddLoop(TextView signature, dxl::Loop start) {
  library_.AddLoop(signature, [this, start = std::move(start)](dxl::Call& call) {
    Count();
    return start(call);
  });
}

void PermTable::InterruptAt(int n, std::function<void()> interrupt) {
  countdown_ = n;
  interrupt_ = std::move(interrupt);
}

void PermTable::Count() {
  if (countdown_ > 0 && --countdown_ == 0) interrupt_();
}

void AddDoorsPerms(PermTable& table) {
  for (const auto* type :
       {u"Item", u"Folder", u"Project", u"Module", u"ModName_", u"ModuleVersion", u"View", u"Object",
        u"AttrDef", u"AttrName__", u"Attr__", u"Scroll__", u"OleAutoObj", u"OleAutoArgs"})
    table.AddType(type);
  table.AddAlias(u"ModuleRef__", u"Module");
  table.AddAlias(u"ObjectRef__", u"Object");
  for (const auto* type : {u"Module", u"Object", u"AttrDef"}) table.AddIdentity(type);
  AddItemPerms(table);
  AddModulePerms(table);
  AddViewPerms(table);
  AddObjectPerms(table);
  AddObjectLoops(table);
  AddAttributePerms(table);
  AddValuePerms(table);
  AddOlePerms(table);
}

}  // namespace kestrune::standins
