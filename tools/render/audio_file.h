#pragma once

#include "tools/render/output_file.h"

#include <sndfile.h>

#include <cstdint>
#include <filesystem>
#include <memory>

namespace velmora::render {

/// Rates at which the strip works, Hz.
inline constexpr int kMinRate = 44100;
inline constexpr int kMaxRate = 384000;

struct SndfileCloser {
    void operator()(SNDFILE* file) const { sf_close(file); }
};
using SndfileHandle = std::unique_ptr<SNDFILE, SndfileCloser>;

/// A recording that is read from start to end.
class AudioReader {
public:
    /// Throws UserError for what can't be read and for a rate outside the strip's range.
    explicit AudioReader(const std::filesystem::path& path);

    int rate() const { return info_.samplerate; }
    int channels() const { return info_.channels; }
    /// Length in frames as the file tells it; 0 if it doesn't.
    std::int64_t frames() const;
    const std::filesystem::path& path() const { return path_; }

    /// Reads interleaved frames. @return the frames read, less than asked only at the end. Throws UserError.
    std::int64_t read(double* interleaved, std::int64_t frames);

private:
    std::filesystem::path path_;
    SF_INFO info_{};
    SndfileHandle file_;
};

/// The rendered recording; it takes its place under its name only with `commit`.
class AudioWriter {
public:
    /// @param frames expected length, for the choice of a container that can hold it. Throws UserError for an
    /// ending that names no format and for what can't be written.
    AudioWriter(const std::filesystem::path& path, int rate, int channels, std::int64_t frames);

    /// Throws UserError if the disk takes no more.
    void write(const double* interleaved, std::int64_t frames);
    /// Completes the file under its temporary name. Throws UserError.
    void finish();
    /// Puts the finished file in its place. Throws UserError.
    void commit() { output_.commit(); }

private:
    int format_;
    OutputFile output_;
    SndfileHandle file_;
};

} // namespace velmora::render
