// The least a Windows program pays per file, whatever it does with the bytes:
// one open, reads to the end in 64 KiB and one close, on the threads named,
// over a folder's files in the listing's order. Under Wine each open and close
// is a round trip to the Wine server; the checksum passes cannot be cheaper.
// Prints the median seconds of the repetitions.
//
//   file_cost_bench <folder\> <threads> <repetitions>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "bench/folder_files.h"
#include "bench/timing.h"

namespace {

// Every thread-th file from the first-th on, each read whole.
void readEach(const std::vector<std::string>& files, std::size_t first, std::size_t threads) {
    std::vector<char> buffer(65536);
    for (std::size_t i = first; i < files.size(); i += threads) {
        HANDLE file = ::CreateFileA(files[i].c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
        if (file == INVALID_HANDLE_VALUE) continue;
        DWORD got = 0;
        while (::ReadFile(file, buffer.data(), static_cast<DWORD>(buffer.size()), &got, nullptr) && got) {
        }
        ::CloseHandle(file);
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fprintf(stderr, "usage: file_cost_bench <folder\\> <threads> <repetitions>\n");
        return 2;
    }
    const std::vector<std::string> files = tv::bench::filesOf(argv[1]);
    const std::size_t threads = std::max(1, std::atoi(argv[2]));
    std::vector<double> times;
    for (int run = 0; run < std::atoi(argv[3]); ++run) {
        times.push_back(tv::bench::timed([&] {
            std::vector<std::thread> workers;
            for (std::size_t first = 0; first < threads; ++first) workers.emplace_back(readEach, std::cref(files), first, threads);
            for (std::thread& worker : workers) worker.join();
        }));
    }
    if (files.empty() || times.empty()) return 1;
    std::printf("files=%zu median=%.4f\n", files.size(), tv::bench::median(times));
    return 0;
}
