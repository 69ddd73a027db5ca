#include <gtest/gtest.h>
#include <windows.h>

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  GetDesktopWindow();  // before a second thread makes the first call of this kind, which may then wait for
                       // ever
  if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return 2;
  const int failed = RUN_ALL_TESTS();
  CoUninitialize();
  return failed;
}
