#pragma once

#include <cstdint>

namespace velmora {

class QORMasterController;

/// View of the editor; the chunk, id 792 and the user's settings hold it.
enum class ViewMode : std::int32_t { Full = 0, Resizeable = 1, Mini = 2 };

/// The one view mode of the process: every new editor opens in the mode that was used last. The first
/// controller reads it from the user's settings, the last one to go writes it back.
class ProcessViewMode {
public:
    static constexpr std::int32_t kLastMode = static_cast<std::int32_t>(ViewMode::Mini);

    /// A controller comes. @return the mode that it starts in.
    static std::int32_t enter(QORMasterController& master);
    /// A controller goes.
    static void leave(QORMasterController& master);
    static void set(std::int32_t mode);
    static std::int32_t get();
};

} // namespace velmora
