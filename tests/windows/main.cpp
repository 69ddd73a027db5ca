#include <gtest/gtest.h>
#include <windows.h>

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  // Wine: where a second thread makes the first call of this kind, it may wait for ever.
  GetDesktopWindow();
  if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return 2;
  const int failed = RUN_ALL_TESTS();
  CoUninitialize();
  return failed;
}
