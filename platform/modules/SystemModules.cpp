#include "platform/modules/SystemModules.h"

#include <dlfcn.h>

namespace platform {

namespace {

class OpenLibrary : public SharedLibrary {
public:
    explicit OpenLibrary(void * handle) : handle_(handle) {}
    OpenLibrary(const OpenLibrary &) = delete;
    OpenLibrary & operator=(const OpenLibrary &) = delete;
    ~OpenLibrary() override { dlclose(handle_); }
    void * symbol(const char * name) override { return dlsym(handle_, name); }

private:
    void * handle_;
};

std::unique_ptr<SharedLibrary> opened(const std::string & name) {
    void * handle = dlopen(name.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!handle) return nullptr;
    return std::make_unique<OpenLibrary>(handle);
}

} // namespace

std::unique_ptr<SharedLibrary> SystemModules::open(const std::string & machinePath) {
    // A name without a folder would be looked for among the system's.
    return machinePath.find('/') == std::string::npos ? nullptr : opened(machinePath);
}

std::unique_ptr<SharedLibrary> SystemModules::openSystem(const std::string & name) {
    return name.empty() || name.find('/') != std::string::npos ? nullptr : opened(name);
}

} // namespace platform
