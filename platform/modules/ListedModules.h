#pragma once

#include "platform/modules/Modules.h"

#include <map>
#include <vector>

namespace platform {

// For tests: libraries that are put together from functions of the program. What was asked for is kept.
class ListedModules : public Modules {
public:
    using Symbols = std::map<std::string, void *>;

    const char * name() const override { return "listed"; }
    std::unique_ptr<SharedLibrary> open(const std::string & machinePath) override {
        return find(machinePath);
    }
    std::unique_ptr<SharedLibrary> openSystem(const std::string & name) override { return find(name); }

    std::map<std::string, Symbols> libraries; // by path or name
    std::vector<std::string> asked;
    int opened = 0; // libraries that are open now

private:
    class Listed : public SharedLibrary {
    public:
        Listed(const Symbols & symbols, int & count) : symbols_(symbols), count_(count) { count_++; }
        Listed(const Listed &) = delete;
        Listed & operator=(const Listed &) = delete;
        ~Listed() override { count_--; }
        void * symbol(const char * name) override {
            auto found = symbols_.find(name);
            return found == symbols_.end() ? nullptr : found->second;
        }

    private:
        Symbols symbols_;
        int & count_;
    };

    std::unique_ptr<SharedLibrary> find(const std::string & name) {
        asked.push_back(name);
        auto found = libraries.find(name);
        if (found == libraries.end()) return nullptr;
        return std::make_unique<Listed>(found->second, opened);
    }
};

} // namespace platform
