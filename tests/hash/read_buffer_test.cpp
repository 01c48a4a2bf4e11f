// The read buffer aligns itself on a page, whatever the C runtime offers: each
// size it hands out starts on a page boundary and can be written whole (the
// sanitizers watch the ends); a smaller size keeps the block it has.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>

#include "hash/read_buffer.h"

TEST(ReadBuffer, StartsOnAPageAndHoldsWhatWasAskedFor) {
    tv::hash::ReadBuffer buffer;
    std::uint8_t* before = nullptr;
    for (std::size_t size : {1u, 4095u, 4096u, 4097u, 65536u, 3000u, 1u << 22}) {
        std::uint8_t* data = buffer.get(size);
        ASSERT_NE(data, nullptr) << size;
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(data) % 4096, 0u) << size;
        std::memset(data, 0xA5, size);
        EXPECT_TRUE(size != 3000u || data == before);
        before = data;
    }
    EXPECT_EQ(buffer.get(SIZE_MAX - 100), nullptr);  // no wrap-around into a tiny block
}
