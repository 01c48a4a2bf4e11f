#include "hash/checksum_workers.h"

#include <algorithm>
#include <atomic>
#include <utility>

#include "hash/checksum.h"
#include "hash/file_checksum.h"

namespace tv::hash {
namespace {

// How long this thread sleeps at most before it looks at a worker's progress
// again: the window's pump test after every step comes that much later at worst.
constexpr unsigned kLookAgainMs = 10;

}  // namespace

struct ChecksumWorkers::Job {
    Job(std::uint64_t at, std::string p, std::uint64_t bytes) : place(at), path(std::move(p)), byteCount(bytes) {}
    const std::uint64_t place;
    const std::string path;
    const std::uint64_t byteCount;
    enum class State { Waiting, Running, Done } state = State::Waiting;  // under lock_
    std::atomic<int> stepsDone{0};
    std::atomic<bool> stop{false};
    // Written by the reader before Done, read after.
    std::string text;
    bool failed = false;
};

ChecksumWorkers::ChecksumWorkers(Threads& threads, const Files& files, ReadBuffer& ownBuffer, int workerCount,
                                 std::string algoName, std::int64_t stepSize)
    : threads_(threads),
      files_(files),
      ownBuffer_(ownBuffer),
      workerCount_(workerCount),
      algoName_(std::move(algoName)),
      stepSize_(stepSize),
      lock_(threads.makeMutex()),
      work_(threads.makeSemaphore()),
      done_(threads.makeSemaphore()) {
    if (!work_ || !done_) workerCount_ = 0;  // every file is then read here
}

ChecksumWorkers::~ChecksumWorkers() {
    int sleepers = 0;
    {
        MutexLock hold(*lock_);
        stopping_ = true;
        for (const auto& job : jobs_) job->stop = true;
        waiting_.clear();
        sleepers = std::exchange(sleeping_, 0);
    }
    if (work_) work_->release(sleepers);
    workers_.clear();  // waits for each
}

void ChecksumWorkers::startWorkers() {
    while (static_cast<int>(workers_.size()) < workerCount_) {
        auto worker = threads_.start([this] { work(); });
        if (!worker) break;
        workers_.push_back(std::move(worker));
    }
    workerCount_ = static_cast<int>(workers_.size());
}

void ChecksumWorkers::add(std::uint64_t place, const std::string& path, std::uint64_t byteCount) {
    if (workers_.empty()) startWorkers();
    auto job = std::make_shared<Job>(place, path, byteCount);
    jobs_.push_back(job);
    bytesAhead_ += byteCount;
    bool wake = false;
    {
        MutexLock hold(*lock_);
        waiting_.push_back(std::move(job));
        if (sleeping_ > 0) {
            --sleeping_;
            wake = true;
        }
    }
    if (wake) work_->release(1);
}

void ChecksumWorkers::work() {
    ReadBuffer buffer;
    for (;;) {
        std::shared_ptr<Job> job;
        {
            MutexLock hold(*lock_);
            if (stopping_) return;
            if (waiting_.empty()) {
                ++sleeping_;
            } else {
                job = std::move(waiting_.front());
                waiting_.pop_front();
                job->state = Job::State::Running;
            }
        }
        if (!job) {
            work_->wait(Semaphore::kForever);
            continue;
        }
        run(*job, buffer, [&job] {
            job->stepsDone.fetch_add(1);
            return !job->stop.load();
        });
        bool wake = false;
        {
            MutexLock hold(*lock_);
            job->state = Job::State::Done;
            if (awaited_ == job.get()) {
                awaited_ = nullptr;
                wake = true;
            }
        }
        if (wake) done_->release(1);
    }
}

void ChecksumWorkers::run(Job& job, ReadBuffer& buffer, const std::function<bool()>& betweenSteps) {
    const FileFeed how{files_, buffer, [this] { return stepSize_; }, betweenSteps};
    try {
        job.text = checksumText(algoName_, how, job.path);
    } catch (...) {  // memory ran short: the file is read again by the walk
        job.failed = true;
    }
}

bool ChecksumWorkers::claim(Job& job) {
    MutexLock hold(*lock_);
    if (job.state != Job::State::Waiting) return false;
    const auto at = std::find_if(waiting_.begin(), waiting_.end(), [&job](const auto& j) { return j.get() == &job; });
    if (at != waiting_.end()) waiting_.erase(at);
    job.state = Job::State::Running;
    return true;
}

void ChecksumWorkers::waitFor(Job& job, const std::function<void()>& betweenSteps) {
    int passed = 0;
    const auto catchUp = [&] {
        for (const int done = job.stepsDone.load(); passed < done; ++passed) betweenSteps();
    };
    for (;;) {
        {
            MutexLock hold(*lock_);
            if (job.state == Job::State::Done) break;
            awaited_ = &job;
        }
        done_->wait(kLookAgainMs);
        {
            MutexLock hold(*lock_);
            if (awaited_ == &job) awaited_ = nullptr;
        }
        catchUp();
    }
    catchUp();
}

void ChecksumWorkers::drop(const std::shared_ptr<Job>& job) {
    bytesAhead_ -= job->byteCount;
    if (!claim(*job)) job->stop = true;  // a worker reads it: it stops at the next step
}

std::optional<std::string> ChecksumWorkers::take(std::uint64_t place, const std::string& path,
                                                  const std::function<void()>& betweenSteps) {
    while (!jobs_.empty() && jobs_.front()->place < place) {
        drop(jobs_.front());
        jobs_.pop_front();
    }
    if (jobs_.empty() || jobs_.front()->place != place || jobs_.front()->path != path) return std::nullopt;
    const std::shared_ptr<Job> job = std::move(jobs_.front());
    jobs_.pop_front();
    bytesAhead_ -= job->byteCount;
    if (workers_.empty() && claim(*job)) {  // no thread could be started
        run(*job, ownBuffer_, [&betweenSteps] {
            betweenSteps();
            return true;
        });
    } else {
        waitFor(*job, betweenSteps);
    }
    if (job->failed) return std::nullopt;
    return std::move(job->text);
}

}  // namespace tv::hash
