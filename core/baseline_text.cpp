#include "core/baseline_text.h"

#include "core/text.h"

namespace tv {

std::string literalEntry(std::string_view block, std::string_view key) {
    return getBetween(block, 1, "\r\n" + std::string(key) + "=", "*E\r\n");
}

std::string literalWrite(std::string_view block, std::string_view key, std::string_view value) {
    const std::string lineStart = "\r\n" + std::string(key);
    if (inStr(1, block, lineStart, Compare::Exact) == 0) {
        return replaceText(block, "\r\nNULL*E\r\n", lineStart + "=" + std::string(value) + "\r\nNULL*E\r\n",
                           Compare::IgnoreCase);
    }
    const std::string old = literalEntry(block, key);
    return replaceText(block, lineStart + "=" + old + "*E\r\n", lineStart + "=" + std::string(value) + "\r\n",
                       Compare::IgnoreCase);
}

}  // namespace tv
