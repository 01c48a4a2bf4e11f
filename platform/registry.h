// The system's registry calls, with what their callers need of them: a key
// opened in either view of a 64-bit system, value names and data in full,
// whatever their length, and names exact even where the system's code page
// cannot spell them. Results are the system's own numbers (0 for success).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tv {

namespace hive {
inline constexpr std::uint32_t ClassesRoot = 0x80000000;
inline constexpr std::uint32_t CurrentUser = 0x80000001;
inline constexpr std::uint32_t LocalMachine = 0x80000002;
}  // namespace hive

// A name or text as the registry holds it. `text` is its spelling in the
// system's code page, as the ANSI calls give it; `exact` holds the registry's
// own UTF-16 only where that spelling loses something (a character the code
// page has no letter for), and is empty otherwise.
struct RegText {
    std::string text;
    std::u16string exact;

    RegText() = default;
    explicit RegText(std::string spelled) : text(std::move(spelled)) {}
    RegText(std::string spelled, std::u16string wide) : text(std::move(spelled)), exact(std::move(wide)) {}
    bool spelledExactly() const { return exact.empty(); }
    bool empty() const { return text.empty() && exact.empty(); }
    bool operator==(const RegText&) const = default;
};

// Two parts of a key path or an entry's name, joined by `separator`: exact
// where either part is. A part spelled in the code page goes into the exact
// form byte for byte, which is right for ASCII only: the parts joined to a
// name read from the registry are the program's own (the watched keys, the
// value names it asks for), which are plain ASCII.
RegText joinedRegText(const RegText& front, std::string_view separator, const RegText& back);

// On a 64-bit system a key can exist twice: in the 64-bit view and in the
// 32-bit one (where 32-bit installers write). Native is the program's own.
enum class RegView { Native, Other };
enum class RegAccess { All, Read };

struct RegValue {
    std::uint32_t type = 0;
    std::string bytes;     // the data as the ANSI call gives it: strings in the code page
    std::u16string exact;  // a string's data in UTF-16, kept only where `bytes` cannot spell it
};

class Registry {
public:
    using Key = std::uintptr_t;  // an open key's handle as a number; 0 for none
    virtual ~Registry() = default;

    // The other view's width in bits: 32 for a 64-bit program, 64 for a
    // 32-bit program on a 64-bit system, 0 where there is only one view.
    virtual int otherViewBits() const = 0;

    // Opens `subKey` of `root` in `view` with all access (0xF003F) or for
    // reading into `key`; on failure `key` becomes 0, as the system leaves
    // the handle, so that no stale handle is used afterwards. The other view
    // opens only where it is a key of its own: where the system has one view,
    // or both views share the key, the answer is 2 (not found). A path that
    // holds a name the code page cannot spell opens by its exact form.
    virtual long openKey(std::uint32_t root, const RegText& subKey, RegView view, RegAccess access, Key& key) = 0;
    // The name of sub-key number `index`, exactly as the registry holds it;
    // 259 behind the last.
    virtual long enumKey(Key key, std::uint32_t index, RegText& name) = 0;
    // The name of value number `index`, whatever its length; 259 behind the last.
    virtual long enumValue(Key key, std::uint32_t index, RegText& name) = 0;
    // The value's type and data in full, whatever their length. On failure
    // `value` is left as it was.
    virtual long queryValue(Key key, const RegText& name, RegValue& value) = 0;
    virtual long deleteValue(Key key, const RegText& name) = 0;
    virtual long closeKey(Key key) = 0;
};

}  // namespace tv
