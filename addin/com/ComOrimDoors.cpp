#include "addin/com/ComOrimDoors.h"

#include "platform/com/ComText.h"
#include "platform/com/ComVariant.h"
#include "platform/com/Failure.h"
#include "platform/windows/Module.h"

namespace kestrune {

namespace {

/// The description of the interface in the type library that Kestrune.dll carries.
ComPtr<ITypeInfo> DescriptionOf(REFIID iid) {
  ComPtr<ITypeLib> library;
  Require(LoadTypeLibEx(Wide(ThisModulePath()), REGKIND_NONE, library.Out()));
  ComPtr<ITypeInfo> info;
  Require(library->GetTypeInfoOfGuid(iid, info.Out()));
  return info;
}

orim::Repository RepositoryAt(IDispatch** repository) {
  return orim::Repository(repository ? FromDispatch(*repository) : Object());
}

Text TextOf(BSTR text) {
  return Text(ViewOf(text));
}
Text TextAt(BSTR* text) {
  return text ? TextOf(*text) : Text();
}

void PutTo(BSTR* place, const Text& text) {
  *place = Bstr(text).Release();
}
void PutTo(VARIANT* place, const Variant& value) {
  *place = ComVariant(value).Release();
}
void PutTo(long* place, std::int32_t number) {
  *place = number;
}
void PutTo(VARIANT_BOOL* place, bool value) {
  *place = value ? VARIANT_TRUE : VARIANT_FALSE;
}

/// The arguments of a late-bound call, all by value. What script hosts pass, references to variables of any
/// type, fits none of the parameters that are references to a text, a number or an object; values fit them,
/// converted if need be. Nothing is lost, as no callback changes its arguments.
class Values {
 public:
  explicit Values(const DISPPARAMS& params) : params_(params) {
    for (UINT i = 0; i < params.cArgs; ++i) owners_.push_back(Followed(params.rgvarg[i]));
    for (const ComVariant& owner : owners_) values_.push_back(owner.Get());
    params_.rgvarg = values_.data();
  }
  DISPPARAMS* Params() { return &params_; }

 private:
  std::vector<ComVariant> owners_;
  std::vector<VARIANT> values_;
  DISPPARAMS params_;
};

}  // namespace

// The host may let go of the add-in inside of a dialog.
template <typename Work>
HRESULT ComOrimDoors::Held(Work work) {
  const ModuleLock module;
  const ComPtr<ComOrimDoors> object(this);
  return Guarded(std::move(work));
}

template <typename Work>
HRESULT ComOrimDoors::Done(Work work) {
  return Held([&] {
    work();
    return S_OK;
  });
}

template <typename Result, typename Work>
HRESULT ComOrimDoors::Answered(Result* place, Work work) {
  if (!place) return E_POINTER;
  *place = Result();
  return Done([&] { PutTo(place, work()); });
}

HRESULT ComOrimDoors::Orim_Connect(IDispatch** Repository, BSTR* Result) {
  return Answered(Result, [&] { return add_in_.Orim_Connect(RepositoryAt(Repository)); });
}

HRESULT ComOrimDoors::Orim_Disconnect() {
  return Done([&] { add_in_.Orim_Disconnect(); });
}

HRESULT ComOrimDoors::Orim_OnPostInitialized(IDispatch** Repository, VARIANT* Result) {
  return Answered(Result, [&] { return add_in_.Orim_OnPostInitialized(RepositoryAt(Repository)); });
}

HRESULT ComOrimDoors::Orim_GetMenuItems(IDispatch** Repository, BSTR* MenuLocation, BSTR MenuName,
                                        VARIANT* Result) {
  return Answered(Result, [&] {
    return add_in_.Orim_GetMenuItems(RepositoryAt(Repository), TextAt(MenuLocation), TextOf(MenuName));
  });
}

HRESULT ComOrimDoors::Orim_MenuClick(IDispatch** Repository, BSTR MenuName, BSTR ItemName) {
  return Done([&] { add_in_.Orim_MenuClick(RepositoryAt(Repository), TextOf(MenuName), TextOf(ItemName)); });
}

HRESULT ComOrimDoors::Orim_ShowHelp(BSTR MenuName, BSTR ItemName) {
  return Done([&] { add_in_.Orim_ShowHelp(TextOf(MenuName), TextOf(ItemName)); });
}

HRESULT ComOrimDoors::Plexa_View(IDispatch** Repository, BSTR* PackageGuid, BSTR* CodeID, long* Result) {
  return Answered(Result, [&] {
    return add_in_.Plexa_View(RepositoryAt(Repository), TextAt(PackageGuid), TextAt(CodeID));
  });
}

HRESULT ComOrimDoors::Plexa_Connect(IDispatch** Repository, long* PackageID, BSTR* PackageGuid,
                                    long* Result) {
  return Answered(Result, [&] {
    return add_in_.Plexa_Connect(RepositoryAt(Repository), PackageID ? *PackageID : 0, TextAt(PackageGuid));
  });
}

HRESULT ComOrimDoors::Plexa_GetConnectedPackages(IDispatch** Repository, VARIANT* Result) {
  return Answered(Result, [&] { return add_in_.Plexa_GetConnectedPackages(RepositoryAt(Repository)); });
}

HRESULT ComOrimDoors::Plexa_GetProperty(IDispatch** Repository, BSTR* PackageGuid, BSTR* PropertyName,
                                        VARIANT* Result) {
  return Answered(Result, [&] {
    return add_in_.Plexa_GetProperty(RepositoryAt(Repository), TextAt(PackageGuid), TextAt(PropertyName));
  });
}

HRESULT ComOrimDoors::Plexa_Disconnect(IDispatch** Repository, BSTR* PackageGuid, VARIANT_BOOL* Result) {
  return Answered(Result,
                  [&] { return add_in_.Plexa_Disconnect(RepositoryAt(Repository), TextAt(PackageGuid)); });
}

const ComPtr<ITypeInfo>& ComOrimDoors::Description() {
  if (!description_) description_ = DescriptionOf(__uuidof(_OrimDoors));
  return description_;
}

HRESULT ComOrimDoors::GetTypeInfoCount(UINT* count) {
  if (!count) return E_POINTER;
  *count = 1;
  return S_OK;
}

HRESULT ComOrimDoors::GetTypeInfo(UINT index, LCID, ITypeInfo** info) {
  if (!info) return E_POINTER;
  *info = nullptr;
  if (index != 0) return DISP_E_BADINDEX;
  return Done([&] { *info = ComPtr<ITypeInfo>(Description()).Release(); });
}

HRESULT ComOrimDoors::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
  return Held([&] { return Description()->GetIDsOfNames(names, count, ids); });
}

HRESULT ComOrimDoors::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* params, VARIANT* answer,
                             EXCEPINFO* info, UINT* wrong_argument) {
  if (!params) return E_INVALIDARG;
  return Held([&] {
    Values values(*params);
    return Description()->Invoke(static_cast<_OrimDoors*>(this), id, flags, values.Params(), answer, info,
                                 wrong_argument);
  });
}

HRESULT ComOrimDoors::InterfaceSupportsErrorInfo(REFIID iid) {
  return iid == __uuidof(_OrimDoors) ? S_OK : S_FALSE;
}

}  // namespace kestrune
