#pragma once

// A fixture that runs its test in a headless world with a folder of its own, gone afterwards.

#include "platform/World.h"
#include "platform/clock/VirtualClock.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <string_view>

namespace test {

class InWorld : public ::testing::Test {
protected:
    explicit InWorld(platform::Options options = {});
    ~InWorld() override;

    platform::World & world() { return *world_; }
    platform::VirtualClock & clock() { return *world_->virtualClock; }

    // The test's folder as the machine names it, and as the engine does ("C:\...", no backslash at the end).
    const std::string & folder() const { return folder_; }
    std::string windowsFolder() { return world_->files->fromMachine(folder_); }

    // Files of the test's folder, named relative to it with slashes; put makes the folders on the way.
    void put(const std::string & name, std::string_view bytes);
    std::string get(const std::string & name) const; // the bytes; fails the test when it isn't there
    bool exists(const std::string & name) const;

private:
    std::string folder_;
    std::unique_ptr<platform::World> world_;
    std::unique_ptr<platform::Installed> installed_;
};

} // namespace test
