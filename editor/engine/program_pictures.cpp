#include "art/embed/pictures.h"
#include "editor/engine/resource_table.h"

namespace velmora {
namespace {

constexpr ResourceTable::Row kRows[] = {
#include "picture_rows.inc"
};

} // namespace

const ResourceTable& resourceTable()
{
    static constinit const ResourceTable table(kRows, velmora_pictures_begin);
    return table;
}

} // namespace velmora
