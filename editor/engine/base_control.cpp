#include "editor/engine/base_control.h"

#include "editor/engine/engine_view.h"
#include "editor/engine/whole_characters.h"
#include "params/catalogue.h"
#include "presets/factory_bank.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>

namespace velmora {
namespace {

std::atomic<QORBaseControl*> hoveredControl = nullptr;

void forgetHovered(QORBaseControl* control)
{
    hoveredControl.compare_exchange_strong(control, nullptr);
}

/// Tags that the catalogue knows; ids from 819 on are commands, without a value.
bool hasDefault(std::uint32_t tag)
{
    return tag < static_cast<std::uint32_t>(kIdCount);
}

double catalogueDefault(std::uint32_t tag)
{
    return hasDefault(tag) ? defaultValue(static_cast<ParameterId>(tag)) : 0.0;
}

/// What the program starts with: the first factory preset.
double startValue(std::uint32_t tag)
{
    static const auto first = [] {
        std::array<double, kHostParameterCount> values{};
        for (ParameterId id = 0; id < kHostParameterCount; ++id) values[id] = defaultValue(id);
        factoryPreset(0, values.data(), nullptr, nullptr);
        return values;
    }();
    return tag < first.size() ? first[tag] : catalogueDefault(tag);
}

} // namespace

QORBaseControl::QORBaseControl(const Rect& place, std::uint32_t controlTag, QORBitmap* picture,
                               std::uint32_t controlKind)
    : bitmap(picture),
      rect(place),
      value(startValue(controlTag)),
      tag(controlTag),
      kind(controlKind),
      defaultValue(catalogueDefault(controlTag)),
      designRect(place)
{
}

QORBaseControl::~QORBaseControl()
{
    forgetHovered(this);
}

void QORBaseControl::setDefaultValue(double newDefault)
{
    defaultValue = newDefault;
}

double QORBaseControl::getDefaultValue()
{
    return defaultValue;
}

void QORBaseControl::rescale(double factor)
{
    if (!std::isfinite(factor) || factor <= 0.0) return;
    rect = rectAt(rect.left, rect.top, designRect.width() * factor, designRect.height() * factor);
    if (peer != nullptr) peer->setViewSize(rect);
}

void QORBaseControl::draw(QORDrawContext*) {}

int QORBaseControl::onMouseDown(Point, std::uint32_t)
{
    return kMouseNotHandled;
}

int QORBaseControl::onMouseUp(Point, std::uint32_t)
{
    return kMouseNotHandled;
}

int QORBaseControl::onMouseMoved(Point, std::uint32_t)
{
    return kMouseNotHandled;
}

int QORBaseControl::onMouseEntered(Point, std::uint32_t)
{
    if (hintTracking) hoveredControl = this;
    return kMouseHandled;
}

int QORBaseControl::onMouseExited(Point, std::uint32_t)
{
    if (hintTracking) forgetHovered(this);
    return kMouseHandled;
}

void QORBaseControl::onMouseWheel(Point, float, std::uint32_t) {}

void QORBaseControl::commitValue(double newValue)
{
    if (std::isnan(newValue)) return;
    state = 0;
    setValue(newValue);
    if (peer != nullptr) peer->valueChanged();
}

void QORBaseControl::setValue(double newValue)
{
    if (std::isnan(newValue)) return;
    value = std::clamp(newValue, 0.0, 1.0);
    if (peer != nullptr) peer->setValue(value);
}

void QORBaseControl::setDirty(bool dirty)
{
    if (peer != nullptr) peer->setDirty(dirty);
}

void QORBaseControl::setHint(std::string_view text)
{
    if (!hint) hint = std::make_unique<char[]>(kMaxHintBytes + 1);
    const std::size_t length = wholeCharacters(text, kMaxHintBytes);
    std::copy_n(text.begin(), length, hint.get());
    hint[length] = '\0';
    if (peer != nullptr) peer->setTooltip(getHint());
}

std::string_view QORBaseControl::getHint() const
{
    return hint ? std::string_view(hint.get()) : std::string_view();
}

void QORBaseControl::setRect(const Rect& place)
{
    rect = place;
    if (peer != nullptr) peer->setViewSize(rect);
}

QORBaseControl* QORBaseControl::hovered()
{
    return hoveredControl;
}

} // namespace velmora
