#include "params/process_view_mode.h"

#include "host/master/master_controller.h"
#include "params/parameter_ids.h"

#include <algorithm>
#include <atomic>
#include <mutex>

namespace velmora {

namespace {

constexpr double kModes = 3.0;

std::mutex countMutex; // creation and destruction only
int controllers = 0;
std::atomic<std::int32_t> processMode{0};

} // namespace

std::int32_t ProcessViewMode::enter(QORMasterController& master)
{
    const std::scoped_lock lock(countMutex);
    if (controllers++ == 0) {
        double value = 0.0;
        master.readStoredSetting(kViewModeId, &value);
        set(static_cast<std::int32_t>(kModes * value + 0.5));
    }
    return get();
}

void ProcessViewMode::leave(QORMasterController& master)
{
    const std::scoped_lock lock(countMutex);
    if (--controllers == 0) master.writeStoredSetting(kViewModeId, get() / kModes);
}

void ProcessViewMode::set(std::int32_t mode)
{
    processMode.store(std::clamp(mode, 0, kLastMode), std::memory_order_relaxed);
}

std::int32_t ProcessViewMode::get()
{
    return processMode.load(std::memory_order_relaxed);
}

} // namespace velmora
