#pragma once
// Timing for the benchmarks that run under Wine: the performance counter, and
// the median of repeated runs, which one slow run of the machine does not move.
#include <windows.h>

#include <algorithm>
#include <functional>
#include <vector>

namespace tv::bench {

inline double timed(const std::function<void()>& run) {
    LARGE_INTEGER frequency, start, end;
    ::QueryPerformanceFrequency(&frequency);
    ::QueryPerformanceCounter(&start);
    run();
    ::QueryPerformanceCounter(&end);
    return static_cast<double>(end.QuadPart - start.QuadPart) / static_cast<double>(frequency.QuadPart);
}

inline double median(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

}  // namespace tv::bench
