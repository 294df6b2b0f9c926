#include "editor/engine/toolkit/wrapper/view_wrapper.h"

#include "host/master/master_controller.h"

namespace velmora::Qorvane {

QORViewWrapper::QORViewWrapper(QORMasterController& masterController, const EditorFactory& factory)
    : QOREditorWrapperV2(factory), master(masterController)
{
    setPresetHandler(master.getPresetStore());
    setStateBlock(master.getController());
}

void QORViewWrapper::sendEdit(std::int32_t id, double value)
{
    master.editParameter(id, value);
}

void QORViewWrapper::controlBeginEdit(std::uint32_t tag)
{
    const CallScope call(*this);
    master.beginGesture(static_cast<std::int32_t>(tag));
}

void QORViewWrapper::controlEndEdit(std::uint32_t tag)
{
    const CallScope call(*this);
    master.endGesture(static_cast<std::int32_t>(tag));
}

} // namespace velmora::Qorvane
