#pragma once

#include <atomic>
#include <thread>

namespace velmora::vst24 {

/// Who may touch controller and store just now: one thread at a time, re-entrant, and never waited for on the
/// audio side. A thread that finds it taken leaves its work in a pending set for the holder.
class ReactionClaim {
public:
    /// @return false if another thread holds it.
    bool tryEnter()
    {
        const std::thread::id self = std::this_thread::get_id();
        if (owner_.load() != self) {
            std::thread::id nobody{};
            if (!owner_.compare_exchange_strong(nobody, self)) return false;
        }
        ++depth_;
        return true;
    }

    /// Spins for the microseconds of somebody's reaction. Not for the audio thread.
    void enter()
    {
        while (!tryEnter()) std::this_thread::yield();
    }

    /// The holder's next `leave` gives the claim away.
    bool outermost() const { return depth_ == 1; }

    void leave()
    {
        if (--depth_ == 0) owner_.store(std::thread::id{});
    }

private:
    std::atomic<std::thread::id> owner_{};
    int depth_ = 0; // the holder's own
    static_assert(std::atomic<std::thread::id>::is_always_lock_free);
};

} // namespace velmora::vst24
