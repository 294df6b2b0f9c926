#include "host/vst24/host_keys.h"

#include <array>

namespace velmora::vst24 {

namespace {

using Qorvane::Key;

struct NamedKey {
    std::int32_t code;
    Key key;
};

constexpr std::array kNamedKeys{
    NamedKey{1, Key::Backspace}, NamedKey{2, Key::Tab},     NamedKey{4, Key::Return},
    NamedKey{6, Key::Escape},    NamedKey{9, Key::End},     NamedKey{10, Key::Home},
    NamedKey{11, Key::Left},     NamedKey{12, Key::Up},     NamedKey{13, Key::Right},
    NamedKey{14, Key::Down},     NamedKey{15, Key::PageUp}, NamedKey{16, Key::PageDown},
    NamedKey{19, Key::Return},   NamedKey{22, Key::Delete},
};

constexpr std::int32_t kSpaceCode = 7;
constexpr std::int32_t kFirstCharacterCode = 128;
constexpr std::int32_t kCharacterOffset = 80;

enum HostModifiers : std::int32_t { kHostShift = 1, kHostAlternate = 2, kHostCommand = 4, kHostControl = 8 };

std::uint32_t heldKeys(std::int32_t modifiers)
{
    std::uint32_t held = 0;
    if ((modifiers & kHostShift) != 0) held |= kShiftKey;
    if ((modifiers & kHostAlternate) != 0) held |= kAltKey;
    if ((modifiers & (kHostCommand | kHostControl)) != 0) held |= kControlKey;
    return held;
}

std::int32_t characterOf(std::int32_t virtualKey)
{
    if (virtualKey >= kFirstCharacterCode) return virtualKey - kCharacterOffset;
    return virtualKey == kSpaceCode ? ' ' : 0;
}

} // namespace

Qorvane::KeyPress keyOfHost(std::int32_t virtualKey, std::int32_t modifiers)
{
    Qorvane::KeyPress press;
    press.modifiers = heldKeys(modifiers);
    for (const NamedKey& named : kNamedKeys)
        if (named.code == virtualKey) press.key = named.key;
    const std::int32_t character = characterOf(virtualKey);
    if (character < ' ' || character > '~') return press;
    press.letter =
        static_cast<char32_t>(character >= 'A' && character <= 'Z' ? character + ('a' - 'A') : character);
    if ((press.modifiers & (kControlKey | kAltKey)) == 0) press.text = static_cast<char>(character);
    return press;
}

} // namespace velmora::vst24
