#pragma once

#include <cstdint>

namespace velmora {

/// The rules that tie parameters together, and the host's view of the whole state.
class QORBaseParametersController {
public:
    virtual ~QORBaseParametersController() = default;

    /// Called on every accepted change; changes sent in reaction don't come back here.
    virtual void parameterChanged(std::int32_t id, double value) = 0;
    /// @return size in bytes of the state chunk, `data` set to a buffer valid until the next call; 0 on
    /// failure.
    virtual std::int32_t getChunk(void** data) = 0;
    /// Loads a state chunk; refuses malformed bytes and then leaves the state as it was.
    virtual void setChunk(const void* data, std::int32_t size) = 0;
    virtual void idle() = 0;
};

} // namespace velmora
