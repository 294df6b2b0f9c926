#include "tools/render/arguments.h"
#include "tools/render/interruption.h"
#include "tools/render/parameter_list.h"
#include "tools/render/render_session.h"

#include <exception>
#include <iostream>

int main(int argc, char** argv)
{
    using namespace velmora::render;
    constexpr int kFailed = 2;
    try {
        const std::optional<Arguments> arguments = parseArguments(argc, argv);
        if (!arguments) return 0;
        if (arguments->listParameters) {
            arguments->csv ? printParameterCsv(std::cout) : printParameterTable(std::cout);
            return 0;
        }
        catchInterrupts();
        renderFile(*arguments);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "velmora-render: " << error.what() << '\n';
        return kFailed;
    }
}
