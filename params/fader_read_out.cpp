#include "params/fader_read_out.h"

#include "params/laws/output_laws.h"
#include "params/number_text.h"

#include <cmath>

namespace velmora {

std::string faderReadOutText(double v)
{
    constexpr double kLowestDb = -86.0;
    if (!(v > 0.0)) return "-oo";
    const double db = 20.0 * std::log10(output::faderGain(v));
    if (db < 0.0 && db > -0.1) return "0.0";
    return db >= kLowestDb ? numberText(static_cast<float>(db), 1) : "-oo";
}

} // namespace velmora
