#pragma once

#include <array>
#include <atomic>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace velmora::vst24 {

/// A set of parameter ids that any thread may add to and one thread takes from, without a lock.
///
/// A writer stores the id's value, then marks the id. The taker empties a word of the set before it reads any
/// value, so a change that arrives meanwhile is in this take with its new value, or in the next: never lost.
/// The order is sequentially consistent, because a claim (ReactionClaim) is decided against `any`.
class PendingIds {
public:
    static constexpr std::size_t kIds = 898;
    static constexpr std::size_t kWords = (kIds + 63) / 64;

    /// Ids taken at one moment.
    class Snapshot {
    public:
        /// Calls visit(id) in rising order.
        template <typename Visit>
        void forEach(Visit visit) const
        {
            for (std::size_t w = 0; w < kWords; ++w)
                for (std::uint64_t rest = words[w]; rest != 0; rest &= rest - 1)
                    visit(static_cast<std::int32_t>(w * 64) + std::countr_zero(rest));
        }

    private:
        friend class PendingIds;
        static std::uint64_t bit(std::int32_t id)
        {
            return std::uint64_t{1} << (static_cast<unsigned>(id) % 64);
        }
        std::array<std::uint64_t, kWords> words{};
    };

    /// @range id 0..897
    void mark(std::int32_t id)
    {
        words_[static_cast<std::size_t>(id) / 64].fetch_or(Snapshot::bit(id));
        any_.store(true);
    }

    bool any() const { return any_.load(); }

    /// Empties the set. `any` is cleared first: a mark behind it makes the next take look again. The words
    /// are taken from the last to the first, so that of two marks in rising order the second is never taken
    /// alone.
    Snapshot take()
    {
        Snapshot taken;
        any_.store(false);
        for (std::size_t w = kWords; w-- > 0;)
            if (words_[w].load() != 0) taken.words[w] = words_[w].exchange(0);
        return taken;
    }

private:
    std::array<std::atomic<std::uint64_t>, kWords> words_{};
    std::atomic<bool> any_{false};
};

} // namespace velmora::vst24
