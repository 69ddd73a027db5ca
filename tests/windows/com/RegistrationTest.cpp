#include <Kestrune_h.h>
#include <Kestrune_i.c>
#include <gtest/gtest.h>

#include "platform/com/ComText.h"
#include "tests/windows/com/DllUnderTest.h"
#include "tests/windows/com/RegistryTree.h"

namespace kestrune::testing {
namespace {

constexpr const wchar_t* kProgIdKey = L"Software\\Classes\\Kestrune.OrimDoors";
constexpr const wchar_t* kClassKey = L"Software\\Classes\\CLSID\\{BA85A3AB-7716-4C90-B8D4-994A5DB694E3}";
constexpr const wchar_t* kLibraryKey = L"Software\\Classes\\TypeLib\\{86DA3E7B-2DD0-4BE2-BBAC-B1A73B6A04CA}";
constexpr const wchar_t* kInterfaceKey =
    L"Software\\Classes\\Interface\\{A6CA57E3-F049-488E-8BBC-7CD2EF92E212}";
constexpr bool kIs64Bit = sizeof(void*) == 8;
const std::string kKind = kIs64Bit ? "win64" : "win32";
const std::string kOtherKind = kIs64Bit ? "win32" : "win64";

using Lines = std::vector<std::string>;
const Lines kNoKey = {"no such key"};

struct AudienceCase {
  const wchar_t* name;
  HKEY root;
};
const AudienceCase kAudiences[] = {{L"user", HKEY_CURRENT_USER}, {L"machine", HKEY_LOCAL_MACHINE}};

class RegistrationTest : public ::testing::Test {
 protected:
  RegistrationTest() { Clear(); }
  ~RegistrationTest() override { Clear(); }

  void ExpectRegistered(HKEY root) {
    const std::string file = ToUtf8(DllPath());
    const std::pair<const wchar_t*, Lines> trees[] = {
        {kProgIdKey, {" = Kestrune Link", "\\CLSID = {BA85A3AB-7716-4C90-B8D4-994A5DB694E3}"}},
        {kClassKey,
         {" = Kestrune Link", "\\InprocServer32 = " + file, "\\InprocServer32 ThreadingModel = Apartment",
          "\\ProgID = Kestrune.OrimDoors", "\\TypeLib = {86DA3E7B-2DD0-4BE2-BBAC-B1A73B6A04CA}"}},
        {kLibraryKey, {"\\1.0 = Kestrune Link", "\\1.0\\0\\" + kKind + " = " + file, "\\1.0\\FLAGS = 0"}},
        {kInterfaceKey,
         {" = _OrimDoors", "\\ProxyStubClsid32 = {00020424-0000-0000-C000-000000000046}",
          "\\TypeLib = {86DA3E7B-2DD0-4BE2-BBAC-B1A73B6A04CA}", "\\TypeLib Version = 1.0"}}};
    for (const auto& [key, lines] : trees) EXPECT_EQ(TreeAt(root, key), lines);
  }
  void ExpectNothing(HKEY root) {
    for (const wchar_t* key : {kProgIdKey, kClassKey, kLibraryKey, kInterfaceKey})
      EXPECT_EQ(TreeAt(root, key), kNoKey);
  }

 private:
  static void Clear() {
    Install(FALSE, L"machine");
    Install(FALSE, L"user");
  }
};

TEST_F(RegistrationTest, WithoutAnAudienceTheUserIsMeant) {
  for (const wchar_t* audience : {L"user", L"USER", L"", static_cast<const wchar_t*>(nullptr)}) {
    EXPECT_EQ(Install(TRUE, audience), S_OK);
    ExpectRegistered(HKEY_CURRENT_USER);
    ExpectNothing(HKEY_LOCAL_MACHINE);
    EXPECT_EQ(UnregisterServer(), S_OK);
    ExpectNothing(HKEY_CURRENT_USER);
    EXPECT_EQ(RegisterServer(), S_OK);
    ExpectRegistered(HKEY_CURRENT_USER);
    EXPECT_EQ(Install(FALSE, audience), S_OK);
    ExpectNothing(HKEY_CURRENT_USER);
  }
  for (const BOOL install : {TRUE, FALSE}) EXPECT_EQ(Install(install, L"everybody"), E_INVALIDARG);
  ExpectNothing(HKEY_CURRENT_USER);
}

TEST_F(RegistrationTest, ForTheMachineTheAddInIsFoundByItsProgId) {
  EXPECT_EQ(Install(TRUE, L"machine"), S_OK);
  ExpectRegistered(HKEY_LOCAL_MACHINE);
  ExpectNothing(HKEY_CURRENT_USER);
  CLSID class_id = {};
  EXPECT_EQ(CLSIDFromProgID(L"Kestrune.OrimDoors", &class_id), S_OK);
  EXPECT_EQ(class_id, __uuidof(::OrimDoors));
  ComPtr<IDispatch> add_in;
  EXPECT_EQ(CoCreateInstance(class_id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, add_in.OutVoid()), S_OK);
  ComPtr<ITypeLib> library;
  EXPECT_EQ(LoadRegTypeLib(LIBID_Kestrune, 1, 0, LOCALE_NEUTRAL, library.Out()), S_OK);

  EXPECT_EQ(Install(FALSE, L"machine"), S_OK);
  ExpectNothing(HKEY_LOCAL_MACHINE);
  EXPECT_EQ(CLSIDFromProgID(L"Kestrune.OrimDoors", &class_id), CO_E_CLASSSTRING);
}

TEST_F(RegistrationTest, ThatForTheMachineTakesTheUsersOwnOutOfItsWay) {
  EXPECT_EQ(Install(TRUE, L"user"), S_OK);
  EXPECT_EQ(Install(TRUE, L"machine"), S_OK);
  ExpectRegistered(HKEY_LOCAL_MACHINE);
  ExpectNothing(HKEY_CURRENT_USER);
}

TEST_F(RegistrationTest, RegisteringAgainAndUnregisteringWhatIsNotThereDoNoHarm) {
  for (const AudienceCase& audience : kAudiences) {
    for (const BOOL install : {FALSE, TRUE, TRUE}) EXPECT_EQ(Install(install, audience.name), S_OK);
    RegDeleteTreeW(audience.root, kProgIdKey);
    RegDeleteTreeW(audience.root, kLibraryKey);
    for (const BOOL install : {FALSE, FALSE}) EXPECT_EQ(Install(install, audience.name), S_OK);
    ExpectNothing(audience.root);
  }
}

TEST_F(RegistrationTest, AFailureHalfWayLeavesNothingBehind) {
  for (const AudienceCase& audience : kAudiences) {
    HKEY volatile_key = nullptr;  // takes no lasting keys
    ASSERT_EQ(RegCreateKeyExW(audience.root, kClassKey, 0, nullptr, REG_OPTION_VOLATILE, KEY_WRITE, nullptr,
                              &volatile_key, nullptr),
              ERROR_SUCCESS);
    RegCloseKey(volatile_key);
    EXPECT_EQ(Install(TRUE, audience.name), HRESULT_FROM_WIN32(ERROR_CHILD_MUST_BE_VOLATILE));
    ExpectNothing(audience.root);
  }
}

TEST_F(RegistrationTest, WhatTheAddInOfTheOtherBitnessNeedsStays) {
  const Text other = Text(FromWide(kLibraryKey)) + u"\\1.0\\0\\" + FromUtf8(kOtherKind);
  for (const AudienceCase& audience : kAudiences) {
    EXPECT_EQ(Install(TRUE, audience.name), S_OK);
    const Lines program_id = TreeAt(audience.root, kProgIdKey);
    RegSetKeyValueW(audience.root, Wide(other), L"", REG_SZ, L"X", 2 * sizeof(wchar_t));
    EXPECT_EQ(Install(FALSE, audience.name), S_OK);
    EXPECT_EQ(TreeAt(audience.root, kProgIdKey), program_id);
    EXPECT_EQ(TreeAt(audience.root, kLibraryKey),
              Lines({"\\1.0 = Kestrune Link", "\\1.0\\0\\" + kOtherKind + " = X", "\\1.0\\FLAGS = 0"}));
    EXPECT_EQ(TreeAt(audience.root, kClassKey), kNoKey);
    RegDeleteTreeW(audience.root, Wide(other));
    EXPECT_EQ(Install(FALSE, audience.name), S_OK);
    ExpectNothing(audience.root);
  }
}

}  // namespace
}  // namespace kestrune::testing
