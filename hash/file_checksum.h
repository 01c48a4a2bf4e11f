// Feeding a whole file to a checksum engine, buffer by buffer, as the program
// has always done it: the file's length is taken by name first; each step reads
// at most readBuffer bytes; after every full buffer the window may run pending
// input; the last piece (up to a whole buffer) is the tail.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "core/app_context.h"
#include "hash/crc_engine.h"
#include "hash/hash_engine.h"

namespace tv::hash {

// clsDoEvents: lets pending window messages run, but only when the queue holds
// input of the kinds in queueUsed (keys, mouse buttons, paint, hot keys), so that a
// timer alone never interrupts a checksum.
class DoEvents {
public:
    explicit DoEvents(EventLoop& loop) : loop_(loop) {}
    std::uint32_t queueUsed() const { return queueUsed_; }
    void setQueueUsed(std::uint32_t flags) { queueUsed_ = flags; }
    void getInputState();

private:
    EventLoop& loop_;
    std::uint32_t queueUsed_ = 0;
};

// CalculateFile2: the CRC value of a whole file through `engine` (which it clears
// first). Nothing for a file of length 0, and for a file that cannot be read.
std::optional<std::int32_t> calculateFile2(AppContext& ctx, CrcEngine& engine, const std::string& path);

// CalculateFile3: feeds a whole file to the hash made by createHash and reads its
// digest. A file of length 0 is not fed and no digest is read; a failure ends
// the feeding with no digest read.
void calculateFile3(AppContext& ctx, HashEngine& engine, const std::string& path);

}  // namespace tv::hash
