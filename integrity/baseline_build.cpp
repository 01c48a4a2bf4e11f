#include "integrity/baseline_build.h"

#include "core/text.h"
#include "integrity/data_file_text.h"

namespace tv {
namespace {

constexpr std::array<std::string_view, kSectionCount> kSectionNames{"DLL", "DRV", "386", "SYS", "OCX",
                                                                    "EXE", "COM", "PIF", "SCR"};

}  // namespace

int sectionOfName(std::string_view name) {
    const std::string tail = upperCase(rightText(name, 4));
    for (int n = 0; n < kSectionCount; ++n)
        if (tail == "." + std::string(kSectionNames[n])) return n + 1;
    return 0;
}

std::string blankDataFileText(const SectionNameLists& lists) {
    std::string text(kDataFileHeader);
    text += "\r\n";
    for (int n = 0; n < kSectionCount; ++n) {
        text += "[" + std::string(kSectionNames[n]) + "]\r\n";
        std::string_view rest = lists[n];
        for (auto comma = rest.find(','); comma != std::string_view::npos; comma = rest.find(',')) {
            text.append(rest.substr(0, comma)).append("=NULL*E\r\n");
            rest.remove_prefix(comma + 1);
        }
        text.append(rest).append("NULL*E\r\n");
    }
    return text;
}

SectionNameLists walkFolder(AppContext& ctx, const std::string& folder) {
    SectionNameLists lists;
    for (std::string name = ctx.os.files.firstName(folder); !name.empty(); name = ctx.os.files.nextName()) {
        if (name == "." || name == "..") continue;
        if (const int section = sectionOfName(name)) lists[section - 1] += name + ",";
        ctx.os.loop.pump();
    }
    return lists;
}

}  // namespace tv
