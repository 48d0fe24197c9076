#pragma once

#include <QApplication>
#include <array>
#include <gtest/gtest.h>
#include <memory>

namespace Tests {

/// Gives a test program its one platform application, before the first test and until the last.
class QtApplication : public testing::Environment {
public:
    void SetUp() override { application_ = std::make_unique<QApplication>(count_, arguments_.data()); }
    void TearDown() override { application_.reset(); }

private:
    int count_ = 1;
    std::array<char, 5> name_{"test"};
    std::array<char*, 2> arguments_{name_.data(), nullptr};
    std::unique_ptr<QApplication> application_;
};

} // namespace Tests
