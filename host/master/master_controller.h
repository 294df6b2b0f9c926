#pragma once

#include <cstdint>

namespace velmora {

class QORBasePresetStore;
class QORBaseParametersController;

/// The way to the host for controller, preset store and editor.
class QORMasterController {
public:
    virtual ~QORMasterController() = default;

    /// Sends a parameter (or a command from id 819 on) to everyone whom it concerns. @param value normalised.
    virtual void setParameter(std::int32_t id, double value) = 0;
    /// Keeps a user setting 0..1 by id, in single precision.
    virtual void writeStoredSetting(std::int32_t id, double value) = 0;
    /// Leaves `out` alone if nothing valid is stored.
    virtual void readStoredSetting(std::int32_t id, double* out) = 0;
    /// A change by the user at a control of the editor: the host hears it first, then the rules react.
    virtual void editParameter(std::int32_t id, double value) { setParameter(id, value); }
    /// From here to `endGesture` the edits of this id are one touch for the host. One id at a time.
    virtual void beginGesture(std::int32_t) {}
    virtual void endGesture(std::int32_t) {}
    virtual QORBasePresetStore* getPresetStore() = 0;
    virtual QORBaseParametersController* getController() = 0;

    /// From here to `endBulk` on the same thread, reactions to other threads' changes wait; they run then.
    /// Nests. Not for the audio thread.
    virtual void beginBulk() {}
    virtual void endBulk() {}
};

/// A bulk change for as long as this lives.
class BulkScope {
public:
    explicit BulkScope(QORMasterController& masterController) : master(masterController)
    {
        master.beginBulk();
    }
    ~BulkScope() { master.endBulk(); }
    BulkScope(const BulkScope&) = delete;
    BulkScope& operator=(const BulkScope&) = delete;

private:
    QORMasterController& master;
};

} // namespace velmora
