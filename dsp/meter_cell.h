#pragma once

#include <atomic>

namespace velmora {

/// A meter reading: written by the audio thread, read by any other. One word, so a reader sees a whole value;
/// readings don't order anything else, hence relaxed.
class MeterCell {
public:
    explicit MeterCell(double value = 0.0) : value_(value) {}
    MeterCell& operator=(double value)
    {
        value_.store(value, std::memory_order_relaxed);
        return *this;
    }
    operator double() const { return value_.load(std::memory_order_relaxed); }

private:
    std::atomic<double> value_;
    static_assert(std::atomic<double>::is_always_lock_free);
};

} // namespace velmora
