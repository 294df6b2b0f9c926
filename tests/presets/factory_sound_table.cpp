#include "presets/factory_bank.h"
#include "tests/presets/factory_sound.h"

#include <cstdio>
#include <cstdlib>

/// Prints what every factory preset makes of its instruments. Arguments: first and last id, else all.
int main(int count, char** arguments)
{
    using namespace velmora;
    const auto first = count > 1 ? std::strtoul(arguments[1], nullptr, 10) : 3UL;
    const auto last = count > 2 ? std::strtoul(arguments[2], nullptr, 10) : count > 1 ? first : 232UL;
    std::printf("%3s  %-23s %-13s %8s %8s %8s %8s\n", "id", "preset", "instrument", "in RMS", "out RMS",
                "change", "peak");
    for (auto id = static_cast<std::uint32_t>(first); id <= last; ++id) {
        char name[24];
        factoryPreset(id, nullptr, name, nullptr);
        for (const test::Instrument instrument : test::instrumentsFor(id)) {
            const test::SoundFigures figures = test::listenTo(id, instrument);
            const bool bad = !figures.finite || figures.outputPeak > 3.5 || figures.change() > 9.0 ||
                             figures.change() < -9.0;
            std::printf("%3u  %-23s %-13s %8.1f %8.1f %+8.1f %8.1f%s\n", id, name,
                        test::kInstrumentNames[static_cast<std::size_t>(instrument)].data(), figures.inputRms,
                        figures.outputRms, figures.change(), figures.outputPeak, bad ? "  <--" : "");
        }
    }
    return 0;
}
