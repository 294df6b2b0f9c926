#include "tools/render/input_feed.h"

#include "tools/common/user_error.h"

#include <algorithm>
#include <string>

namespace velmora::render {

InputFeed::InputFeed(AudioReader& input, AudioReader* sideChain, std::int64_t tailFrames)
    : input_(input), sideChain_(sideChain), tailFrames_(tailFrames), tailLeft_(tailFrames)
{
    if (sideChain && sideChain->rate() != input.rate())
        throw UserError("the side chain " + sideChain->path().string() + " has a rate of " +
                        std::to_string(sideChain->rate()) + " Hz; it must have that of " +
                        input.path().string() + ", " + std::to_string(input.rate()) + " Hz");
}

std::int64_t InputFeed::length() const
{
    return input_.frames() > 0 ? input_.frames() + tailFrames_ : 0;
}

std::int64_t InputFeed::read(std::vector<double>& main, std::vector<double>& key, std::int64_t frames)
{
    main.assign(static_cast<std::size_t>(frames * channels()), 0.0);
    key.assign(static_cast<std::size_t>(frames * keyChannels()), 0.0);
    std::int64_t got = inputEnded_ ? 0 : input_.read(main.data(), frames);
    if (got < frames) {
        inputEnded_ = true;
        const std::int64_t silence = std::min(frames - got, tailLeft_);
        tailLeft_ -= silence;
        got += silence;
    }
    if (sideChain_) sideChain_->read(key.data(), got);
    return got;
}

} // namespace velmora::render
