#pragma once

namespace velmora {

/// Holds a flag up for as long as this lives, whatever is thrown meanwhile.
class RaisedFlag {
public:
    explicit RaisedFlag(bool& shared) : flag(shared) { flag = true; }
    ~RaisedFlag() { flag = false; }
    RaisedFlag(const RaisedFlag&) = delete;
    RaisedFlag& operator=(const RaisedFlag&) = delete;

private:
    bool& flag;
};

} // namespace velmora
