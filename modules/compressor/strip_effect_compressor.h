#pragma once

#include "engine/strip_effect.h"
#include "modules/compressor/opto_fet_vca_compressor.h"

namespace velmora {

struct CompressorBlock;

/// Compressor module: opto, FET and VCA levelling with side chain, make-up gain and parallel mix. No
/// look-ahead, no latency.
class StripEffectCompressor : public StripEffect, private OptoFetVcaCompressor {
public:
    StripEffectCompressor(std::uint32_t windowBaseId, std::uint32_t meterBaseId, std::uint32_t localBaseId);

    void reset() override;
    void setSampleRate(double hz) override;
    void setParameter(std::uint32_t id, double value) override;
    void loadDefaults() override;
    void processStereo(const AudioRecord& in, const AudioRecord& out, std::int32_t frames) override;
    void processMono(const AudioRecord& in, const AudioRecord& out, std::int32_t frames) override;
    void getMeter(std::uint32_t id, double* out) override;
    void resetMeters() override;
    void activate() override;
    void deactivate() override;

private:
    void setType(double value);
    bool passesThrough() const { return runFlag == 0 || type == 0; }
    void prepareBlock();
    int keyPair() const { return sideChainSource != 0 ? 1 : 0; }

    template <typename Detector>
    void runMono(Detector KeyChannel::*detector, const AudioRecord& in, const AudioRecord& out,
                 std::int32_t frames);
    template <typename Detector>
    void runStereo(Detector KeyChannel::*detector, const AudioRecord& in, const AudioRecord& out,
                   std::int32_t frames);
    template <typename Detector>
    double runChannel(KeyChannel& channel, Detector KeyChannel::*detector, CompressorControls& to,
                      CompressorBlock& block, std::size_t frames) const;

    std::int32_t monitor = 0; ///< 1: the filtered key is heard
};

} // namespace velmora
