#pragma once

#include "editor/engine/toolkit/window/notice.h"

#include <optional>
#include <vector>

namespace velmora::Qorvane {

/// Motions and wheel notches that wait behind one another: of the motions the last one counts, of the notches
/// the sum.
class GatheredNotices {
public:
    /// @return false if `notice` can't be joined with those taken, which then must be released first
    bool takes(const Notice& notice)
    {
        const bool joinable = notice.kind == Notice::Kind::Moved || notice.kind == Notice::Kind::Wheel;
        if (!joinable || (motion_ && motion_->buttons != notice.buttons) ||
            (wheel_ && wheel_->buttons != notice.buttons))
            return false;
        std::optional<Notice>& mine = notice.kind == Notice::Kind::Moved ? motion_ : wheel_;
        const float before = mine ? mine->distance : 0.0F;
        mine = notice;
        mine->distance += before;
        return true;
    }

    std::vector<Notice> release()
    {
        std::vector<Notice> notices;
        if (motion_) notices.push_back(*motion_);
        if (wheel_ && wheel_->distance != 0.0F) notices.push_back(*wheel_);
        motion_.reset();
        wheel_.reset();
        return notices;
    }

private:
    std::optional<Notice> motion_, wheel_;
};

} // namespace velmora::Qorvane
