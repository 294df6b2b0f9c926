#pragma once

#include <string>

namespace velmora {

/// Results of `openPath`: above 32 the path was handed on.
inline constexpr int kOpenFailed = 0;
inline constexpr int kOpenNoSuchFile = 2;
inline constexpr int kOpenNoProgram = 31; ///< there is nothing to open it with
inline constexpr int kOpenLastFailure = 32;
inline constexpr int kOpened = 33;

/// Opens a file, a folder (absolute path) or a web address with the program that the user's desktop has for
/// it. Doesn't wait for that program.
int openPath(const std::string& path);

/// Tells the user something: on the standard error stream, and through the desktop's notifier if there is
/// one.
void showMessage(const std::string& text, const std::string& caption);

} // namespace velmora
