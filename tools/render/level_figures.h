#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>

namespace velmora::render {

/// Peak and RMS of everything that it is given.
class LevelFigures {
public:
    /// @return false if a sample isn't finite.
    bool add(const double* samples, std::size_t count)
    {
        bool finite = true;
        for (std::size_t i = 0; i < count; ++i) {
            const double magnitude = std::fabs(samples[i]);
            finite = finite && std::isfinite(magnitude);
            if (magnitude > peak_) peak_ = magnitude;
            squares_ += magnitude * magnitude;
        }
        count_ += count;
        return finite;
    }
    double peak() const { return peak_; }
    double rms() const { return count_ > 0 ? std::sqrt(squares_ / static_cast<double>(count_)) : 0.0; }

private:
    double peak_ = 0.0;
    double squares_ = 0.0;
    std::uint64_t count_ = 0;
};

/// A linear level as "-6.02 dB"; "-oo dB" for silence.
std::string decibelText(double level);

/// "peak -3.00 dB, RMS -18.20 dB"
std::string levelText(const LevelFigures& figures);

} // namespace velmora::render
