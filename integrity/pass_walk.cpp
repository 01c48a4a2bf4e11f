#include "integrity/pass_walk.h"

#include "core/text.h"
#include "hash/checksum.h"

namespace tv {
namespace {

// How far the workers may run ahead of the walk: the files, their bytes by the
// listing, and the names looked at to find them. A cancelled pass throws away
// no more than this, and a file is read at most this far ahead of its turn.
constexpr std::size_t kFilesAhead = 256;
constexpr std::uint64_t kBytesAhead = std::uint64_t{64} << 20;
constexpr std::size_t kNamesAhead = 4096;

}  // namespace

PassWalk::PassWalk(AppContext& ctx, std::string folder, std::string ext1, std::string ext2)
    : ctx_(ctx), folder_(std::move(folder)), ext1_(std::move(ext1)), ext2_(std::move(ext2)), pump_(ctx.os.loop) {
    pump_.setQueueUsed(queue::InputOrPaint);
}

PassWalk::~PassWalk() = default;

std::string PassWalk::first() {
    place_ = 0;
    looked_ = 0;
    return ctx_.os.files.firstName(folder_);
}

std::string PassWalk::next() {
    ++place_;
    if (looked_ > 0) --looked_;
    return ctx_.os.files.nextName();
}

bool PassWalk::takesPart(const std::string& name) const {
    const std::string tail = upperCase(rightText(name, 4));
    return name != "." && name != ".." && (tail == ext1_ || tail == ext2_);
}

int PassWalk::workerCount() const {
    if (!ctx_.os.threads) return 0;
    if (ctx_.checksumWorkers >= 0) return ctx_.checksumWorkers;
    const int processors = ctx_.os.threads->processorCount();
    return processors > 1 ? processors : 0;
}

// Files ahead of the walk go to the workers, as far as the bounds allow. The
// workers are made with the first of them, for the settings of that moment.
void PassWalk::handOver() {
    if (!workers_) {
        const int count = workerCount();
        if (count == 0 || ctx_.readBuffer <= 0) return;
        workers_ = std::make_unique<hash::ChecksumWorkers>(*ctx_.os.threads, ctx_.os.files, ctx_.checksumBuffer,
                                                           count, ctx_.algoName, ctx_.readBuffer);
    }
    while (workers_->filesAhead() < kFilesAhead && workers_->bytesAhead() < kBytesAhead && looked_ < kNamesAhead) {
        const ListedName* listed = ctx_.os.files.peekName(looked_);
        if (!listed) return;
        ++looked_;
        if (takesPart(listed->name)) workers_->add(place_ + looked_, folder_ + listed->name, listed->byteCount);
    }
}

std::string PassWalk::checksum(const std::string& name) {
    // Settings changed during the pass (the advanced page saved in a pump):
    // what was read ahead under the old ones is thrown away.
    if (workers_ && (workers_->algoName() != ctx_.algoName || workers_->stepSize() != ctx_.readBuffer)) {
        workers_.reset();
        looked_ = 0;
    }
    handOver();
    const std::string path = folder_ + name;
    if (workers_)
        if (auto text = workers_->take(place_, path, [this] { pump_.getInputState(); })) return std::move(*text);
    return hash::getChecksum(ctx_, path);
}

}  // namespace tv
