#pragma once

#include "platform/values/Date.h"

namespace bravona {

// Where today comes from.
class Clock {
public:
    virtual ~Clock() = default;
    [[nodiscard]] virtual Date today() const = 0;
};

class SystemClock final : public Clock {
public:
    [[nodiscard]] Date today() const override;
};

// Stands still on a day.
class FixedClock final : public Clock {
public:
    explicit FixedClock(Date day) : day_(day) {}
    [[nodiscard]] Date today() const override { return day_; }
    void set(Date day) { day_ = day; }

private:
    Date day_;
};

}  // namespace bravona
