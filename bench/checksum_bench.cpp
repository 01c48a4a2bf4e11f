// Times getChecksum as the program runs it: through the Win32 platform, one
// file after another, in the read buffer given. Prints the median time of the
// repetitions and the checksum text(s) so the peers' digests can be compared.
// Given a number of worker threads and an extension ("." and upper case), a
// folder's files of that extension are taken as a scan's pass takes them:
// walked in the listing's order with their checksums read ahead on the workers.
//
//   checksum_bench <algorithm> <readBuffer> <repetitions> <file or folder\> [<workers> <extension>]
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "bench/folder_files.h"
#include "core/app_context.h"
#include "hash/checksum.h"
#include "integrity/pass_walk.h"
#include "platform/win32/win32_platform.h"

namespace {

// The files of a folder in the system's order, or the one file named.
std::vector<std::string> targets(const std::string& where) {
    if (where.empty() || where.back() != '\\') return {where};
    return tv::bench::filesOf(where);
}

double seconds(LARGE_INTEGER from, LARGE_INTEGER to) {
    LARGE_INTEGER frequency;
    ::QueryPerformanceFrequency(&frequency);
    return static_cast<double>(to.QuadPart - from.QuadPart) / static_cast<double>(frequency.QuadPart);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 5 && argc != 7) {
        std::fprintf(stderr, "usage: checksum_bench <algorithm> <readBuffer> <repetitions> <file or folder\\> "
                             "[<workers> <extension>]\n");
        return 2;
    }
    tv::win32::Win32System system;
    tv::ui::HeadlessRenderer renderer;
    tv::AppContext ctx(system.with(renderer));
    ctx.algoName = argv[1];
    ctx.readBuffer = std::atoi(argv[2]);
    const int repetitions = std::max(1, std::atoi(argv[3]));
    const bool asAPass = argc == 7;
    const std::vector<std::string> paths = asAPass ? std::vector<std::string>{} : targets(argv[4]);
    std::size_t fileCount = paths.size();
    if (asAPass) ctx.checksumWorkers = std::atoi(argv[5]);

    std::vector<double> times;
    std::string lastText;
    for (int r = 0; r < repetitions; ++r) {
        LARGE_INTEGER start, end;
        ::QueryPerformanceCounter(&start);
        if (asAPass) {
            tv::PassWalk walk(ctx, argv[4], argv[6], "...");
            fileCount = 0;
            for (std::string name = walk.first(); !name.empty(); name = walk.next()) {
                if (!walk.takesPart(name)) continue;
                lastText = walk.checksum(name);
                ++fileCount;
            }
        } else {
            for (const auto& path : paths) lastText = tv::hash::getChecksum(ctx, path);
        }
        ::QueryPerformanceCounter(&end);
        times.push_back(seconds(start, end));
    }
    std::sort(times.begin(), times.end());
    std::printf("median=%.6f min=%.6f files=%zu text=%s\n", times[times.size() / 2], times.front(), fileCount,
                lastText.c_str());
    return 0;
}
