#include "tools/common/command_line.h"

#include "tools/common/user_error.h"

#include <iostream>
#include <string>

namespace velmora {

namespace {

/// The library words some of its messages over several lines.
std::string oneLine(std::string text)
{
    for (char& c : text)
        if (c == '\n' || c == '\r') c = ' ';
    while (!text.empty() && text.back() == ' ') text.pop_back();
    return text;
}

} // namespace

bool parseCommandLine(CLI::App& app, int argc, const char* const* argv)
{
    try {
        app.parse(argc, argv);
        return true;
    } catch (const CLI::CallForHelp&) {
        std::cout << app.help();
        return false;
    } catch (const CLI::ParseError& error) {
        throw UserError(oneLine(error.what()) + "; " + app.get_name() + " --help shows what there is");
    }
}

} // namespace velmora
