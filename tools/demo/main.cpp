#include "tools/demo/sources.h"

#include <sndfile.h>

#include <cstdio>

/// Writes the demo recording: a voice, then drums, one channel, 24 bit.
int main(int argc, char** argv)
{
    constexpr int kRate = 48000;
    constexpr int kFailed = 2;
    if (argc != 2) {
        std::fprintf(stderr,
                     "velmora-demo-source: one file name is needed, as in: velmora-demo-source dry.wav\n");
        return kFailed;
    }
    velmora::demo::Samples samples = velmora::demo::makeVoice(kRate);
    const velmora::demo::Samples drums = velmora::demo::makeDrums(kRate);
    samples.insert(samples.end(), drums.begin(), drums.end());

    SF_INFO info{};
    info.samplerate = kRate;
    info.channels = 1;
    info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_24;
    SNDFILE* file = sf_open(argv[1], SFM_WRITE, &info);
    const auto frames = static_cast<sf_count_t>(samples.size());
    const bool written =
        file && sf_writef_double(file, samples.data(), frames) == frames && sf_close(file) == 0;
    if (!written) {
        std::fprintf(stderr,
                     "velmora-demo-source: %s can't be written; name a .wav in a folder that exists\n",
                     argv[1]);
        return kFailed;
    }
    std::printf("%s: %.2f s of voice and drums, %d Hz\n", argv[1], static_cast<double>(frames) / kRate,
                kRate);
    return 0;
}
