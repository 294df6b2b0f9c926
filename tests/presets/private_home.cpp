#include "tools/host/private_home.h"

#include <gtest/gtest.h>

#include <memory>

namespace velmora::test {
namespace {

/// No test of this program sees the folders and settings of the user who runs it.
class PrivateHomeEnvironment : public ::testing::Environment {
public:
    void SetUp() override { home_ = std::make_unique<host::PrivateHome>(); }
    void TearDown() override { home_.reset(); }

private:
    std::unique_ptr<host::PrivateHome> home_;
};

const auto* const kPrivateHome = ::testing::AddGlobalTestEnvironment(new PrivateHomeEnvironment);

} // namespace
} // namespace velmora::test
