#pragma once

#include "host/master/base_editor.h"

#include <cstdint>
#include <map>
#include <vector>

namespace velmora::vst24::test {

/// An editor that notes what it is told.
class RecordingEditor : public QORBaseEditor {
public:
    void open() override {}
    void close() override {}
    void setParameter(std::int32_t id, double value) override { heard[id].push_back(value); }
    void controlChanged(std::int32_t, double) override {}
    void idle() override {}

    std::map<std::int32_t, std::vector<double>> heard;
};

} // namespace velmora::vst24::test
