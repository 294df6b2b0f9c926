#pragma once

#include "host/master/base_editor.h"

#include <memory>

namespace velmora {

class QORMasterGraphicalEngine;
class QORViewContainer;

/// The editor below the preset bar. Lives as long as its engine; its views live as long as a window.
class VelmoraMonoEditor : public QORBaseEditor {
public:
    static constexpr double kWidth = 1515.0; ///< of the plug-in area in the Full view, in pixels
    static constexpr double kHeight = 660.0;

    explicit VelmoraMonoEditor(QORMasterGraphicalEngine& graphicalEngine);

    void open() override;
    void close() override;
    void setParameter(std::int32_t id, double value) override;
    void controlChanged(std::int32_t tag, double value) override;
    void idle() override;

private:
    void openRoot();
    void openRightPanel();
    void openNamePlate();

    QORMasterGraphicalEngine& engine;
    QORViewContainer* root = nullptr; // the engine's, null while no window is open
};

std::unique_ptr<QORBaseEditor> createVelmoraMonoEditor(QORMasterGraphicalEngine& engine);

} // namespace velmora
