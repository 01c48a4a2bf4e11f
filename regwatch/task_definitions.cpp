#include "regwatch/task_definitions.h"

#include <cstdint>

namespace tv {
namespace {

// UTF-8 into UTF-16, with a byte that starts no valid sequence kept as the
// character of its own value.
std::u16string fromUtf8(std::string_view bytes) {
    std::u16string units;
    for (std::size_t i = 0; i < bytes.size();) {
        const auto lead = static_cast<unsigned char>(bytes[i]);
        const std::size_t length = lead < 0x80 ? 1 : (lead >> 5) == 6 ? 2 : (lead >> 4) == 14 ? 3 : (lead >> 3) == 30 ? 4 : 0;
        char32_t code = length == 1 ? lead : length == 2 ? lead & 0x1F : length == 3 ? lead & 0x0F : lead & 0x07;
        bool valid = length != 0 && i + length <= bytes.size();
        for (std::size_t k = 1; valid && k < length; ++k) {
            const auto next = static_cast<unsigned char>(bytes[i + k]);
            valid = (next >> 6) == 2;
            code = (code << 6) | (next & 0x3F);
        }
        if (!valid) {
            units += static_cast<char16_t>(lead);
            ++i;
            continue;
        }
        if (code >= 0x10000) {
            units += static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10));
            units += static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FF));
        } else {
            units += static_cast<char16_t>(code);
        }
        i += length;
    }
    return units;
}

std::u16string fromUtf16(std::string_view bytes, bool bigEndian) {
    std::u16string units;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const auto first = static_cast<unsigned char>(bytes[i]), second = static_cast<unsigned char>(bytes[i + 1]);
        units += static_cast<char16_t>(bigEndian ? (first << 8) | second : (second << 8) | first);
    }
    return units;
}

bool xmlSpace(char16_t c) { return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n'; }

std::u16string trimmed(std::u16string_view text) {
    std::size_t from = 0, to = text.size();
    while (from < to && xmlSpace(text[from])) ++from;
    while (to > from && xmlSpace(text[to - 1])) --to;
    return std::u16string(text.substr(from, to - from));
}

std::optional<char32_t> referencedCharacter(std::u16string_view name) {
    static constexpr struct { std::u16string_view name; char16_t character; } kEntities[] = {
        {u"lt", u'<'}, {u"gt", u'>'}, {u"amp", u'&'}, {u"quot", u'"'}, {u"apos", u'\''}};
    for (const auto& entity : kEntities)
        if (name == entity.name) return entity.character;
    if (name.size() < 2 || name[0] != u'#') return std::nullopt;
    const bool hex = name[1] == u'x' || name[1] == u'X';
    std::u16string_view digits = name.substr(hex ? 2 : 1);
    if (digits.empty() || digits.size() > 8) return std::nullopt;
    char32_t code = 0;
    for (const char16_t c : digits) {
        const int digit = c >= u'0' && c <= u'9' ? c - u'0'
                          : hex && c >= u'a' && c <= u'f' ? c - u'a' + 10
                          : hex && c >= u'A' && c <= u'F' ? c - u'A' + 10
                                                          : -1;
        if (digit < 0) return std::nullopt;
        code = code * (hex ? 16 : 10) + static_cast<char32_t>(digit);
    }
    return code <= 0x10FFFF ? std::optional<char32_t>(code) : std::nullopt;
}

// Character data with its references decoded; an unknown one stays as
// written. No reference is longer than "&#x10FFFF;".
void appendDecoded(std::u16string& out, std::u16string_view text) {
    constexpr std::size_t kLongestReference = 10;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::size_t end =
            text[i] == u'&' ? text.substr(0, i + kLongestReference).find(u';', i) : std::u16string_view::npos;
        const auto code = end == std::u16string_view::npos ? std::nullopt
                                                            : referencedCharacter(text.substr(i + 1, end - i - 1));
        if (!code) {
            out += text[i];
            continue;
        }
        if (*code >= 0x10000) {
            out += static_cast<char16_t>(0xD800 + ((*code - 0x10000) >> 10));
            out += static_cast<char16_t>(0xDC00 + ((*code - 0x10000) & 0x3FF));
        } else {
            out += static_cast<char16_t>(*code);
        }
        i = end;
    }
}

// The element's name without its namespace prefix.
std::u16string_view localName(std::u16string_view name) {
    const std::size_t colon = name.find(u':');
    return colon == std::u16string_view::npos ? name : name.substr(colon + 1);
}

// Walks the elements of a task definition and keeps the texts of the
// elements that make up its actions.
class TaskXmlReader {
public:
    explicit TaskXmlReader(std::u16string_view xml) : xml_(xml) {}

    std::vector<TaskCommand> read() {
        for (std::size_t at = 0; at < xml_.size();) {
            const std::size_t open = xml_.find(u'<', at);
            keepText(xml_.substr(at, open == std::u16string_view::npos ? std::u16string_view::npos : open - at), true);
            if (open == std::u16string_view::npos) break;
            at = markupEnd(open);
        }
        return commands_;
    }

private:
    // Where the markup that begins at `open` ends.
    std::size_t markupEnd(std::size_t open) {
        const std::u16string_view rest = xml_.substr(open);
        if (rest.substr(0, 4) == u"<!--") return past(open, u"-->");
        if (rest.substr(0, 9) == u"<![CDATA[") {
            const std::size_t end = xml_.find(u"]]>", open + 9);
            keepText(xml_.substr(open + 9, end == std::u16string_view::npos ? std::u16string_view::npos : end - open - 9),
                     false);
            return past(open, u"]]>");
        }
        if (rest.substr(0, 2) == u"<?") return past(open, u"?>");
        if (rest.substr(0, 2) == u"<!") return past(open, u">");
        const std::size_t end = tagEnd(open);
        const bool closing = rest.size() > 1 && rest[1] == u'/';
        std::size_t nameEnd = open + (closing ? 2 : 1);
        while (nameEnd < end && !xmlSpace(xml_[nameEnd]) && xml_[nameEnd] != u'/' && xml_[nameEnd] != u'>') ++nameEnd;
        const std::u16string_view name = localName(xml_.substr(open + (closing ? 2 : 1), nameEnd - open - (closing ? 2 : 1)));
        const bool empty = end >= 2 && end <= xml_.size() && xml_[end - 2] == u'/';
        if (!closing) enter(name);
        if (closing || empty) leave();
        return end;
    }

    std::size_t past(std::size_t from, std::u16string_view mark) const {
        const std::size_t at = xml_.find(mark, from);
        return at == std::u16string_view::npos ? xml_.size() : at + mark.size();
    }

    // Behind the ">" of a tag; a ">" inside a quoted attribute value does not end it.
    std::size_t tagEnd(std::size_t open) const {
        char16_t quote = 0;
        for (std::size_t i = open + 1; i < xml_.size(); ++i) {
            if (quote) {
                if (xml_[i] == quote) quote = 0;
            } else if (xml_[i] == u'"' || xml_[i] == u'\'') {
                quote = xml_[i];
            } else if (xml_[i] == u'>') {
                return i + 1;
            }
        }
        return xml_.size();
    }

    bool inside(std::u16string_view action, std::u16string_view field) const {
        const std::size_t depth = path_.size();
        return depth >= 3 && path_[depth - 3] == u"Actions" && path_[depth - 2] == action && path_[depth - 1] == field;
    }

    void enter(std::u16string_view name) {
        path_.emplace_back(name);
        text_.clear();
        const std::size_t depth = path_.size();
        if (depth >= 2 && path_[depth - 2] == u"Actions" && (name == u"Exec" || name == u"ComHandler"))
            action_ = TaskCommand{};
    }

    void leave() {
        if (path_.empty()) return;
        if (inside(u"Exec", u"Command") || inside(u"ComHandler", u"ClassId")) action_.program = trimmed(text_);
        if (inside(u"Exec", u"Arguments")) action_.arguments = trimmed(text_);
        const std::size_t depth = path_.size();
        if (depth >= 2 && path_[depth - 2] == u"Actions" && (path_.back() == u"Exec" || path_.back() == u"ComHandler"))
            commands_.push_back(action_);
        path_.pop_back();
        text_.clear();
    }

    void keepText(std::u16string_view text, bool decode) {
        if (decode)
            appendDecoded(text_, text);
        else
            text_ += text;
    }

    std::u16string_view xml_;
    std::vector<std::u16string> path_;
    std::u16string text_;
    TaskCommand action_;
    std::vector<TaskCommand> commands_;
};

// The fixed part of a .job file: the application name's offset stands at
// byte 20; the variable part begins at byte 68.
constexpr std::size_t kNameOffsetField = 20;
constexpr std::size_t kFixedLength = 68;

std::optional<std::uint16_t> word(std::string_view bytes, std::size_t at) {
    if (at + 2 > bytes.size()) return std::nullopt;
    return static_cast<std::uint16_t>(static_cast<unsigned char>(bytes[at]) |
                                      static_cast<unsigned char>(bytes[at + 1]) << 8);
}

// A counted string: its length in characters, its terminating zero
// included, then the characters. `at` moves behind it.
std::optional<std::u16string> countedString(std::string_view bytes, std::size_t& at) {
    const auto count = word(bytes, at);
    if (!count || at + 2 + std::size_t{*count} * 2 > bytes.size()) return std::nullopt;
    std::u16string text = fromUtf16(bytes.substr(at + 2, std::size_t{*count} * 2), false);
    at += 2 + std::size_t{*count} * 2;
    return text.substr(0, text.find(u'\0'));
}

}  // namespace

std::u16string textFileUnits(std::string_view bytes) {
    if (bytes.substr(0, 2) == "\xFF\xFE") return fromUtf16(bytes.substr(2), false);
    if (bytes.substr(0, 2) == "\xFE\xFF") return fromUtf16(bytes.substr(2), true);
    if (bytes.substr(0, 3) == "\xEF\xBB\xBF") return fromUtf8(bytes.substr(3));
    if (bytes.size() >= 2 && bytes[1] == '\0') return fromUtf16(bytes, false);
    return fromUtf8(bytes);
}

std::vector<TaskCommand> taskXmlCommands(std::u16string_view xml) { return TaskXmlReader(xml).read(); }

std::optional<TaskCommand> jobFileCommand(std::string_view bytes) {
    const auto nameOffset = word(bytes, kNameOffsetField);
    if (bytes.size() < kFixedLength || !nameOffset || *nameOffset < kFixedLength) return std::nullopt;
    std::size_t at = *nameOffset;
    auto program = countedString(bytes, at);
    auto arguments = program ? countedString(bytes, at) : std::nullopt;
    if (!arguments) return std::nullopt;
    return TaskCommand{std::move(*program), std::move(*arguments)};
}

}  // namespace tv
