// What the shared object exports.

#include "host/vst24/vst24_effect_wrapper.h"

#define VELMORA_EXPORT __attribute__((visibility("default")))

using velmora::vst24::AEffect;
using velmora::vst24::HostCallback;

#ifdef VELMORA_OWN_RUNTIME
namespace __gnu_cxx {
void __freeres(); // of the C++ runtime, which declares it nowhere
}

// The runtime inside this object keeps memory aside for exceptions; without this every unloading would leave
// it behind.
__attribute__((destructor)) static void releaseRuntime()
{
    __gnu_cxx::__freeres();
}
#endif

extern "C" {

VELMORA_EXPORT AEffect* VSTPluginMain(HostCallback host)
{
    using namespace velmora::vst24;
    if (host == nullptr || host(nullptr, audioMasterVersion, 0, 0, nullptr, 0.0f) == 0) return nullptr;
    try {
        return (new QORVST24EffectWrapper(host))->getAeffect();
    } catch (...) {
        return nullptr;
    }
}

// The entry's name of old. C++ keeps `main` for programs, hence the assembler's label.
VELMORA_EXPORT AEffect* velmoraOldEntry(HostCallback host) __asm__("main");
AEffect* velmoraOldEntry(HostCallback host)
{
    return VSTPluginMain(host);
}

VELMORA_EXPORT bool InitDll()
{
    return true;
}

VELMORA_EXPORT bool ExitDll()
{
    return true;
}
}
