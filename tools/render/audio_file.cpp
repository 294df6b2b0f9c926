#include "tools/render/audio_file.h"

#include "tools/common/user_error.h"

#include <algorithm>
#include <cctype>
#include <limits>
#include <string>

namespace velmora::render {

namespace {

/// Beyond this many bytes of samples a WAV header's 32-bit sizes don't do.
constexpr std::int64_t kWavLimit = 4'000'000'000;

std::string lowerExtension(const std::filesystem::path& path)
{
    std::string extension = path.extension().string();
    std::ranges::transform(extension, extension.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return extension;
}

int outputFormat(const std::filesystem::path& path, int channels, std::int64_t frames)
{
    const std::string extension = lowerExtension(path);
    if (extension == ".flac") return SF_FORMAT_FLAC | SF_FORMAT_PCM_24;
    if (extension != ".wav")
        throw UserError("the ending of " + path.string() +
                        " names no format that can be written; it must be .wav or .flac");
    const std::int64_t bytes = frames * channels * static_cast<std::int64_t>(sizeof(float));
    return (bytes > kWavLimit ? SF_FORMAT_RF64 : SF_FORMAT_WAV) | SF_FORMAT_FLOAT;
}

} // namespace

AudioReader::AudioReader(const std::filesystem::path& path) : path_(path)
{
    std::error_code ignored;
    if (!std::filesystem::exists(path, ignored)) throw UserError("there is no file " + path.string());
    if (std::filesystem::is_directory(path, ignored))
        throw UserError(path.string() + " is a folder; a WAV or FLAC file is wanted");
    file_.reset(sf_open(path.c_str(), SFM_READ, &info_));
    if (!file_)
        throw UserError(path.string() + " can't be read as audio (" + sf_strerror(nullptr) +
                        "); a WAV or FLAC file is wanted");
    if (rate() < kMinRate || rate() > kMaxRate)
        throw UserError(path.string() + " has a rate of " + std::to_string(rate()) +
                        " Hz; the strip works from " + std::to_string(kMinRate) + " to " +
                        std::to_string(kMaxRate) + " Hz");
}

std::int64_t AudioReader::frames() const
{
    return info_.frames == std::numeric_limits<sf_count_t>::max() ? 0 : info_.frames;
}

std::int64_t AudioReader::read(double* interleaved, std::int64_t frames)
{
    const sf_count_t got = sf_readf_double(file_.get(), interleaved, frames);
    if (got < frames && sf_error(file_.get()) != SF_ERR_NO_ERROR)
        throw UserError(path_.string() + " is damaged: " + sf_strerror(file_.get()));
    return got;
}

AudioWriter::AudioWriter(const std::filesystem::path& path, int rate, int channels, std::int64_t frames)
    : format_(outputFormat(path, channels, frames)), output_(path)
{
    SF_INFO info{};
    info.samplerate = rate;
    info.channels = channels;
    info.format = format_;
    if (!sf_format_check(&info))
        throw UserError(lowerExtension(path) + " files can't hold " + std::to_string(channels) +
                        " channels at " + std::to_string(rate) + " Hz; a .wav can");
    file_.reset(sf_open_fd(output_.descriptor(), SFM_WRITE, &info, SF_FALSE));
    if (!file_) throw UserError(path.string() + " can't be written: " + sf_strerror(nullptr));
    sf_command(file_.get(), SFC_SET_CLIPPING, nullptr, SF_TRUE);
}

void AudioWriter::write(const double* interleaved, std::int64_t frames)
{
    if (sf_writef_double(file_.get(), interleaved, frames) != frames)
        throw UserError(output_.path().string() + " can't be written: " + sf_strerror(file_.get()));
}

void AudioWriter::finish()
{
    if (const int error = sf_close(file_.release()); error != SF_ERR_NO_ERROR)
        throw UserError(output_.path().string() + " can't be written: " + sf_error_number(error));
}

} // namespace velmora::render
