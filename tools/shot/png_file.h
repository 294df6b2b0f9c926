#pragma once

#include "tools/shot/shot.h"

#include <string>

namespace velmora::shot {

/// Throws UserError if the file can't be written or read.
void writePng(const Picture& picture, const std::string& path);
Picture readPng(const std::string& path);

} // namespace velmora::shot
