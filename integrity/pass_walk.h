// The walk of one pass over its folder. The names come from the process's one
// listing, one by one, as the pass has always had them; the files of the pass
// that lie ahead in the listing are handed to worker threads, so that their
// checksums are ready when the walk reaches them. Without workers (one
// processor, no threads) every checksum is taken as the walk reaches the file.
#pragma once

#include <memory>
#include <string>

#include "core/app_context.h"
#include "hash/checksum_workers.h"
#include "hash/file_checksum.h"

namespace tv {

class PassWalk {
public:
    // The files of `folder` (ending in a backslash) whose last four characters,
    // upper-cased, are `ext1` or `ext2`.
    PassWalk(AppContext& ctx, std::string folder, std::string ext1, std::string ext2);
    ~PassWalk();  // stops the workers: nothing goes on reading behind a pass that ended

    std::string first();  // the listing's first name, or empty text
    std::string next();   // the next one, or empty text at its end

    // getChecksum's text of the file `name` the walk was just given; the window
    // may run pending input once per full step of the file, as getChecksum lets it.
    std::string checksum(const std::string& name);

    bool takesPart(const std::string& name) const;

private:
    void handOver();
    int workerCount() const;

    AppContext& ctx_;
    const std::string folder_, ext1_, ext2_;
    hash::DoEvents pump_;
    std::unique_ptr<hash::ChecksumWorkers> workers_;
    std::uint64_t place_ = 0;  // of the walk's name in the listing, from 0
    std::size_t looked_ = 0;   // names behind the walk's one already looked at
};

}  // namespace tv
