#pragma once

typedef struct _PangoContext PangoContext;

namespace velmora::Qorvane {

/// Where faces come from: a font map of our own, so that a host's is left alone. There is one in a process,
/// however often the library is loaded; it stays with the pinned toolkit. Needs `openToolkit()`.
class FontSource {
public:
    static FontSource& ofProcess();

    /// Pango's objects stand no two threads at once; all that hang on this context need the lock.
    void lock();
    void unlock();
    PangoContext* context() const;

private:
    FontSource() = default;
};

} // namespace velmora::Qorvane
