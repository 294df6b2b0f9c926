#include "editor/engine/fonts.h"

#include "editor/engine/resource_factory.h"

namespace velmora::fonts {
namespace {

ResourceRef<QORFont> face(const char* name, double size)
{
    return ResourceRef<QORFont>::adopt(createFont(name, size));
}

} // namespace

const ResourceRef<QORFont> arial7 = face("Arial", 7);
const ResourceRef<QORFont> arial9 = face("Arial", 9);
const ResourceRef<QORFont> arial10 = face("Arial", 10);
const ResourceRef<QORFont> arial11 = face("Arial", 11);
const ResourceRef<QORFont> arial12 = face("Arial", 12);
const ResourceRef<QORFont> arial13 = face("Arial", 13);
const ResourceRef<QORFont> arial14 = face("Arial", 14);
const ResourceRef<QORFont> helvetica10 = face("Helvetica", 10);
const ResourceRef<QORFont> helvetica18 = face("Helvetica", 18);
const ResourceRef<QORFont> comic32 = face("Comic Sans MS", 32);
const ResourceRef<QORFont> standard = face("Arial", 12);

} // namespace velmora::fonts
