// The host's automation root, handed to every callback of the add-in and never kept beyond it.
#pragma once

#include "orim/Package.h"

namespace kestrune::orim {

class Repository : public Handle {
 public:
  using Handle::Handle;
  static constexpr std::int32_t kElementType = 4;  // of ContextItemType

  std::int32_t LibraryBuild() const { return GetInt(member::kLibraryBuild); }

  /// Both throw when the model has no such package.
  Package PackageByID(std::int32_t id) const { return CallForPackage(member::kPackageById, {id}); }
  Package PackageByGuid(const Text& guid) const { return CallForPackage(member::kPackageByGuid, {guid}); }
  /// The package selected in the project browser, or nothing.
  Package SelectedPackage() const { return CallForPackage(member::kSelectedPackage, {}); }
  /// Throws when the model has no such element.
  Element ElementByID(std::int32_t id) const {
    return Element(object().Call(member::kElementById, {id}).ToObject());
  }

  /// Runs a query on the model; the answer is XML, a "Row" per row below "ORIMDATA/Dataset_0/Data".
  Text Query(const Text& sql) const { return object().Call(member::kQuery, {sql}).ToText(); }

  void CreateOutputTab(const Text& tab) const { object().Call(member::kCreateOutputTab, {tab}); }
  void WriteOutput(const Text& tab, const Text& line) const {
    object().Call(member::kWriteOutput, {tab, line, kNoItem});
  }
  void RefreshModelView(std::int32_t package_id) const {
    object().Call(member::kRefreshModelView, {package_id});
  }

  /// What the user is at: its type code, and the object itself or nothing.
  std::int32_t ContextItemType() const { return object().Call(member::kContextItemType).ToInt(); }
  Element ContextElement() const { return Element(object().Call(member::kContextItem).ToObject()); }

  /// `text` of the named format, such as "RTF", in the host's own notes format.
  Text NotesFromFormat(const Text& format, const Text& text) const {
    return object().Call(member::kNotesFromFormat, {format, text}).ToText();
  }

 private:
  static constexpr std::int32_t kNoItem = -1;  // an output line that leads to no item

  Package CallForPackage(TextView name, Args args) const {
    return Package(object().Call(name, std::move(args)).ToObject());
  }
};

}  // namespace kestrune::orim
