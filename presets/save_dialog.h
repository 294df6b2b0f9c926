#pragma once

#include <optional>
#include <string>

namespace velmora {

struct SaveRequest {
    std::string title;
    std::string directory;
    std::string suggestedName; ///< a file name with its extension
    std::string typeName;
    std::string extension; ///< without a dot
};

/// Asks the user where to save; whoever has a window serves it.
class SaveDialog {
public:
    virtual ~SaveDialog() = default;
    /// @return the path that was chosen, nothing if the user thought better of it.
    virtual std::optional<std::string> askForPath(const SaveRequest& request) = 0;
};

} // namespace velmora
