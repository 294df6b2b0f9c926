#include "params/velmora_mono_controller.h"

#include "params/catalogue.h"

#include <algorithm>

namespace velmora {

namespace {

constexpr double kPositionStep = 0.125;
constexpr int kLastPosition = kRoleCount - 1;

std::int32_t decodeStep(double value, double steps)
{
    return static_cast<std::int32_t>(value * steps + 0.5);
}

} // namespace

VelmoraMonoController::VelmoraMonoController(QORMasterController* masterController) : master(masterController)
{
    viewMode.store(ProcessViewMode::enter(*master), std::memory_order_relaxed);
}

VelmoraMonoController::~VelmoraMonoController()
{
    ProcessViewMode::leave(*master);
}

void VelmoraMonoController::parameterChanged(std::int32_t id, double value)
{
    if (id == kViewModeId) return setViewMode(decodeStep(value, 3.0));
    if (id == kBeginBulkCommand || id == kEndBulkCommand) {
        loading = id == kBeginBulkCommand;
        return;
    }
    const RoleWindow* window = windowOf(id);
    if (window == nullptr) return;
    switch (id - window->windowBase) {
    case kTypeOffset:
        return isInsert(window->role) ? insertTypeChanged(*window, value) : fixedTypeChanged(*window, value);
    case kPositionOffset:
        return positionChanged(*window, value);
    case kMuteOffset:
    case kSoloOffset:
        return clearMonitors();
    case kMonitorOffset:
        return monitorChanged(id, value);
    default:
        return;
    }
}

void VelmoraMonoController::fixedTypeChanged(const RoleWindow& window, double value)
{
    if (decodeStep(value, 15.0) == 0 && !loading) master->setParameter(window.windowBase + kSoloOffset, 0.0);
    clearMonitors();
}

void VelmoraMonoController::insertTypeChanged(const RoleWindow& window, double value)
{
    std::int32_t& type = window.role == Role::InsertX ? insertXType : insertYType;
    const std::int32_t code = insertCodeInController(value);
    const ModuleKind kind = moduleKind(code);
    const bool newDefaults = kind != moduleKind(type) || kind == ModuleKind::Special;
    if (code != type && !loading && newDefaults)
        for (ParameterId offset = kOwnOffset; offset <= kLastOwnOffset; ++offset)
            master->setParameter(window.windowBase + offset, moduleDefault(code, offset));
    type = code;
    if (code == 0 && !loading) master->setParameter(window.windowBase + kSoloOffset, 0.0);
    clearMonitors();
}

void VelmoraMonoController::positionChanged(const RoleWindow& window, double value)
{
    const int target = std::clamp(decodeStep(value, kLastPosition), 0, kLastPosition);
    if (batchPositions || loading) {
        positionTable[static_cast<unsigned>(target)] = window.windowBase;
        return;
    }
    if (reorderBusy) return;
    reorderBusy = true;
    const auto place = std::find(positionTable.begin(), positionTable.end(), window.windowBase);
    if (place != positionTable.end()) moveModule(static_cast<int>(place - positionTable.begin()), target);
    reorderBusy = false;
}

// As in a list: the modules between the two places move by one, and each is told its new position.
void VelmoraMonoController::moveModule(int from, int to)
{
    const auto tell = [this](int i) {
        master->setParameter(positionTable[static_cast<unsigned>(i)] + kPositionOffset, i * kPositionStep);
    };
    const auto begin = positionTable.begin();
    if (to > from) {
        std::rotate(begin + from, begin + from + 1, begin + to + 1);
        for (int i = from; i < to; ++i) tell(i);
    } else if (to < from) {
        std::rotate(begin + to, begin + from, begin + from + 1);
        for (int i = from; i > to; --i) tell(i);
    }
}

void VelmoraMonoController::monitorChanged(ParameterId id, double value)
{
    if (value <= 0.5) return;
    clearMonitors();
    master->setParameter(id, value);
}

void VelmoraMonoController::clearMonitors()
{
    if (loading) return;
    for (const RoleWindow& window : kRoleWindows)
        master->setParameter(window.windowBase + kMonitorOffset, 0.0);
}

void VelmoraMonoController::setViewMode(std::int32_t mode)
{
    ProcessViewMode::set(mode);
    viewMode.store(ProcessViewMode::get(), std::memory_order_relaxed);
}

} // namespace velmora
