// Feeding a whole file to a checksum engine, step by step, as the program has
// always done it: the file's length is taken once, from the open file; each
// step reads at most readBuffer bytes; after every full step the window may
// run pending input; the last piece (up to a whole step) is the tail.
#pragma once

#include <cstdint>
#include <functional>
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

// How one file is read, on whichever thread reads it.
struct FileFeed {
    const Files& files;
    ReadBuffer& buffer;
    // The size of the next step, asked before each one; below 1 the reading fails.
    std::function<std::int64_t()> stepSize;
    // Runs after every full step; false stops the reading.
    std::function<bool()> betweenSteps;
};

enum class Fed { Whole, Empty, Failed, Stopped };

// Reads `path` and hands each piece to `feed` (piece, byteCount) -> bool, false
// failing the reading. Bytes that vanish while the file is read (it shrank)
// count as zeros, as a fresh buffer holds them; bytes past the length taken at
// the start are never read.
Fed feedFile(const FileFeed& how, const std::string& path,
             const std::function<bool(const std::uint8_t*, std::size_t)>& feed);

// The CRC register after the whole file, fed into `engine` as it stands;
// nothing for a file of length 0, and for one that was not read to its end.
std::optional<std::int32_t> crcOfFile(const FileFeed& how, CrcEngine& engine, const std::string& path);

// Feeds the whole file to the hash made by createHash and reads the digest;
// no digest for a file of length 0, nor for one not read to its end.
void hashFile(const FileFeed& how, HashEngine& engine, const std::string& path);

// The reading of the user-interface thread: steps of the readBuffer setting
// (0 becomes 65536, and the setting keeps it), the pump test between steps.
class WindowFeed {
public:
    explicit WindowFeed(AppContext& ctx);
    WindowFeed(const WindowFeed&) = delete;
    WindowFeed& operator=(const WindowFeed&) = delete;
    const FileFeed& how() const { return how_; }

private:
    DoEvents events_;
    FileFeed how_;
};

// CalculateFile2: the CRC value of a whole file through `engine` (which it clears
// first). Nothing for a file of length 0, and for a file that cannot be read.
std::optional<std::int32_t> calculateFile2(AppContext& ctx, CrcEngine& engine, const std::string& path);

// CalculateFile3: feeds a whole file to the hash made by createHash and reads its
// digest. A file of length 0 is not fed and no digest is read; a failure ends
// the feeding with no digest read.
void calculateFile3(AppContext& ctx, HashEngine& engine, const std::string& path);

}  // namespace tv::hash
