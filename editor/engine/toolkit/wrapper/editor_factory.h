#pragma once

#include "host/master/base_editor.h"

#include <memory>

namespace velmora {
class QORMasterGraphicalEngine;
}

namespace velmora::Qorvane {

/// How the engine gets its editor.
struct EditorFactory {
    std::unique_ptr<QORBaseEditor> (*create)(QORMasterGraphicalEngine& engine);
    double width; ///< of the plug-in area at the start, in pixels
    double height;
};

/// What the engine asks of whoever holds its window.
class WindowHost {
public:
    virtual ~WindowHost() = default;
    /// The window has a new size in pixels of the screen; the host is to follow.
    virtual void windowResized(int width, int height) = 0;
};

} // namespace velmora::Qorvane
