#pragma once

#include "tools/render/audio_file.h"

#include <vector>

namespace velmora::render {

/// What is to be processed: the recording and then silence for the tail, with the key signal beside it,
/// padded with silence or cut to the same length.
class InputFeed {
public:
    /// @param sideChain may be null. Throws UserError if the rates differ.
    InputFeed(AudioReader& input, AudioReader* sideChain, std::int64_t tailFrames);

    /// Fills `main` and `key` (interleaved, as many channels as the files have). @return frames filled, 0 at
    /// the end.
    std::int64_t read(std::vector<double>& main, std::vector<double>& key, std::int64_t frames);

    int channels() const { return input_.channels(); }
    /// 0 without a key signal.
    int keyChannels() const { return sideChain_ ? sideChain_->channels() : 0; }
    /// Length with the tail in frames; 0 if the file doesn't tell.
    std::int64_t length() const;

private:
    AudioReader& input_;
    AudioReader* sideChain_;
    std::int64_t tailFrames_;
    std::int64_t tailLeft_;
    bool inputEnded_ = false;
};

} // namespace velmora::render
