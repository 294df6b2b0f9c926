#pragma once

#include "editor/engine/toolkit/wrapper/editor_wrapper_v2.h"

namespace velmora {
class QORMasterController;
}

namespace velmora::Qorvane {

/// The engine as it is made: what the user does goes to the host's side. It outlives that side, to which it
/// doesn't speak any more once its window is closed.
class QORViewWrapper final : public QOREditorWrapperV2 {
public:
    QORViewWrapper(QORMasterController& masterController, const EditorFactory& factory);
    ~QORViewWrapper() override { closeWindow(); }

protected:
    void sendEdit(std::int32_t id, double value) override;
    void controlBeginEdit(std::uint32_t tag) override;
    void controlEndEdit(std::uint32_t tag) override;

private:
    QORMasterController& master;
};

} // namespace velmora::Qorvane
