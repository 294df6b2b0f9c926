#pragma once

#include "editor/engine/toolkit/window/native_window.h"

#include <cstdint>

namespace velmora::vst24 {

/// A key as hosts name it. Codes from 128 on carry a character.
Qorvane::KeyPress keyOfHost(std::int32_t virtualKey, std::int32_t modifiers);

} // namespace velmora::vst24
