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
constexpr const wchar_t* kKind = sizeof(void*) == 8 ? L"win64" : L"win32";
constexpr const wchar_t* kOtherKind = sizeof(void*) == 8 ? L"win32" : L"win64";
constexpr const wchar_t* kKeys[] = {kProgIdKey, kClassKey, kLibraryKey, kInterfaceKey};

std::vector<std::string> Lines(std::vector<std::string> lines) {
  return lines;
}

class RegistrationTest : public ::testing::Test {
 protected:
  RegistrationTest() { Clear(); }
  ~RegistrationTest() override { Clear(); }

  void ExpectRegistered(HKEY root) {
    EXPECT_EQ(TreeAt(root, kProgIdKey),
              Lines({" = Kestrune Link", "\\CLSID = {BA85A3AB-7716-4C90-B8D4-994A5DB694E3}"}));
    EXPECT_EQ(TreeAt(root, kClassKey),
              Lines({" = Kestrune Link", "\\InprocServer32 = " + ToUtf8(DllPath()),
                     "\\InprocServer32 ThreadingModel = Apartment", "\\ProgID = Kestrune.OrimDoors",
                     "\\TypeLib = {86DA3E7B-2DD0-4BE2-BBAC-B1A73B6A04CA}"}));
    EXPECT_EQ(
        TreeAt(root, kLibraryKey),
        Lines({"\\1.0 = Kestrune Link", "\\1.0\\0\\" + ToUtf8(FromWide(kKind)) + " = " + ToUtf8(DllPath()),
               "\\1.0\\FLAGS = 0"}));
    EXPECT_EQ(TreeAt(root, kInterfaceKey),
              Lines({" = _OrimDoors", "\\ProxyStubClsid32 = {00020424-0000-0000-C000-000000000046}",
                     "\\TypeLib = {86DA3E7B-2DD0-4BE2-BBAC-B1A73B6A04CA}", "\\TypeLib Version = 1.0"}));
  }
  void ExpectNothing(HKEY root) {
    for (const wchar_t* key : kKeys) EXPECT_EQ(TreeAt(root, key), Lines({"no such key"}));
  }

 private:
  static void Clear() {
    Install(FALSE, L"machine");
    Install(FALSE, L"user");
  }
};

TEST_F(RegistrationTest, WithoutAnAudienceTheUserIsMeant) {
  EXPECT_EQ(RegisterServer(), S_OK);
  ExpectRegistered(HKEY_CURRENT_USER);
  ExpectNothing(HKEY_LOCAL_MACHINE);
  EXPECT_EQ(UnregisterServer(), S_OK);
  ExpectNothing(HKEY_CURRENT_USER);
  for (const wchar_t* audience : {L"user", L"USER", L"", static_cast<const wchar_t*>(nullptr)}) {
    EXPECT_EQ(Install(TRUE, audience), S_OK);
    ExpectRegistered(HKEY_CURRENT_USER);
    EXPECT_EQ(Install(FALSE, audience), S_OK);
    ExpectNothing(HKEY_CURRENT_USER);
  }
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
  for (const wchar_t* audience : {L"user", L"machine"}) {
    EXPECT_EQ(Install(FALSE, audience), S_OK);
    EXPECT_EQ(Install(TRUE, audience), S_OK);
    EXPECT_EQ(Install(TRUE, audience), S_OK);
    EXPECT_EQ(Install(FALSE, audience), S_OK);
    EXPECT_EQ(Install(FALSE, audience), S_OK);
  }
  EXPECT_EQ(Install(TRUE, L"machine"), S_OK);
  RegDeleteTreeW(HKEY_LOCAL_MACHINE, kProgIdKey);
  RegDeleteTreeW(HKEY_LOCAL_MACHINE, kLibraryKey);
  EXPECT_EQ(Install(FALSE, L"machine"), S_OK);
  ExpectNothing(HKEY_LOCAL_MACHINE);
}

TEST_F(RegistrationTest, AFailureHalfWayLeavesNothingBehind) {
  for (const HKEY root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
    HKEY volatile_key = nullptr;  // takes no lasting keys
    ASSERT_EQ(RegCreateKeyExW(root, kClassKey, 0, nullptr, REG_OPTION_VOLATILE, KEY_WRITE, nullptr,
                              &volatile_key, nullptr),
              ERROR_SUCCESS);
    RegCloseKey(volatile_key);
    const bool is_machine = root == HKEY_LOCAL_MACHINE;
    EXPECT_EQ(Install(TRUE, is_machine ? L"machine" : L"user"),
              HRESULT_FROM_WIN32(ERROR_CHILD_MUST_BE_VOLATILE));
    ExpectNothing(root);
  }
}

TEST_F(RegistrationTest, WhatTheAddInOfTheOtherBitnessNeedsStays) {
  const std::wstring kinds = kLibraryKey + std::wstring(L"\\1.0\\0\\");
  for (const HKEY root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
    const wchar_t* audience = root == HKEY_LOCAL_MACHINE ? L"machine" : L"user";
    EXPECT_EQ(Install(TRUE, audience), S_OK);
    const auto program_id = TreeAt(root, kProgIdKey);
    RegSetKeyValueW(root, (kinds + kOtherKind).c_str(), L"", REG_SZ, L"X", 2 * sizeof(wchar_t));
    EXPECT_EQ(Install(FALSE, audience), S_OK);
    EXPECT_EQ(TreeAt(root, kProgIdKey), program_id);
    EXPECT_EQ(TreeAt(root, kLibraryKey),
              Lines({"\\1.0 = Kestrune Link", "\\1.0\\0\\" + ToUtf8(FromWide(kOtherKind)) + " = X",
                     "\\1.0\\FLAGS = 0"}));
    EXPECT_EQ(TreeAt(root, kClassKey), Lines({"no such key"}));
    RegDeleteTreeW(root, (kinds + kOtherKind).c_str());
    EXPECT_EQ(Install(FALSE, audience), S_OK);
    ExpectNothing(root);
  }
}

TEST_F(RegistrationTest, AnUnknownAudienceIsRefused) {
  EXPECT_EQ(Install(TRUE, L"everybody"), E_INVALIDARG);
  EXPECT_EQ(Install(FALSE, L"everybody"), E_INVALIDARG);
  ExpectNothing(HKEY_CURRENT_USER);
  ExpectNothing(HKEY_LOCAL_MACHINE);
}

}  // namespace
}  // namespace kestrune::testing
