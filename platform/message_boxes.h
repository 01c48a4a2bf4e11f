// Message boxes. Button sets, icons and answers carry the system's own numbers,
// so that a handler can state exactly the box it shows.
#pragma once

#include <string>

namespace tv {

namespace box {
inline constexpr unsigned OkOnly = 0x0;
inline constexpr unsigned OkCancel = 0x1;
inline constexpr unsigned YesNo = 0x4;
inline constexpr unsigned Critical = 0x10;
inline constexpr unsigned Question = 0x20;
inline constexpr unsigned Exclamation = 0x30;
inline constexpr unsigned Information = 0x40;

inline constexpr int Ok = 1;
inline constexpr int Cancel = 2;
inline constexpr int Yes = 6;
inline constexpr int No = 7;
}  // namespace box

inline constexpr const char* kAppTitle = "TarvelonLow";

class MessageBoxes {
public:
    virtual ~MessageBoxes() = default;
    // Shows the box modally and gives the answer's number.
    virtual int show(const std::string& prompt, const std::string& title, unsigned style) = 0;
};

}  // namespace tv
