#pragma once

namespace velmora {

/// Transport as the host tells it, in the host's own units.
struct HostTimeInfo {
    double samplePos = 0.0;
    double sampleRate = 0.0;
    double nanoSeconds = 0.0;
    double ppqPos = 0.0;
    double tempo = 0.0;
    double barStartPos = 0.0;
    double cycleStartPos = 0.0;
    double cycleEndPos = 0.0;
};

/// Host services for the audio engine.
class QORMasterAudioProcessor {
public:
    virtual ~QORMasterAudioProcessor() = default;

    /// @return the host's time, or null if it has none; valid until the next call.
    virtual const HostTimeInfo* getTimeInfo() = 0;
};

} // namespace velmora
