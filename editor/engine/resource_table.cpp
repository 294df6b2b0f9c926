#include "editor/engine/resource_table.h"

#include <algorithm>

namespace velmora {

const std::uint8_t* ResourceTable::find(std::uint32_t id, std::uint32_t& length) const
{
    const auto found = std::ranges::lower_bound(rows, id, {}, &Row::id);
    if (found == rows.end() || found->id != id) {
        length = 0;
        return nullptr;
    }
    length = found->length;
    return bytes + found->offset;
}

} // namespace velmora
