#pragma once

/// The PNG files of all pictures, one behind the other. "picture_rows.inc" tells where each lies, in rows
/// {id, offset, length}, of ascending ids.
extern "C" [[gnu::visibility("hidden")]] const unsigned char velmora_pictures_begin[];
