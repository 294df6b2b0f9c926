#include "editor/velmora_mono_editor.h"

#include "editor/engine/bitmaps.h"
#include "editor/engine/kick_button.h"
#include "editor/engine/master_graphical_engine.h"
#include "editor/engine/view_container.h"

namespace velmora {

namespace {

constexpr std::uint32_t kMainBackground = 30000;
constexpr std::uint32_t kRightPanelBackground = 30001;
constexpr std::uint32_t kNamePlate = 30005;

constexpr std::uint32_t kAboutTag = 794;

constexpr double kRackRight = 1420.0;
constexpr double kRackTop = 10.0;
constexpr double kRightPanelWidth = 94.0;
constexpr double kRightPanelHeight = 629.0;
constexpr double kNamePlateWidth = 254.0;
constexpr double kNamePlateHeight = 28.0;
constexpr double kNamePlateTop = 631.0;

} // namespace

VelmoraMonoEditor::VelmoraMonoEditor(QORMasterGraphicalEngine& graphicalEngine) : engine(graphicalEngine) {}

void VelmoraMonoEditor::open()
{
    openRoot();
    if (root == nullptr) return;
    openRightPanel();
    openNamePlate();
}

void VelmoraMonoEditor::openRoot()
{
    root = engine.createViewContainer(rectAt(0.0, 0.0, kWidth, kHeight));
    if (root == nullptr) return;
    if (QORBitmap* const background = bitmapOf(kMainBackground); background->getWidth() > 0) {
        engine.setBackground(background);
        root->setBackground(background);
    }
    engine.addView(root);
}

void VelmoraMonoEditor::openRightPanel()
{
    QORViewContainer* const panel =
        engine.createViewContainer(rectAt(kRackRight, kRackTop, kRightPanelWidth, kRightPanelHeight));
    if (panel == nullptr) return;
    panel->setBackground(bitmapOf(kRightPanelBackground));
    engine.addView(panel);
}

void VelmoraMonoEditor::openNamePlate()
{
    QORBitmap* const art = bitmapOf(kNamePlate);
    if (art->getWidth() == 0) return;
    const Rect place =
        rectAt((kWidth - kNamePlateWidth) * 0.5, kNamePlateTop, kNamePlateWidth, kNamePlateHeight);
    auto* const plate = new QORKickButton(place, kAboutTag, art);
    plate->setMouseEnabled(false); // it opens nothing yet
    root->addControl(plate);
}

void VelmoraMonoEditor::close()
{
    root = nullptr;
}

// The chassis shows no values.
void VelmoraMonoEditor::setParameter(std::int32_t, double) {}
void VelmoraMonoEditor::controlChanged(std::int32_t, double) {}
void VelmoraMonoEditor::idle() {}

std::unique_ptr<QORBaseEditor> createVelmoraMonoEditor(QORMasterGraphicalEngine& engine)
{
    return std::make_unique<VelmoraMonoEditor>(engine);
}

} // namespace velmora
