#pragma once

#include <stdlib.h>

#include <optional>
#include <string>

namespace velmora::host {

/// Sets an environment variable, or removes it, until the end of the scope. Not while there are other
/// threads.
class ScopedEnvironment {
public:
    ScopedEnvironment(const char* name, const std::optional<std::string>& value) : name_(name)
    {
        if (const char* old = getenv(name)) old_ = old;
        put(value);
    }
    ~ScopedEnvironment() { put(old_); }
    ScopedEnvironment(const ScopedEnvironment&) = delete;
    ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;

private:
    void put(const std::optional<std::string>& value)
    {
        if (value)
            setenv(name_, value->c_str(), 1);
        else
            unsetenv(name_);
    }

    const char* name_;
    std::optional<std::string> old_;
};

} // namespace velmora::host
