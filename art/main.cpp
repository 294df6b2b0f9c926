#include "art/pack/picture.h"
#include "art/pack/png.h"
#include "art/paint/lettering.h"
#include "art/proof/proof.h"
#include "art/resource_list.h"
#include "art/sheet/contact_sheet.h"

#include <CLI/CLI.hpp>

#include <exception>
#include <fstream>
#include <iostream>
#include <string>

namespace {

using namespace velmora::art;

struct FontRelease {
    ~FontRelease() { releaseFonts(); }
};

void requireFonts()
{
    const std::string missing = missingFamilies();
    if (!missing.empty())
        throw std::runtime_error("these font families are missing: " + missing +
                                 " (Debian: fonts-liberation, fonts-urw-base35)");
}

void savePng(const std::string& path, cairo_surface_t* surface)
{
    const std::vector<std::uint8_t> png = encodePng(surface);
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(png.data()), static_cast<std::streamsize>(png.size()));
    file.close();
    if (!file) throw std::runtime_error("can't write " + path);
}

std::vector<Resource> resourcesOf(const std::string& name)
{
    if (name.empty()) return allResources();
    std::string known;
    for (const Family& family : families()) {
        if (family.name == name) return {family.list().begin(), family.list().end()};
        known += (known.empty() ? "" : ", ") + std::string(family.name);
    }
    throw std::runtime_error("no family " + name + "; there are " + known);
}

} // namespace

int main(int argc, char** argv)
{
    CLI::App app{"Draws the pictures of QOR Velmora Mono."};
    app.require_subcommand(1);

    std::string output;
    unsigned threads = 2;
    auto* const draw = app.add_subcommand("draw", "Draw all pictures, and pack them into one file");
    draw->add_option("folder", output, "Folder for the files")->required();
    draw->add_option("--threads", threads, "Threads that draw")
        ->check(CLI::Range(1, 64))
        ->capture_default_str();

    std::string name;
    int scale = 1;
    auto* const sheet = app.add_subcommand("sheet", "Draw a contact sheet");
    sheet->add_option("file", output, "PNG file to write")->required();
    sheet->add_option("family", name, "Only this family of pictures");
    sheet->add_option("--scale", scale, "Size of a pixel")->check(CLI::Range(1, 8))->capture_default_str();

    auto* const proof = app.add_subcommand("proof", "Put panels and their controls together");
    proof->add_option("file", output, "PNG file to write")->required();
    proof->add_option("panel", name, "Only this panel, or \"rack\"");
    proof->add_option("--scale", scale, "Size of a pixel")->check(CLI::Range(1, 8))->capture_default_str();

    CLI11_PARSE(app, argc, argv);
    const FontRelease fontRelease;
    try {
        requireFonts();
        if (*draw) writePictures(output, drawPictures(allResources(), threads));
        if (*sheet) savePng(output, drawContactSheet(resourcesOf(name), scale).get());
        if (*proof) savePng(output, drawProof(name, scale).get());
    } catch (const std::exception& error) {
        std::cerr << "velmora-art: " << error.what() << '\n';
        return 1;
    }
    return 0;
}
