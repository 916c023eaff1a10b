// The tracked allocator: its size limit, its counters and its failure line.
#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace {

struct Counters {
  std::int32_t blocks = trackedBlocks.load();
  std::int32_t bytes = trackedBytes.load();
};

TEST(TrackedMemory, LimitIsOneGibibyteInclusive) {
  struct Case {
    unsigned size;
    bool granted;
  } cases[] = {
      {0, true},            // still a block of its own
      {1, true},
      {4096, true},
      {0x40000000u, true},  // 1,073,741,824: the largest size passed on
      {0x40000001u, false}, // the first refused size
      {0xFFFFFFFFu, false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << "size " << c.size);
    const Counters before;
    testing::internal::CaptureStderr();
    void* block = TrackedAlloc(c.size);
    const std::string err = testing::internal::GetCapturedStderr();
    EXPECT_EQ(block != nullptr, c.granted);
    if (c.granted) {
      EXPECT_EQ(err, "");
    } else {
      EXPECT_EQ(err, "malloc failed (cannot allocate " + std::to_string(c.size) + " bytes)\n");
    }
    // Granted or not, the request is counted.
    EXPECT_EQ(trackedBlocks.load() - before.blocks, 1);
    EXPECT_EQ(static_cast<std::uint32_t>(trackedBytes.load() - before.bytes), c.size);
    TrackedFree(block, c.size);
    EXPECT_EQ(trackedBlocks.load(), before.blocks);
    EXPECT_EQ(trackedBytes.load(), before.bytes);
  }
}

TEST(TrackedMemory, GrantedBlockIsWritableToItsEnd) {
  const unsigned size = 100000;
  auto* block = static_cast<unsigned char*>(TrackedAlloc(size));
  ASSERT_NE(block, nullptr);
  std::memset(block, 0xA5, size);
  EXPECT_EQ(block[size - 1], 0xA5);
  TrackedFree(block, size);
}

TEST(TrackedMemory, HeaderIsCountedAtItsOwnSize) {
  const Counters before;
  WorkingArray* header = AllocHeader();
  ASSERT_NE(header, nullptr);
  EXPECT_EQ(trackedBlocks.load() - before.blocks, 1);
  EXPECT_EQ(trackedBytes.load() - before.bytes, static_cast<std::int32_t>(sizeof(WorkingArray)));
  TrackedFree(header, sizeof(WorkingArray));
  EXPECT_EQ(trackedBytes.load(), before.bytes);
}

TEST(TrackedMemory, FailureLineShowsNegativeCountsAsWorkedOut) {
  testing::internal::CaptureStderr();
  txc::write_alloc_failure(-8);
  txc::write_alloc_failure(0x40000008);
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "malloc failed (cannot allocate -8 bytes)\n"
            "malloc failed (cannot allocate 1073741832 bytes)\n");
}

}  // namespace
