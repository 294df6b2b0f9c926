#include "tools/render/interruption.h"
#include "tools/soak/arguments.h"
#include "tools/soak/soak_series.h"

#include <exception>
#include <iostream>

int main(int argc, char** argv)
{
    using namespace velmora;
    constexpr int kFaulty = 1;
    constexpr int kFailed = 2;
    try {
        const std::optional<soak::Arguments> arguments = soak::parseArguments(argc, argv);
        if (!arguments) return 0;
        render::catchInterrupts();
        return soak::playSeries(*arguments) ? 0 : kFaulty;
    } catch (const std::exception& error) {
        std::cerr << "velmora-soak: " << error.what() << '\n';
        return kFailed;
    }
}
