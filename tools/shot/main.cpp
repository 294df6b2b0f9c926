#include "tools/common/command_line.h"
#include "tools/host/private_home.h"
#include "tools/shot/png_file.h"
#include "tools/shot/shot.h"

#include <exception>
#include <iostream>
#include <string>

namespace {

using namespace velmora;

constexpr int kFailed = 2;

int run(int argc, const char* const* argv)
{
    shot::ShotRequest request;
    std::string path;
    CLI::App app("Takes a picture of the QOR Velmora Mono's editor without a display.", "velmora-shot");
    app.add_option("OUT", path, "PNG file to write")->required();
    app.add_option("--preset", request.preset, "Name or id of a factory preset, or a .qor file");
    app.add_option("--scale", request.scale, "Pixels of the picture for each pixel of the design")
        ->check(CLI::Range(0.25, 8.0));
    if (!parseCommandLine(app, argc, argv)) return 0;
    const host::PrivateHome home; // the user's settings stay as they are
    shot::writePng(shot::takeShot(request), path);
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    try {
        return run(argc, argv);
    } catch (const std::exception& error) {
        std::cerr << "velmora-shot: " << error.what() << '\n';
        return kFailed;
    }
}
