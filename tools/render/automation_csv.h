#pragma once

#include <istream>
#include <string>
#include <vector>

namespace velmora::render {

/// One line of an automation file.
struct AutomationLine {
    int line = 0;         ///< counted from 1
    double seconds = 0.0; ///< from the start of the recording
    std::string name;
    std::string text;
};

/// Reads lines "seconds,name,text". Empty lines and lines that begin with '#' are skipped, a first line that
/// begins with the word "time" is a heading; fields may be quoted. @return the lines by rising time, those of
/// one time in file order. Throws UserError with the line's number.
std::vector<AutomationLine> parseAutomation(std::istream& in, const std::string& fileName);

} // namespace velmora::render
