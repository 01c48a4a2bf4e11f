#include "platform/win32/win32_system.h"

namespace tv::win32 {

double Win32Clock::secondsSinceMidnight() const {
    SYSTEMTIME now;
    ::GetLocalTime(&now);
    return now.wHour * 3600.0 + now.wMinute * 60.0 + now.wSecond + now.wMilliseconds / 1000.0;
}

Clock::DateTimeText Win32Clock::localDateTime() const {
    SYSTEMTIME now;
    ::GetLocalTime(&now);
    char date[128] = {}, time[128] = {};
    ::GetDateFormatA(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &now, nullptr, date, sizeof date);
    ::GetTimeFormatA(LOCALE_USER_DEFAULT, 0, &now, nullptr, time, sizeof time);
    return {date, time};
}

}  // namespace tv::win32
