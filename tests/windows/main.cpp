// Runs the tests of a program on the thread of a host; its last line tells the runner.
#include <gtest/gtest.h>
#include <ole2.h>

#include <cstdio>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  OleInitialize(nullptr);
  const int failed = RUN_ALL_TESTS();
  OleUninitialize();
  if (failed == 0) std::puts("OK");
  return failed;
}
