// Checksums taken on worker threads ahead of the user-interface thread, which
// hands files over in the order it will want them and takes their texts back
// in that order. Each text is the one getChecksum gives for the file, read the
// same way (length once, lost bytes as zeros, growth ignored).
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "hash/read_buffer.h"
#include "platform/files.h"
#include "platform/threads.h"

namespace tv::hash {

class ChecksumWorkers {
public:
    // Up to `workerCount` threads, started with the first file handed over,
    // read through `files` in steps of `stepSize` bytes and checksum under
    // `algoName`. `ownBuffer` is where this thread reads the files itself
    // when no thread can be started.
    ChecksumWorkers(Threads& threads, const Files& files, ReadBuffer& ownBuffer, int workerCount,
                    std::string algoName, std::int64_t stepSize);
    // Stops the workers, each within the step it is reading, and waits for them.
    ~ChecksumWorkers();
    ChecksumWorkers(const ChecksumWorkers&) = delete;
    ChecksumWorkers& operator=(const ChecksumWorkers&) = delete;

    const std::string& algoName() const { return algoName_; }
    std::int64_t stepSize() const { return stepSize_; }

    // Hands a file over behind the ones before it: `place` is where it stands
    // in the caller's order (growing from one file to the next), `byteCount`
    // what the listing said of its length.
    void add(std::uint64_t place, const std::string& path, std::uint64_t byteCount);
    // Files handed over and not yet taken, and their bytes by the listing.
    std::size_t filesAhead() const { return jobs_.size(); }
    std::uint64_t bytesAhead() const { return bytesAhead_; }

    // The text of `path` when it was handed over at `place`; files handed over
    // at earlier places are dropped. `betweenSteps` runs here once for every
    // full step of the file, as the worker's reading passes it. nullopt when
    // no such file was handed over (or its worker failed): the caller then
    // reads it itself.
    std::optional<std::string> take(std::uint64_t place, const std::string& path,
                                    const std::function<void()>& betweenSteps);

private:
    struct Job;
    void startWorkers();
    void work();
    void run(Job& job, ReadBuffer& buffer, const std::function<bool()>& betweenSteps);
    bool claim(Job& job);
    void waitFor(Job& job, const std::function<void()>& betweenSteps);
    void drop(const std::shared_ptr<Job>& job);

    Threads& threads_;
    const Files& files_;
    ReadBuffer& ownBuffer_;
    int workerCount_;
    const std::string algoName_;
    const std::int64_t stepSize_;
    std::unique_ptr<Mutex> lock_;
    std::unique_ptr<Semaphore> work_;  // a job waits, for a sleeping worker
    std::unique_ptr<Semaphore> done_;  // the job this thread waits for is done
    std::vector<std::unique_ptr<Thread>> workers_;
    std::deque<std::shared_ptr<Job>> jobs_;  // handed over, not yet taken (this thread's)
    std::uint64_t bytesAhead_ = 0;
    // Under lock_:
    std::deque<std::shared_ptr<Job>> waiting_;  // not begun by anybody
    int sleeping_ = 0;                          // workers owed a wake-up
    bool stopping_ = false;
    const Job* awaited_ = nullptr;  // the job this thread sleeps for
};

}  // namespace tv::hash
