#pragma once

#include "editor/engine/resource.h"
#include "editor/engine/toolkit/view/view.h"
#include "editor/engine/view_container.h"

#include <memory>
#include <vector>

namespace velmora::Qorvane {

class CControlWidget;

/// A container on the toolkit. Owns the controls that were ever added to it and their widgets; other
/// containers in it belong to the engine.
class CQORViewContainer : public velmora::QORViewContainer, public CView {
public:
    explicit CQORViewContainer(const Rect& place);
    ~CQORViewContainer() override;

    void setViewSize(const Rect& place) override { setPlace(place); }
    void setBackground(QORBitmap* bitmap) override;
    void setBackgroundResource(std::uint32_t id) override;
    void setBackgroundColor(Rgba colour) override;
    void invalidate() override { CView::invalidate(); }
    void redraw() override;
    bool isVisible() override { return getFrame() != nullptr; }
    void setContinuousRedraw(bool on) override;
    void addControl(QORBaseControl* control) override;
    void removeControl(QORBaseControl* control) override;
    std::uint32_t getTagAt(Point point, std::uint32_t buttons) override;
    void setMouseTransparent(bool transparent) override { mouseTransparent = transparent; }

    void addChild(CView* child);
    void removeChild(CView* child);
    bool hasChild(const CView* child) const;
    /// The outermost container is told its frame, all others ask their parents.
    void setFrame(QORFrame* outermostFrame) { frame = outermostFrame; }

    void draw(CQORDrawContext& context, const Rect& damage) override;
    bool covers(const Rect& part) const override;
    CView* viewAt(Point point) override;
    void onRemoved() override;
    QORFrame* getFrame() const override;

private:
    bool hasOpaqueGround() const;
    std::size_t firstVisibleChild(const Rect& damage) const;
    void drawBackground(CQORDrawContext& context) const;
    CControlWidget* widgetOf(const QORBaseControl* control) const;

    std::vector<CView*> children; // from the back to the front
    std::vector<std::unique_ptr<QORBaseControl>> controls;
    std::vector<std::unique_ptr<CControlWidget>> widgets;
    ResourceRef<QORBitmap> background;
    Rgba colour{0, 0, 0, 0};
    QORFrame* frame = nullptr;
    bool continuousRedraw = false;
    bool mouseTransparent = false;
};

} // namespace velmora::Qorvane
