#include "core/settings_text.h"

#include <array>
#include <utility>

#include "core/text.h"

namespace tv {

std::string newSettingsFileText() {
    std::string text =
        "[Tarvelon]\r\n"
        "settings=0,0,0,0,0,0,0,0\r\n"
        "advanced=65536,500,0\r\n"
        "antivirus=\r\n"
        "av2=\r\n"
        "antivirus2=1,0,0\r\n"
        "algo=crc32\r\n"
        "\r\n";
    for (int slot = 1; slot <= 20; ++slot) {
        text += "[" + std::to_string(slot) + "]\r\n";
        text += "path=NULL\r\n"
                "args=0,0,0,0,0,0,0\r\n"
                "args2=0,0,0,0,0,0,0\r\n"
                "\r\n";
    }
    return text;
}

std::string_view settingSearchKey(std::string_view request) {
    static constexpr std::array<std::pair<std::string_view, std::string_view>, 9> table{{
        {"GETSETT", "settings="},
        {"GETSETT2", "settings2="},
        {"ANTIVIRUS", "antivirus="},
        {"AV2", "av2="},
        {"ANTIVIRUS2", "antivirus2="},
        {"ALGO", "algo="},
        {"PATH", "path="},
        {"ARGS", "args="},
        {"ADV", "advanced="},
    }};
    const std::string word = upperCase(request);
    for (const auto& [name, key] : table)
        if (word == name) return key;
    return {};  // "CHECKPW" is accepted and, like any unknown word, finds nothing
}

std::string settingFromText(std::string_view fileText, std::string_view request) {
    const std::string_view key = settingSearchKey(request);
    if (key.empty()) return {};
    std::string value = getBetween(fileText, 1, key, "\r\n");
    if (value.size() < 2) return {};
    return value;
}

}  // namespace tv
