#include "tests/tools/renderer_runs.h"

#include <sndfile.h>

#include <fstream>
#include <stdexcept>

namespace velmora::test {

void writeRecording(const std::string& path, const Recording& recording)
{
    const std::size_t channels = recording.channels.size();
    const std::size_t frames = recording.channels.front().size();
    std::vector<double> interleaved(frames * channels);
    for (std::size_t c = 0; c < channels; ++c)
        for (std::size_t i = 0; i < frames; ++i) interleaved[i * channels + c] = recording.channels[c][i];
    SF_INFO info{};
    info.samplerate = recording.rate;
    info.channels = static_cast<int>(channels);
    info.format =
        path.ends_with(".flac") ? SF_FORMAT_FLAC | SF_FORMAT_PCM_24 : SF_FORMAT_WAV | SF_FORMAT_FLOAT;
    SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
    if (!file) throw std::runtime_error(sf_strerror(nullptr));
    sf_writef_double(file, interleaved.data(), static_cast<sf_count_t>(frames));
    sf_close(file);
}

Recording readRecording(const std::string& path)
{
    SF_INFO info{};
    SNDFILE* file = sf_open(path.c_str(), SFM_READ, &info);
    if (!file) throw std::runtime_error(path + ": " + sf_strerror(nullptr));
    const auto channels = static_cast<std::size_t>(info.channels);
    const auto frames = static_cast<std::size_t>(info.frames);
    std::vector<double> interleaved(frames * channels);
    sf_readf_double(file, interleaved.data(), info.frames);
    sf_close(file);
    Recording recording{info.samplerate, std::vector<Signal>(channels, Signal(frames))};
    for (std::size_t c = 0; c < channels; ++c)
        for (std::size_t i = 0; i < frames; ++i) recording.channels[c][i] = interleaved[i * channels + c];
    return recording;
}

void writeText(const std::string& path, const std::string& text)
{
    std::ofstream(path, std::ios::binary) << text;
}

ProgramResult render(const std::vector<std::string>& arguments)
{
    return runProgram(VELMORA_RENDERER, arguments);
}

} // namespace velmora::test
