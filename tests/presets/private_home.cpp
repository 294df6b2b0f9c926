#include "tests/platform/temporary_folder.h"

#include <gtest/gtest.h>

#include <memory>

namespace velmora::test {
namespace {

/// No test of this program sees the folders and settings of the user who runs it.
class PrivateHome : public ::testing::Environment {
public:
    void SetUp() override
    {
        folder_ = std::make_unique<TemporaryFolder>();
        profile_ = std::make_unique<ScopedEnvironment>("USERPROFILE", folder_->path().string());
        config_ = std::make_unique<ScopedEnvironment>("XDG_CONFIG_HOME", folder_->file("config"));
    }
    void TearDown() override
    {
        config_.reset();
        profile_.reset();
        folder_.reset();
    }

private:
    std::unique_ptr<TemporaryFolder> folder_;
    std::unique_ptr<ScopedEnvironment> profile_;
    std::unique_ptr<ScopedEnvironment> config_;
};

const auto* const kPrivateHome = ::testing::AddGlobalTestEnvironment(new PrivateHome);

} // namespace
} // namespace velmora::test
