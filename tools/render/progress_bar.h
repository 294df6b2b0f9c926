#pragma once

#include <chrono>
#include <cstdint>

namespace velmora::render {

/// A bar on the terminal for work that takes longer than a moment; nothing if stderr is no terminal.
class ProgressBar {
public:
    /// @param total in any unit; 0 if unknown, then there is no bar.
    explicit ProgressBar(std::int64_t total);
    /// Takes the bar off the screen.
    ~ProgressBar();
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    void show(std::int64_t done);

private:
    std::int64_t total_;
    bool enabled_;
    bool drawn_ = false;
    std::chrono::steady_clock::time_point next_;
};

} // namespace velmora::render
