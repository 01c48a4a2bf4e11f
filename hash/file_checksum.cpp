#include "hash/file_checksum.h"

#include <algorithm>
#include <cstring>

namespace tv::hash {
namespace {

// A step larger than this is read in several system calls; what the engines
// see, and when the window may run, does not change.
constexpr std::size_t kLargestRead = std::size_t{4} << 20;

}  // namespace

void DoEvents::getInputState() {
    if (loop_.queueStatus(queueUsed_) != 0) loop_.pump();
}

Fed feedFile(const FileFeed& how, const std::string& path,
             const std::function<bool(const std::uint8_t*, std::size_t)>& feed) {
    // One open, the length from the open file, one read for a file within a
    // step, one close: a folder or a locked file fails at the open.
    const auto reader = how.files.openReader(path);
    if (!reader) return Fed::Failed;
    const auto total = reader->size();
    if (!total) return Fed::Failed;
    if (*total == 0) return Fed::Empty;

    std::uint64_t done = 0;
    for (;;) {
        const std::int64_t size = how.stepSize();
        if (size < 1) return Fed::Failed;
        const auto step = static_cast<std::uint64_t>(size);
        const bool tail = done + step >= *total;
        std::uint64_t left = tail ? *total - done : step;
        while (left > 0) {
            const auto piece = static_cast<std::size_t>(std::min<std::uint64_t>(left, kLargestRead));
            std::uint8_t* buffer = how.buffer.get(piece);
            if (!buffer) return Fed::Failed;
            const auto got = reader->read(buffer, piece);
            if (!got) return Fed::Failed;
            std::memset(buffer + *got, 0, piece - *got);
            if (!feed(buffer, piece)) return Fed::Failed;
            left -= piece;
        }
        if (tail) return Fed::Whole;
        done += step;
        if (!how.betweenSteps()) return Fed::Stopped;
    }
}

std::optional<std::int32_t> crcOfFile(const FileFeed& how, CrcEngine& engine, const std::string& path) {
    const Fed fed = feedFile(how, path, [&engine](const std::uint8_t* data, std::size_t length) {
        engine.calculateBytes(data, length);
        return true;
    });
    if (fed != Fed::Whole) return std::nullopt;
    return engine.value();
}

void hashFile(const FileFeed& how, HashEngine& engine, const std::string& path) {
    const Fed fed = feedFile(how, path, [&engine](const std::uint8_t* data, std::size_t length) {
        return engine.hashData(data, length);
    });
    if (fed == Fed::Whole) engine.readDigest();
}

WindowFeed::WindowFeed(AppContext& ctx)
    : events_(ctx.os.loop),
      how_{ctx.os.files, ctx.checksumBuffer,
           [&ctx] {
               if (ctx.readBuffer == 0) ctx.readBuffer = 65536;
               return std::int64_t{ctx.readBuffer};
           },
           [this] {
               events_.getInputState();
               return true;
           }} {
    events_.setQueueUsed(queue::InputOrPaint);
}

std::optional<std::int32_t> calculateFile2(AppContext& ctx, CrcEngine& engine, const std::string& path) {
    engine.clear();
    return crcOfFile(WindowFeed(ctx).how(), engine, path);
}

void calculateFile3(AppContext& ctx, HashEngine& engine, const std::string& path) {
    hashFile(WindowFeed(ctx).how(), engine, path);
}

}  // namespace tv::hash
