#include "addin/LocateInDoors.h"

#include "common/LinkFile.h"
#include "common/Resources.h"
#include "options/Options.h"
#include "orim/ElementFields.h"

namespace kestrune {

namespace {

constexpr TextView kKeyAttribute = u"Absolute Number";

/// What the element holds where the rule puts the attribute's value; "" when the rule puts it nowhere.
Text ValueAt(const MappingRule& rule, const orim::Element& element) {
  if (rule.Target != target::kTaggedValue) {
    return orim::FindElementField(rule.Target) ? element.Field(rule.Target) : Text();
  }
  const orim::TaggedValue tagged_value = element.TaggedValues().Find(rule.Attribute);
  return tagged_value ? tagged_value.Value() : Text();
}

}  // namespace

void LocateInDoors(Doors& doors, const orim::Repository& repository) {
  if (!doors.EnsureDoors()) return;
  const orim::Package package = repository.SelectedPackage();
  if (!package || repository.ContextItemType() != orim::Repository::kElementType) return;
  Options options(doors);
  if (!options.Load(package)) return;
  const std::size_t slot = options.FindAttribute(kKeyAttribute);
  if (slot == 0) return;
  const Text identifier = ValueAt(options.Rules[slot], repository.ContextElement());
  const Text module_path = GetLinkModulePath(doors.platform(), package.PackageGuid());
  if (module_path.empty() || identifier.empty() || identifier.find(u'~') != Text::npos) return;
  doors.RunScript(dxl_script::kLocateObject, JoinFields({module_path, identifier, options.RestrictToView}));
}

}  // namespace kestrune
