// The names under which the host's automation model is reached, and nothing else: whoever has the host's type
// library at hand checks this one file.
#pragma once

#include "platform/Text.h"

namespace kestrune::orim::member {

// Several objects
inline constexpr TextView kName = u"Name";
inline constexpr TextView kNotes = u"Notes";
inline constexpr TextView kSave = u"Save";
inline constexpr TextView kElements = u"Elements";
inline constexpr TextView kPackageId = u"PackageID";

// Repository
inline constexpr TextView kLibraryBuild = u"LibraryBuild";
inline constexpr TextView kPackageById = u"PackageByID";
inline constexpr TextView kPackageByGuid = u"PackageByGuid";
inline constexpr TextView kSelectedPackage = u"SelectedPackage";
inline constexpr TextView kElementById = u"ElementByID";
inline constexpr TextView kQuery = u"Query";
inline constexpr TextView kCreateOutputTab = u"CreateOutputTab";
inline constexpr TextView kWriteOutput = u"WriteOutput";
inline constexpr TextView kRefreshModelView = u"RefreshModelView";
inline constexpr TextView kContextItemType = u"ContextItemType";
inline constexpr TextView kContextItem = u"ContextItem";
inline constexpr TextView kNotesFromFormat = u"NotesFromFormat";

// Package
inline constexpr TextView kPackageGuid = u"PackageGuid";
inline constexpr TextView kElement = u"Element";
inline constexpr TextView kPackages = u"Packages";
inline constexpr TextView kFlags = u"Flags";

// Element; its text fields stand in ElementFields.h
inline constexpr TextView kElementId = u"ElementID";
inline constexpr TextView kLocked = u"Locked";
inline constexpr TextView kTaggedValues = u"TaggedValues";
inline constexpr TextView kParentId = u"ParentID";
inline constexpr TextView kTreePos = u"TreePos";

// Tagged value
inline constexpr TextView kValue = u"Value";

// Collections
inline constexpr TextView kCount = u"Count";
inline constexpr TextView kGetAt = u"GetAt";
inline constexpr TextView kGetByName = u"GetByName";
inline constexpr TextView kAddNew = u"AddNew";
inline constexpr TextView kDeleteAt = u"DeleteAt";
inline constexpr TextView kRefresh = u"Refresh";

}  // namespace kestrune::orim::member
