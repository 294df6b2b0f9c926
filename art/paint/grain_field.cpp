#include "art/paint/grain_field.h"

#include <algorithm>
#include <cmath>

namespace velmora::art {
namespace {

/// White noise, nearly Gaussian. Sums of integers come out alike on every machine.
class Noise {
public:
    explicit Noise(std::uint32_t seed) : state_(seed * 0x9e3779b97f4a7c15u + 0x632be59bd9b4e019u) {}

    float next()
    {
        // Eight bytes of one draw: their sum spreads by 209 around 1020.
        std::uint64_t draw = step();
        int sum = 0;
        for (int byte = 0; byte < 8; ++byte, draw >>= 8) sum += static_cast<int>(draw & 0xff);
        return static_cast<float>(sum - 1020) / 209.0f;
    }

private:
    std::uint64_t step()
    {
        state_ += 0x9e3779b97f4a7c15u;
        std::uint64_t mixed = state_;
        mixed = (mixed ^ (mixed >> 30)) * 0xbf58476d1ce4e5b9u;
        mixed = (mixed ^ (mixed >> 27)) * 0x94d049bb133111ebu;
        return mixed ^ (mixed >> 31);
    }

    std::uint64_t state_;
};

std::vector<float> gaussianWeights(double sigma)
{
    const int reach = static_cast<int>(3 * sigma) + 1;
    std::vector<float> weights;
    double sum = 0.0;
    for (int offset = -reach; offset <= reach; ++offset)
        sum += std::exp(-offset * offset / (2 * sigma * sigma));
    for (int offset = -reach; offset <= reach; ++offset)
        weights.push_back(static_cast<float>(std::exp(-offset * offset / (2 * sigma * sigma)) / sum));
    return weights;
}

int wrap(int index, int length)
{
    return ((index % length) + length) % length;
}

/// Blurs `count` lines of `length` places, `step` apart within a line and `lineStep` from line to line.
void blurLines(std::vector<float>& heights, int length, int step, int count, int lineStep, double sigma)
{
    sigma = std::min(sigma, (length - 6) / 8.0);
    if (sigma <= 0.0) return;
    const std::vector<float> weights = gaussianWeights(sigma);
    const int reach = static_cast<int>(weights.size() / 2);
    std::vector<float> line(static_cast<std::size_t>(length + 2 * reach));
    for (int number = 0; number < count; ++number) {
        float* const first = heights.data() + static_cast<std::ptrdiff_t>(number) * lineStep;
        for (int place = 0; place < length + 2 * reach; ++place)
            line[static_cast<std::size_t>(place)] =
                first[static_cast<std::ptrdiff_t>(wrap(place - reach, length)) * step];
        for (int place = 0; place < length; ++place) {
            float sum = 0.0f;
            for (std::size_t tap = 0; tap < weights.size(); ++tap)
                sum += weights[tap] * line[static_cast<std::size_t>(place) + tap];
            first[static_cast<std::ptrdiff_t>(place) * step] = sum;
        }
    }
}

void blur(GrainField& field, double across, double down)
{
    blurLines(field.heights, field.width, 1, field.height, field.width, across);
    blurLines(field.heights, field.height, field.width, field.width, 1, down);
}

double deviation(const std::vector<float>& heights)
{
    double sum = 0.0;
    double squares = 0.0;
    for (const float height : heights) {
        sum += height;
        squares += static_cast<double>(height) * height;
    }
    const double count = static_cast<double>(heights.size());
    return std::sqrt(std::max(0.0, squares / count - sum / count * (sum / count)));
}

void normalise(GrainField& field)
{
    const auto spread = static_cast<float>(deviation(field.heights));
    if (spread <= 0.0f) return;
    for (float& height : field.heights) height /= spread;
}

/// Bumps with flat tops, lit from the top left: what counts is how steeply they fall towards the light.
void emboss(GrainField& field, double bump)
{
    blur(field, bump, bump);
    normalise(field);
    for (float& height : field.heights) height = std::tanh(height * 1.2f);
    const GrainField bumps = field;
    for (int y = 0; y < field.height; ++y)
        for (int x = 0; x < field.width; ++x)
            field.heights[static_cast<std::size_t>(y) * field.width + x] =
                bumps.at(x, wrap(y + 1, field.height)) - bumps.at(x, wrap(y - 1, field.height)) +
                bumps.at(wrap(x + 1, field.width), y) - bumps.at(wrap(x - 1, field.width), y);
}

} // namespace

GrainField makeGrainField(Grain grain, int width, int height, std::uint32_t seed)
{
    GrainField field{width, height, std::vector<float>(static_cast<std::size_t>(width) * height)};
    Noise noise(seed);
    for (float& value : field.heights) value = noise.next();

    switch (grain) {
    case Grain::BrushedAcross:
        blur(field, 22.0, 0.35);
        break;
    case Grain::BrushedDown:
        blur(field, 0.35, 22.0);
        break;
    case Grain::Fine:
        blur(field, 0.5, 0.5);
        break;
    case Grain::Hammer:
        emboss(field, 2.6);
        break;
    case Grain::Crinkle:
        emboss(field, 1.0);
        break;
    case Grain::Leather:
        emboss(field, 1.5);
        break;
    }
    normalise(field);
    return field;
}

} // namespace velmora::art
