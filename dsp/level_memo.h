#pragma once

#include "dsp/level_detector.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace velmora {

/// The last blocks that detectors followed, and where that took them. A detector that stands as another did
/// and hears the same samples takes over what is known: along a rack, each module's input meter repeats the
/// output meter of the one before, and modules that pass audio through repeat all of it.
/// Gives what `LevelDetector` gives, bit for bit.
class LevelMemo {
public:
    /// As `LevelDetector::processBlock`.
    void follow(LevelDetector& detector, const double* x, std::int32_t frames, const LevelRates& rates)
    {
        if (frames <= 0 || recall(detector, x, frames, rates)) return;
        const double before = detector.level();
        detector.processBlock(x, frames, rates);
        note(before, x, frames, rates, detector.level());
    }

    /// As `LevelDetector::processBlocks`.
    void follow(LevelDetector& a, const double* xa, LevelDetector& b, const double* xb, std::int32_t frames,
                const LevelRates& rates)
    {
        if (frames <= 0) return;
        if (recall(a, xa, frames, rates)) return follow(b, xb, frames, rates);
        if (recall(b, xb, frames, rates)) return follow(a, xa, frames, rates);
        const double beforeA = a.level();
        LevelDetector startB = b;
        LevelDetector::processBlocks(a, xa, b, xb, frames, rates);
        note(beforeA, xa, frames, rates, a.level());
        if (const double beforeB = startB.level(); !recall(startB, xb, frames, rates))
            note(beforeB, xb, frames, rates, b.level());
    }

private:
    static constexpr std::size_t kEntries = 4; ///< both sides of a module's two meters
    static constexpr std::int32_t kLongest = 64;

    struct Entry {
        double before = 0.0;
        double after = 0.0;
        double attack = 0.0;
        double release = 0.0;
        std::int32_t frames = 0;
        std::array<double, kLongest> samples{};
    };

    static std::size_t bytes(std::int32_t frames)
    {
        return static_cast<std::size_t>(frames) * sizeof(double);
    }

    bool recall(LevelDetector& detector, const double* x, std::int32_t frames, const LevelRates& rates) const
    {
        for (const Entry& entry : entries_) {
            if (entry.before != detector.level() || entry.frames != frames || entry.attack != rates.attack ||
                entry.release != rates.release || std::memcmp(entry.samples.data(), x, bytes(frames)) != 0)
                continue;
            detector.reset(entry.after);
            return true;
        }
        return false;
    }

    void note(double before, const double* x, std::int32_t frames, const LevelRates& rates, double after)
    {
        if (frames > kLongest) return;
        Entry& entry = entries_[next_];
        next_ = (next_ + 1) % kEntries;
        entry.before = before;
        entry.after = after;
        entry.attack = rates.attack;
        entry.release = rates.release;
        entry.frames = frames;
        std::memcpy(entry.samples.data(), x, bytes(frames));
    }

    std::array<Entry, kEntries> entries_{};
    std::size_t next_ = 0;
};

} // namespace velmora
