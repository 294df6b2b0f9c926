// What the controller does with a chunk beside the store.

#include "host/master/base_preset_store.h"
#include "host/master/master_controller.h"
#include "params/velmora_mono_controller.h"

#include <gtest/gtest.h>

#include <new>
#include <vector>

namespace velmora::test {
namespace {

class ExhaustedStore : public QORBasePresetStore {
public:
    std::size_t writeChunkBlock(std::span<std::uint8_t>) override { return 0; }
    BlockLoad readChunkBlock(std::span<const std::uint8_t>) override { throw std::bad_alloc(); }
    float currentValue(std::int32_t) const override { return 0.0f; }
};

class StoreOnlyMaster : public QORMasterController {
public:
    void setParameter(std::int32_t, double) override {}
    void writeStoredSetting(std::int32_t, double) override {}
    void readStoredSetting(std::int32_t, double*) override {}
    QORBasePresetStore* getPresetStore() override { return &store; }
    QORBaseParametersController* getController() override { return nullptr; }

    ExhaustedStore store;
};

TEST(ControllerChunk, ReactionsComeBackAfterALoadThatRanOutOfMemory)
{
    StoreOnlyMaster master;
    VelmoraMonoController controller(&master);
    const std::vector<std::uint8_t> bytes(VelmoraMonoController::kChunkSize);
    EXPECT_THROW(controller.setChunk(bytes.data(), static_cast<std::int32_t>(bytes.size())), std::bad_alloc);
    EXPECT_FALSE(controller.isLoading());
    void* data = &master;
    EXPECT_EQ(controller.getChunk(&data), 0) << "the store couldn't write its block";
    EXPECT_EQ(data, &master);
}

} // namespace
} // namespace velmora::test
