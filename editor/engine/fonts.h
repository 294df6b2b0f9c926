#pragma once

#include "editor/engine/resource.h"

/// The program's faces, made at library load; plain style, sizes in pixels at 100 %.
namespace velmora::fonts {

extern const ResourceRef<QORFont> arial7;
extern const ResourceRef<QORFont> arial9;
extern const ResourceRef<QORFont> arial10;
extern const ResourceRef<QORFont> arial11;
extern const ResourceRef<QORFont> arial12;
extern const ResourceRef<QORFont> arial13;
extern const ResourceRef<QORFont> arial14;
extern const ResourceRef<QORFont> helvetica10;
extern const ResourceRef<QORFont> helvetica18;
extern const ResourceRef<QORFont> comic32;
extern const ResourceRef<QORFont> standard; ///< Arial 12, the face of labels and edits that were given none

} // namespace velmora::fonts
