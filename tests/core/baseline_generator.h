// Random baseline blocks and operations for comparing the indexed block with
// the plain text search: well-formed most of the time, with the shapes that can
// go wrong mixed in.
#pragma once

#include <random>
#include <string>
#include <vector>

#include "core/baseline_block.h"

namespace tv::test {

class BaselineGenerator {
public:
    explicit BaselineGenerator(unsigned seed) : random_(seed) {}

    std::string name() {
        // Names near and past the longest the index orders by, and runs of "=".
        static const std::string longest(BaselineBlock::kLongestIndexedKey - 4, 'L');
        static const std::vector<std::string> stems{"KERNEL32", "kernel32", "A", "AB", "A=B", "[x]", "[", "a b ",
                                                    "NULL", "null*e", "E", "*", "Setup=1", "=", "",
                                                    "====", "A==B=", longest, longest + "L", longest + "=="};
        static const std::vector<std::string> ends{".DLL", ".dll", "", ".DLL.DLL", "=", "*E", " "};
        return pick(stems) + pick(ends);
    }

    std::string value() {
        static const std::vector<std::string> values{"NULL", "A1B2C3D4", "0", "", " 7 ", "x=y", "*E", "1*e", "\r\n2"};
        return pick(values);
    }

    std::string line() {
        switch (below(12)) {
        case 0: return name() + "=" + value();                 // no "*E"
        case 1: return name() + "=" + value() + "*e";          // closed in lower case
        case 2: return "NULL*E";                               // a second end line
        case 3: return name();                                 // no "=" at all
        default: return name() + "=" + value() + "*E";
        }
    }

    std::string block() {
        std::string text = below(10) == 0 ? "" : "[DLL]";
        const int lines = static_cast<int>(below(8));
        for (int i = 0; i < lines; ++i) text += "\r\n" + line();
        switch (below(8)) {
        case 0: break;                                // no end line
        case 1: text += "\r\nnull*e\r\n"; break;      // end line in lower case
        case 2: text += "\r\nNULL*E"; break;          // last line without line end
        case 3: text += "\r\nNULL*E\r\nNULL*E\r\n"; break;
        default: text += "\r\nNULL*E\r\n"; break;
        }
        return text;
    }

    std::size_t below(std::size_t n) { return std::uniform_int_distribution<std::size_t>(0, n - 1)(random_); }

private:
    const std::string& pick(const std::vector<std::string>& from) { return from[below(from.size())]; }
    std::mt19937 random_;
};

}  // namespace tv::test
