// The time of day, as the user's system tells it.
#pragma once

#include <string>

namespace tv {

class Clock {
public:
    virtual ~Clock() = default;

    // Seconds since local midnight, with the fraction the system gives. It
    // starts again from 0 at midnight.
    virtual double secondsSinceMidnight() const = 0;

    // The present date in the user's short date format and the present time in
    // the user's time format, as the system writes them.
    struct DateTimeText {
        std::string date;
        std::string time;
    };
    virtual DateTimeText localDateTime() const = 0;
};

}  // namespace tv
