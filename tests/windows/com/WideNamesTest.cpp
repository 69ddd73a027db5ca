// A user and an installation folder whose names the system's 8-bit code page cannot write.
#include <gtest/gtest.h>

#include "platform/Files.h"
#include "platform/com/ComText.h"
#include "platform/windows/Win32Folders.h"
#include "tests/support/TestHost.h"
#include "tests/windows/com/DllUnderTest.h"
#include "tests/windows/com/LateCall.h"

namespace kestrune::testing {
namespace {

constexpr const wchar_t* kFoldersKey =
    L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders";

void SetAppData(const Text& folder) {
  RegSetKeyValueW(HKEY_CURRENT_USER, kFoldersKey, L"AppData", REG_EXPAND_SZ, Wide(folder),
                  static_cast<DWORD>((folder.size() + 1) * sizeof(wchar_t)));
}

class WideNamesTest : public ::testing::Test {
 protected:
  WideNamesTest() : app_data_(*Win32Folders().RoamingAppData()), temp_(Win32Folders().Temp()) {
    std::filesystem::create_directories(ToPath(User()));
    SetAppData(User());
    SetEnvironmentVariableW(L"TMP", Wide(User()));
  }
  ~WideNamesTest() override {
    SetAppData(app_data_);
    SetEnvironmentVariableW(L"TMP", Wide(temp_));
  }
  Text User() const { return temp_ + u"Иван Łukasz"; }

 private:
  Text app_data_, temp_;
};

TEST_F(WideNamesTest, TheUsersFoldersAreNamedWhole) {
  EXPECT_EQ(Win32Folders().RoamingAppData(), User());
  EXPECT_EQ(Win32Folders().Temp(), User() + u"\\");
}

TEST_F(WideNamesTest, ThatUsersLinksAreFoundByAnAddInInSuchAFolder) {
  const Text file = User() + u"\\Kestrune.dll";
  std::filesystem::copy_file(ToPath(DllPath()), ToPath(file),
                             std::filesystem::copy_options::overwrite_existing);
  const HMODULE copy = LoadLibraryW(Wide(file));
  ASSERT_TRUE(copy);
  {
    const auto add_in = NewAddIn(copy);
    const TestHost host;
    const Object repository = host.model.Repository();
    const auto ask = [&](const wchar_t* callback, const Args& args) {
      return CallLate(*add_in.Get(), callback, args).value;
    };
    EXPECT_EQ(ask(L"Plexa_GetProperty", {repository, u"{A}", u"IconID"}), "BSTR " + ToUtf8(file) + "#101");
    EXPECT_EQ(ask(L"Plexa_GetConnectedPackages", {repository}), "EMPTY");
    WriteFile(User() + u"\\Brannock Works\\PlexaDOORS\\{A}.xml", "");
    EXPECT_EQ(ask(L"Plexa_GetConnectedPackages", {repository}), "BSTR[] {A}");
  }
  FreeLibrary(copy);
  std::filesystem::remove_all(ToPath(User()));
}

}  // namespace
}  // namespace kestrune::testing
