#include "addin/LocateInDoors.h"

#include "common/LinkFile.h"
#include "common/Resources.h"
#include "documents/OutputTab.h"
#include "options/Options.h"
#include "orim/ElementFields.h"

namespace kestrune {

namespace {

constexpr TextView kKeyAttribute = u"Absolute Number";

struct NothingToLocate {
  Text Why;
};

[[noreturn]] void Miss(int what, std::initializer_list<Text> names = {}) {
  throw NothingToLocate{FormatResText(what, names)};
}

/// What the element holds where the rule puts the attribute's value.
Text ValueAt(const MappingRule& rule, const orim::Element& element) {
  if (rule.Target != target::kTaggedValue) {
    if (!orim::FindElementField(rule.Target)) Miss(text::kLocateNoField, {RuleText(rule)});
    return element.Field(rule.Target);
  }
  const orim::TaggedValue tagged_value = element.TaggedValues().Find(rule.Attribute);
  return tagged_value ? tagged_value.Value() : Text();
}

/// The absolute number of the object that the element was imported from.
Text NumberOf(const orim::Element& element, const Options& options) {
  const std::size_t slot = options.FindAttribute(kKeyAttribute);
  if (slot == 0 || options.GetOrimTarget(slot).empty()) Miss(text::kLocateNotMapped);
  const MappingRule& rule = options.Rules[slot];
  const Text number = ValueAt(rule, element);
  const bool is_number = !number.empty() && number.find(u'~') == Text::npos;
  if (!is_number) Miss(text::kLocateNoNumber, {element.Name(), RuleText(rule)});
  return number;
}

void Locate(Doors& doors, const orim::Repository& repository) {
  if (!doors.EnsureDoors()) Miss(text::kLocateNoDoors);
  const orim::Package package = repository.SelectedPackage();
  if (!package) Miss(text::kLocateNoPackage);
  if (repository.ContextItemType() != orim::Repository::kElementType) Miss(text::kLocateNoElement);
  Options options(doors);
  if (!options.Load(package)) Miss(text::kLocateNoOptions, {package.Name()});
  const Text number = NumberOf(repository.ContextElement(), options);
  const Text module_path = GetLinkModulePath(doors.platform(), package.PackageGuid());
  if (module_path.empty()) Miss(text::kLocateNoLink, {package.Name()});
  const Text parameters = JoinFields({module_path, number, options.RestrictToView});
  const Text answer = doors.RunScript(dxl_script::kLocateObject, parameters);
  if (!answer.empty()) throw NothingToLocate{ScriptError(answer).value_or(answer)};
}

}  // namespace

void LocateInDoors(Doors& doors, const orim::Repository& repository) {
  const auto tell = [&repository](const Text& why) {
    OutputTab(repository).Write(FormatResText(text::kLocateFailed, {why}));
  };
  try {
    Locate(doors, repository);
  } catch (const NothingToLocate& nothing) {
    tell(nothing.Why);
  } catch (const AutomationError& failure) {
    if (failure.Number != error::kFieldSeparatorInside) throw;
    tell(failure.Description);
  }
}

}  // namespace kestrune
