#pragma once

#include "host/master/base_parameters_controller.h"
#include "host/master/master_controller.h"
#include "params/parameter_ids.h"
#include "params/process_view_mode.h"

#include <array>
#include <atomic>
#include <cstdint>
#include <span>

namespace velmora {

/// Keeps the rack consistent: a Position change pushes the modules between, one Monitor is on at a time, a
/// new kind of insert starts from its defaults. Also the host's view of the whole state as a chunk.
///
/// Reactions run on whichever thread a change arrives, one at a time: the adapter sees to that.
class VelmoraMonoController : public QORBaseParametersController {
public:
    static constexpr std::size_t kChunkSize = 19209;
    static constexpr std::size_t kChunkHeaderSize = 224;
    static constexpr std::int32_t kChunkVersion = 1200;

    /// @param masterController the way to the host; outlives the controller.
    explicit VelmoraMonoController(QORMasterController* masterController);
    ~VelmoraMonoController() override;
    VelmoraMonoController(const VelmoraMonoController&) = delete;
    VelmoraMonoController& operator=(const VelmoraMonoController&) = delete;

    void parameterChanged(std::int32_t id, double value) override;
    std::int32_t getChunk(void** data) override;
    void setChunk(const void* data, std::int32_t size) override;
    void idle() override {}

    /// While on, Position changes only note their place: the sender places every module itself.
    void setBatchPositions(bool on) { batchPositions = on; }

    /// A whole set of values is being sent; reactions are off.
    bool isLoading() const { return loading; }
    std::int32_t currentViewMode() const { return viewMode.load(std::memory_order_relaxed); }
    std::int32_t currentSelectedMini() const { return selectedMini.load(std::memory_order_relaxed); }
    void setSelectedMini(std::int32_t localId) { selectedMini.store(localId, std::memory_order_relaxed); }

private:
    void fixedTypeChanged(const RoleWindow& window, double value);
    void insertTypeChanged(const RoleWindow& window, double value);
    void positionChanged(const RoleWindow& window, double value);
    void moveModule(int from, int to);
    void monitorChanged(ParameterId id, double value);
    void clearMonitors();
    void setViewMode(std::int32_t mode);

    void writeHeader(std::span<std::uint8_t> header) const;
    void sendCurrentValues();
    void takeHeader(std::span<const std::uint8_t> header);
    void repairOldLimiter();

    QORMasterController* master;
    bool loading = false;
    std::int32_t insertXType = 0;
    std::int32_t insertYType = 0;
    std::array<ParameterId, kRoleCount> positionTable{16, 48, 80, 112, 144, 192, 224, 256, 304};
    bool reorderBusy = false;
    bool batchPositions = false;
    std::atomic<std::int32_t> viewMode{0};
    std::atomic<std::int32_t> selectedMini{-1}; // local id of the module open in the Mini view
    std::array<std::uint8_t, kChunkSize> chunkBuffer{};
};

} // namespace velmora
