#include "hash/file_checksum.h"

#include <algorithm>
#include <cstring>

namespace tv::hash {
namespace {

// A buffer larger than this is read in several system calls; what the engines
// see, and when the window may run, does not change.
constexpr std::size_t kLargestRead = std::size_t{4} << 20;

enum class Fed { Whole, Empty, Failed };

// Reads `path` in steps of readBuffer bytes and hands each piece to `feed`
// (piece, byteCount) -> bool. Bytes that vanish while the file is read (it
// shrank) count as zeros, as a fresh buffer holds them; bytes past the length
// taken at the start are never read.
template <class Feed>
Fed feedFile(AppContext& ctx, const std::string& path, Feed&& feed) {
    DoEvents events(ctx.os.loop);
    events.setQueueUsed(queue::InputOrPaint);
    const auto total = ctx.os.files.length(path);
    if (!total) return Fed::Failed;
    if (*total == 0) return Fed::Empty;
    const auto reader = ctx.os.files.openReader(path);
    if (!reader) return Fed::Failed;

    std::uint64_t done = 0;
    for (;;) {
        if (ctx.readBuffer == 0) ctx.readBuffer = 65536;
        if (ctx.readBuffer < 0) return Fed::Failed;
        const auto step = static_cast<std::uint64_t>(ctx.readBuffer);
        const bool tail = done + step >= *total;
        std::uint64_t left = tail ? *total - done : step;
        while (left > 0) {
            const auto piece = static_cast<std::size_t>(std::min<std::uint64_t>(left, kLargestRead));
            std::uint8_t* buffer = ctx.checksumBuffer.get(piece);
            if (!buffer) return Fed::Failed;
            const auto got = reader->read(buffer, piece);
            if (!got) return Fed::Failed;
            std::memset(buffer + *got, 0, piece - *got);
            if (!feed(buffer, piece)) return Fed::Failed;
            left -= piece;
        }
        if (tail) return Fed::Whole;
        done += step;
        events.getInputState();
    }
}

}  // namespace

void DoEvents::getInputState() {
    if (loop_.queueStatus(queueUsed_) != 0) loop_.pump();
}

std::optional<std::int32_t> calculateFile2(AppContext& ctx, CrcEngine& engine, const std::string& path) {
    engine.clear();
    const Fed fed = feedFile(ctx, path, [&engine](const std::uint8_t* data, std::size_t length) {
        engine.calculateBytes(data, length);
        return true;
    });
    if (fed != Fed::Whole) return std::nullopt;
    return engine.value();
}

void calculateFile3(AppContext& ctx, HashEngine& engine, const std::string& path) {
    const Fed fed = feedFile(ctx, path, [&engine](const std::uint8_t* data, std::size_t length) {
        return engine.hashData(data, length);
    });
    if (fed == Fed::Whole) engine.readDigest();
}

}  // namespace tv::hash
