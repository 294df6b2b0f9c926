#include "tests/art/embedded_pictures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <vector>

namespace velmora::art {
namespace {

struct Size {
    int width;
    int height;
    bool operator==(const Size&) const = default;
};

struct SizeRow {
    Size size;
    std::vector<std::uint32_t> ids;
};

std::vector<std::uint32_t> idsBetween(std::uint32_t first, std::uint32_t last)
{
    std::vector<std::uint32_t> ids;
    for (std::uint32_t id = first; id <= last; ++id) ids.push_back(id);
    return ids;
}

/// What the editor counts on.
std::map<std::uint32_t, Size> wantedSizes()
{
    const std::vector<SizeRow> rows{
        {{1515, 660}, {30000}},
        {{94, 629}, {30001}},
        {{46, 108}, {30002}},
        {{52, 72}, {30003}},
        {{52, 84}, {30004}},
        {{254, 84}, {30005}},
        {{152, 538}, {30020, 30050}},
        {{208, 644}, {30051}},
        {{152, 66}, idsBetween(30060, 30068)},
        {{6, 12}, {30070}},
        {{152, 68}, {30120, 30200}},
        {{22, 44}, {30122, 30123}},
        {{20, 80}, {30124}},
        {{41, 44}, {30125, 30126}},
        {{152, 67}, {30201}},
        {{152, 538}, {31000, 31001, 31100, 31104, 31200, 31203, 31300, 31305, 31400, 31401}},
        {{986, 1044}, {31101}},
        {{27, 108}, {31102}},
        {{26, 62}, {31103}},
        {{22, 62}, {31202}},
        {{12, 56}, {31301, 33101}},
        {{23, 60}, {31302}},
        {{19, 104}, {31303}},
        {{152, 538}, {32000, 32100, 32200, 33000, 33100, 33200}},
        {{850, 900}, {32001, 34001, 34101, 34201}},
        {{1020, 1080}, {31201, 31304, 32002, 33001, 33004, 33005}},
        {{19, 156}, {32003}},
        {{27, 68}, {32004, 35004}},
        {{130, 210}, {32105}},
        {{41, 22}, {32201, 38002, 38101}},
        {{765, 810}, {33002}},
        {{799, 846}, {33003}},
        {{782, 828}, {33006}},
        {{152, 538}, {34000, 34006, 34100, 34105, 34200, 34205, 35000, 35100, 35200}},
        {{1326, 1404}, {34002, 34102, 34202}},
        {{138, 228}, {34004, 34103, 34203}},
        {{39, 98}, {34005}},
        {{39, 78}, {34104, 34204}},
        {{1122, 1188}, {35001, 35002, 35101}},
        {{2006, 2034}, {35201}},
        {{539, 1342}, {35203}},
        {{23, 333}, {35003}},
        {{32, 84}, {35102, 35104}},
        {{34, 34}, {35105}},
        {{34, 180}, {35106}},
        {{27, 162}, {35204}},
        {{32, 78}, {35205, 35206}},
        {{152, 538}, {36000, 36006, 36100, 36101, 36200, 36201, 36300, 36301}},
        {{1241, 1368}, {36001}},
        {{1853, 2016}, {36002}},
        {{138, 134}, {36003}},
        {{425, 450}, {36005}},
        {{30, 76}, {36103}},
        {{133, 994}, {36104}},
        {{126, 22}, {36202}},
        {{660, 726}, {36302}},
        {{66, 66}, {36303}},
        {{152, 538}, {37000, 37001, 38000, 38100, 38200}},
        {{38, 92}, {37002}},
        {{8, 316}, {37003}},
        {{6, 315}, {37004}},
        {{6, 9}, {37005}},
        {{47, 36}, {37006}},
        {{55, 60}, {38001}},
        {{78, 126}, {38201}},
        {{23, 129}, {38202}},
        {{78, 36}, {38203}},
        {{152, 66}, {90000}},
        {{120, 120}, idsBetween(90001, 90023)},
    };
    std::map<std::uint32_t, Size> sizes;
    for (const SizeRow& row : rows)
        for (const std::uint32_t id : row.ids) {
            EXPECT_FALSE(sizes.contains(id)) << id;
            sizes[id] = row.size;
        }
    EXPECT_EQ(sizes.size(), 157u);
    return sizes;
}

TEST(PictureTable, HasEveryPictureInItsSize)
{
    std::map<std::uint32_t, Size> found;
    for (const PictureRow& row : pictureRows()) {
        const SurfacePtr picture = decode(row);
        ASSERT_TRUE(picture) << row.id;
        found[row.id] = {cairo_image_surface_get_width(picture.get()),
                         cairo_image_surface_get_height(picture.get())};
    }
    for (const auto& [id, size] : wantedSizes()) {
        ASSERT_TRUE(found.contains(id)) << id;
        EXPECT_EQ(found[id].width, size.width) << id;
        EXPECT_EQ(found[id].height, size.height) << id;
        found.erase(id);
    }
    for (const auto& [id, size] : found) ADD_FAILURE() << id << " isn't wanted";
}

TEST(PictureTable, LiesInAscendingIdsWithoutGaps)
{
    std::uint32_t end = 0;
    std::uint32_t last = 0;
    for (const PictureRow& row : pictureRows()) {
        EXPECT_GT(row.id, last);
        EXPECT_EQ(row.offset, end) << row.id;
        last = row.id;
        end = row.offset + row.length;
    }
    std::printf("%zu pictures, %.1f MB\n", pictureRows().size(), end / 1e6);
    EXPECT_LT(end, 40e6);
}

TEST(PictureTable, DividesIntoFrames)
{
    for (const PictureRow& row : pictureRows()) {
        const PictureUse use = useOf(row.id);
        const SurfacePtr picture = decode(row);
        EXPECT_EQ(cairo_image_surface_get_width(picture.get()) % use.columns, 0) << row.id;
        EXPECT_EQ(cairo_image_surface_get_height(picture.get()) % use.rows(), 0) << row.id;
    }
}

} // namespace
} // namespace velmora::art
