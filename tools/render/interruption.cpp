#include "tools/render/interruption.h"

#include <csignal>

namespace velmora::render {

namespace {

volatile std::sig_atomic_t interruptMark = 0;

void mark(int)
{
    interruptMark = 1;
}

} // namespace

void catchInterrupts()
{
    std::signal(SIGINT, mark);
    std::signal(SIGTERM, mark);
}

bool interrupted()
{
    return interruptMark != 0;
}

} // namespace velmora::render
