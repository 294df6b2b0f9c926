#pragma once

#include "host/master/master_controller.h"

#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace velmora::test {

/// The host's side of an editor: notes what comes, a line each.
class RecordingMaster : public QORMasterController {
public:
    std::vector<std::string> lines;
    /// Called behind every line, as a host that reacts at once.
    std::function<void(const std::string&)> react = [](const std::string&) {};

    void setParameter(std::int32_t id, double value) override { note("set", id, value); }
    void editParameter(std::int32_t id, double value) override { note("edit", id, value); }
    void beginGesture(std::int32_t id) override { note("begin", id); }
    void endGesture(std::int32_t id) override { note("end", id); }
    void writeStoredSetting(std::int32_t, double) override {}
    void readStoredSetting(std::int32_t, double*) override {}
    QORBasePresetStore* getPresetStore() override { return nullptr; }
    QORBaseParametersController* getController() override { return nullptr; }

private:
    void note(const char* what, std::int32_t id)
    {
        char line[64];
        std::snprintf(line, sizeof line, "%s %d", what, id);
        lines.emplace_back(line);
        react(line);
    }
    void note(const char* what, std::int32_t id, double value)
    {
        char line[64];
        std::snprintf(line, sizeof line, "%s %d %.2f", what, id, value);
        lines.emplace_back(line);
        react(line);
    }
};

} // namespace velmora::test
