#include "tests/support/picture_gap.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace velmora::test {

namespace {

using Triple = std::array<double, 3>;

double linearLight(double channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

Triple rgbOf(std::uint32_t word)
{
    return {((word >> 16) & 0xFF) / 255.0, ((word >> 8) & 0xFF) / 255.0, (word & 0xFF) / 255.0};
}

/// CIE L*a*b* of sRGB under D65 (CIE 15).
Triple labOf(const Triple& srgb)
{
    const double r = linearLight(srgb[0]);
    const double g = linearLight(srgb[1]);
    const double b = linearLight(srgb[2]);
    const auto curve = [](double t) { return t > 0.008856 ? std::cbrt(t) : 7.787 * t + 16.0 / 116.0; };
    const double x = curve((0.4124 * r + 0.3576 * g + 0.1805 * b) / 0.95047);
    const double y = curve(0.2126 * r + 0.7152 * g + 0.0722 * b);
    const double z = curve((0.0193 * r + 0.1192 * g + 0.9505 * b) / 1.08883);
    return {116.0 * y - 16.0, 500.0 * (x - y), 200.0 * (y - z)};
}

Triple blurredAt(const Pixels& picture, int x, int y)
{
    Triple sum{};
    int count = 0;
    for (int v = std::max(0, y - 1); v <= std::min(picture.height - 1, y + 1); ++v)
        for (int u = std::max(0, x - 1); u <= std::min(picture.width - 1, x + 1); ++u) {
            const Triple rgb = rgbOf(picture.words[static_cast<std::size_t>(v * picture.width + u)]);
            for (std::size_t i = 0; i < sum.size(); ++i) sum[i] += rgb[i];
            ++count;
        }
    for (double& channel : sum) channel /= count;
    return sum;
}

} // namespace

PictureGap pictureGap(const Pixels& a, const Pixels& b)
{
    std::vector<double> gaps;
    gaps.reserve(a.words.size());
    double sum = 0.0;
    for (int y = 0; y < a.height; ++y)
        for (int x = 0; x < a.width; ++x) {
            const Triple one = labOf(blurredAt(a, x, y));
            const Triple other = labOf(blurredAt(b, x, y));
            gaps.push_back(std::hypot(one[0] - other[0], one[1] - other[1], one[2] - other[2]));
            sum += gaps.back();
        }
    if (gaps.empty()) return {};
    const std::size_t place = gaps.size() - 1 - gaps.size() / 20000;
    std::nth_element(gaps.begin(), gaps.begin() + static_cast<std::ptrdiff_t>(place), gaps.end());
    return {sum / static_cast<double>(gaps.size()), gaps[place]};
}

Pixels shrunk(const Pixels& picture, int factor)
{
    Pixels small{picture.width / factor, picture.height / factor, {}};
    small.words.reserve(static_cast<std::size_t>(small.width) * static_cast<std::size_t>(small.height));
    const auto share = static_cast<std::uint32_t>(factor * factor);
    for (int y = 0; y < small.height; ++y)
        for (int x = 0; x < small.width; ++x) {
            std::array<std::uint32_t, 3> sum{};
            for (int v = 0; v < factor; ++v)
                for (int u = 0; u < factor; ++u) {
                    const auto place =
                        static_cast<std::size_t>((y * factor + v) * picture.width + x * factor + u);
                    const std::uint32_t word = picture.words[place];
                    for (std::size_t i = 0; i < sum.size(); ++i) sum[i] += (word >> (16 - 8 * i)) & 0xFF;
                }
            std::uint32_t mean = 0;
            for (const std::uint32_t channel : sum) mean = mean << 8 | (channel + share / 2) / share;
            small.words.push_back(mean);
        }
    return small;
}

} // namespace velmora::test
