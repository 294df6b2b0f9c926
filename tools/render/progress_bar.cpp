#include "tools/render/progress_bar.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <string>

namespace velmora::render {

namespace {

constexpr std::chrono::milliseconds kFirst{700};
constexpr std::chrono::milliseconds kInterval{100};
constexpr int kWidth = 40;

} // namespace

ProgressBar::ProgressBar(std::int64_t total)
    : total_(total),
      enabled_(total > 0 && isatty(STDERR_FILENO)),
      next_(std::chrono::steady_clock::now() + kFirst)
{
}

ProgressBar::~ProgressBar()
{
    if (drawn_) std::fputs("\r\033[K", stderr);
}

void ProgressBar::show(std::int64_t done)
{
    if (!enabled_ || std::chrono::steady_clock::now() < next_) return;
    const double share = std::clamp(static_cast<double>(done) / static_cast<double>(total_), 0.0, 1.0);
    std::string bar(kWidth, '.');
    std::fill_n(bar.begin(), static_cast<int>(share * kWidth), '#');
    std::fprintf(stderr, "\r[%s] %3d %%", bar.c_str(), static_cast<int>(share * 100.0));
    std::fflush(stderr);
    drawn_ = true;
    next_ = std::chrono::steady_clock::now() + kInterval;
}

} // namespace velmora::render
