#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

/// Measuring what an editor costs: times, shares of a core, memory. Every figure is a row of a table.
namespace velmora::bench {

using Clock = std::chrono::steady_clock;

inline double millisecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

inline double median(std::vector<double> figures)
{
    if (figures.empty()) return 0.0;
    std::ranges::sort(figures);
    return figures[figures.size() / 2];
}

inline void row(const char* what, const char* format, double figure)
{
    std::printf("| %s | ", what);
    std::printf(format, figure);
    std::printf(" |\n");
    std::fflush(stdout);
}

/// Seconds of a core that this process has had.
inline double processorSeconds()
{
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
    };
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// Percent of a core that calls at a steady pace take, the host's own waking included.
template <class Call>
double shareOfCore(double callsPerSecond, double seconds, const Call& call)
{
    const auto pause =
        std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(1 / callsPerSecond));
    const Clock::time_point start = Clock::now();
    const double before = processorSeconds();
    for (Clock::time_point next = start; millisecondsSince(start) < seconds * 1000; next += pause) {
        std::this_thread::sleep_until(next);
        call();
    }
    return 100.0 * (processorSeconds() - before) / (millisecondsSince(start) / 1000.0);
}

/// Megabytes of this process in memory that aren't shared with others.
inline double privateMegabytes()
{
    std::ifstream rollup("/proc/self/smaps_rollup");
    double kilobytes = 0.0;
    std::string name;
    for (std::string line; std::getline(rollup, line);)
        if (line.starts_with("Private_")) kilobytes += std::stod(line.substr(line.find(':') + 1));
    return kilobytes / 1024.0;
}

/// Has a process of its own measure something, so that nothing is warm. @return its figures
template <class Measure>
std::vector<double> inProcess(const Measure& measure)
{
    int ends[2];
    if (pipe(ends) != 0) return {};
    std::fflush(stdout);
    const pid_t child = fork();
    if (child == 0) {
        const std::vector<double> figures = measure();
        const std::size_t bytes = figures.size() * sizeof(double);
        const bool told = write(ends[1], figures.data(), bytes) == static_cast<ssize_t>(bytes);
        _exit(told ? 0 : 1);
    }
    close(ends[1]);
    std::vector<double> figures;
    for (double figure = 0.0; read(ends[0], &figure, sizeof figure) == sizeof figure;)
        figures.push_back(figure);
    close(ends[0]);
    waitpid(child, nullptr, 0);
    return figures;
}

/// The median of what fresh processes measure.
template <class Measure>
double medianOfProcesses(int processes, const Measure& measure)
{
    std::vector<double> figures;
    for (int i = 0; i < processes; ++i)
        for (const double figure : inProcess(measure)) figures.push_back(figure);
    return median(figures);
}

} // namespace velmora::bench
