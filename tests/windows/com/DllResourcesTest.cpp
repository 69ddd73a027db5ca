// The resources of Kestrune.dll are those of the source tree.
#include <gtest/gtest.h>

#include "platform/Files.h"
#include "platform/com/ComText.h"
#include "tests/windows/com/DllUnderTest.h"

namespace kestrune::testing {
namespace {

const Text kSources = u"" KESTRUNE_SOURCE_DIR u"/common/resources/";

std::string Resource(const wchar_t* type, int id) {
  const HRSRC found = FindResourceW(Dll(), MAKEINTRESOURCEW(id), type);
  if (!found) return "missing";
  return {static_cast<const char*>(LockResource(LoadResource(Dll(), found))), SizeofResource(Dll(), found)};
}

TEST(DllResourcesTest, StringsAreThoseOfTheSource) {
  const struct {
    UINT id;
    TextView text;
  } strings[] = {
#define STRING(id, name, text) {id, u"" text},
#include "common/resources/strings.def"
#undef STRING
  };
  for (const auto& [id, text] : strings) {
    const wchar_t* stored = nullptr;
    const int length = LoadStringW(Dll(), id, reinterpret_cast<wchar_t*>(&stored), 0);
    EXPECT_EQ(FromWide({stored, static_cast<std::size_t>(length)}), text) << id;
  }
}

TEST(DllResourcesTest, TheIconHasAllItsPicturesAndDialogsTheirLook) {
  const std::string file = ReadFile(kSources + u"Kestrune.ico");
  EXPECT_EQ(Resource(MAKEINTRESOURCEW(14), 101).substr(4, 2), file.substr(4, 2)) << "the count in its group";
  EXPECT_NE(LoadIconW(Dll(), MAKEINTRESOURCEW(101)), nullptr);
  EXPECT_EQ(Resource(MAKEINTRESOURCEW(24), 2), ReadFile(kSources + u"dialogs.manifest"));
}

Text VersionText(std::vector<std::byte>& block, TextView name) {
  wchar_t* text = nullptr;
  UINT length = 0;
  const Text path = Text(u"\\StringFileInfo\\040904B0\\").append(name);
  if (!VerQueryValueW(block.data(), Wide(path), reinterpret_cast<void**>(&text), &length)) return u"missing";
  return Text(FromWide(text));
}

TEST(DllResourcesTest, TheVersionIsTheProjects) {
  const Text path = DllPath();
  std::vector<std::byte> block(GetFileVersionInfoSizeW(Wide(path), nullptr));
  ASSERT_TRUE(GetFileVersionInfoW(Wide(path), 0, static_cast<DWORD>(block.size()), block.data()));
  EXPECT_EQ(VersionText(block, u"FileVersion"), u"" KESTRUNE_VERSION);
  EXPECT_EQ(VersionText(block, u"ProductVersion"), u"" KESTRUNE_VERSION);
  EXPECT_EQ(VersionText(block, u"ProductName"), u"Kestrune Link");
  VS_FIXEDFILEINFO* fixed = nullptr;
  UINT length = 0;
  ASSERT_TRUE(VerQueryValueW(block.data(), L"\\", reinterpret_cast<void**>(&fixed), &length));
  const auto numbers = std::to_string(HIWORD(fixed->dwFileVersionMS)) + "." +
                       std::to_string(LOWORD(fixed->dwFileVersionMS)) + "." +
                       std::to_string(HIWORD(fixed->dwFileVersionLS));
  EXPECT_EQ(numbers, KESTRUNE_VERSION);
}

}  // namespace
}  // namespace kestrune::testing
