#pragma once

#include "host/master/master_audio_processor.h"
#include "host/vst24/audio_effect.h"

namespace velmora::vst24 {

/// The engine's way to the host.
class QORVST24MasterAudioEffect : public QORMasterAudioProcessor {
public:
    explicit QORVST24MasterAudioEffect(AudioEffectX& audioEffect) : effect(audioEffect) {}

    const HostTimeInfo* getTimeInfo() override
    {
        const VstTimeInfo* info = effect.getTimeInfo(0);
        if (info == nullptr) return nullptr;
        lastTime = {info->samplePos, info->sampleRate,  info->nanoSeconds,   info->ppqPos,
                    info->tempo,     info->barStartPos, info->cycleStartPos, info->cycleEndPos};
        return &lastTime;
    }

private:
    AudioEffectX& effect;
    HostTimeInfo lastTime;
};

} // namespace velmora::vst24
