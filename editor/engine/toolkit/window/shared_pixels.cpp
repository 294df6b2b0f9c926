#include "editor/engine/toolkit/window/shared_pixels.h"

#include <string_view>

#include <sys/mman.h>
#include <unistd.h>
#include <xcb/shm.h>

namespace velmora::Qorvane {
namespace {

constexpr std::string_view kExtension = "MIT-SHM";

/// Since 1.2 memory is handed over as a file instead of by a number, which may mean another piece of memory
/// in the server's container.
bool takesFiles(const xcb_shm_query_version_reply_t& version)
{
    return version.major_version > 1 || (version.major_version == 1 && version.minor_version >= 2);
}

} // namespace

SharedPixels::SharedPixels(X11Connection& connection) : connection_(connection)
{
    if (!connection.isLocal()) return;
    const auto asked = xcb_query_extension(connection.get(), kExtension.size(), kExtension.data());
    const auto extension = connection.reply<xcb_query_extension_reply_t>(asked.sequence);
    if (!extension || extension->present == 0) return;
    majorCode_ = extension->major_opcode;
    firstEvent_ = extension->first_event;
    const auto version =
        connection.reply<xcb_shm_query_version_reply_t>(xcb_shm_query_version(connection.get()).sequence);
    offered_ = version && takesFiles(*version);
}

bool SharedPixels::open(std::size_t size)
{
    close();
    if (!offered_) return false;
    const int file = memfd_create("velmora-pixels", MFD_CLOEXEC);
    if (file < 0) return false;
    if (ftruncate(file, static_cast<off_t>(size)) == 0) {
        void* memory = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
        if (memory != MAP_FAILED) {
            bytes_ = static_cast<std::uint8_t*>(memory);
            size_ = size;
        }
    }
    if (bytes_ == nullptr) {
        ::close(file);
        return false;
    }
    if (hand(file)) return true;
    offered_ = false; // the next size would be refused as well
    close();
    return false;
}

/// Hands the memory to the server. `file` is closed once it has been sent.
bool SharedPixels::hand(int file)
{
    constexpr std::uint8_t kReadOnly = 1;
    const std::uint32_t segment = xcb_generate_id(connection_.get());
    if (!connection_.succeeded(xcb_shm_attach_fd_checked(connection_.get(), segment, file, kReadOnly)))
        return false;
    segment_ = segment;
    return true;
}

void SharedPixels::close()
{
    if (segment_ != 0 && connection_.isAlive()) xcb_shm_detach(connection_.get(), segment_);
    if (bytes_ != nullptr) munmap(bytes_, size_);
    bytes_ = nullptr;
    segment_ = 0;
}

bool SharedPixels::isAnswer(const xcb_generic_event_t& event) const
{
    if (!offered_) return false;
    if (typeOf(event) != 0) return typeOf(event) == firstEvent_ + unsigned{XCB_SHM_COMPLETION};
    return reinterpret_cast<const xcb_generic_error_t&>(event).major_code == majorCode_;
}

} // namespace velmora::Qorvane
