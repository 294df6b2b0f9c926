#include "art/pack/picture.h"

#include "art/pack/png.h"
#include "art/pack/surface.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <fstream>
#include <mutex>
#include <numeric>
#include <string>
#include <thread>

namespace velmora::art {
namespace {

/// Indices of resources, the largest picture first: a large one at the end would keep one thread busy alone.
std::vector<std::size_t> workOrder(std::span<const Resource> resources)
{
    std::vector<std::size_t> order(resources.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::stable_sort(order, std::ranges::greater{}, [&](std::size_t index) {
        return resources[index].width * resources[index].height;
    });
    return order;
}

void writeFile(const std::filesystem::path& path, std::span<const std::uint8_t> bytes)
{
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) throw std::runtime_error("can't write " + path.string());
}

} // namespace

std::vector<Picture> drawPictures(std::span<const Resource> resources, unsigned threads)
{
    const std::vector<std::size_t> order = workOrder(resources);
    std::vector<Picture> pictures(resources.size());
    std::atomic<std::size_t> next = 0;
    std::mutex failureMutex;
    std::exception_ptr failure;

    const auto work = [&] {
        for (std::size_t place = next++; place < order.size(); place = next++) {
            try {
                const Resource& resource = resources[order[place]];
                pictures[order[place]] = {resource.id, encodePng(drawResource(resource).get())};
            } catch (...) {
                const std::lock_guard lock(failureMutex);
                if (!failure) failure = std::current_exception();
                next = order.size();
            }
        }
    };
    {
        std::vector<std::jthread> workers;
        for (unsigned thread = 0; thread < std::max(1u, threads); ++thread) workers.emplace_back(work);
    }
    if (failure) std::rethrow_exception(failure);
    return pictures;
}

void writePictures(const std::filesystem::path& folder, std::span<const Picture> pictures)
{
    std::vector<std::uint8_t> pack;
    std::string rows;
    for (const Picture& picture : pictures) {
        const std::string id = std::to_string(picture.id);
        rows += "{" + id + ", " + std::to_string(pack.size()) + ", " + std::to_string(picture.png.size()) +
                "},\n";
        pack.insert(pack.end(), picture.png.begin(), picture.png.end());
    }
    std::filesystem::create_directories(folder);
    for (const Picture& picture : pictures)
        writeFile(folder / (std::to_string(picture.id) + ".png"), picture.png);
    writeFile(folder / "pictures.bin", pack);
    writeFile(folder / "picture_rows.inc", {reinterpret_cast<const std::uint8_t*>(rows.data()), rows.size()});
}

} // namespace velmora::art
