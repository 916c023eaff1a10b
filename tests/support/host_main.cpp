// Entry point of the host test executable: registers the fake host before
// any test runs, so every test in this process sees a host.
#include "fake_host.h"

#include <gtest/gtest.h>

FakeHost& fakeHost() {
  static FakeHost host;
  return host;
}

int main(int argc, char** argv) {
  txcommon_initialize(&fakeHost());
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
