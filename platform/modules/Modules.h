#pragma once

// Shared libraries that the engine takes in while it runs. A build or a world without a loader treats every
// library as one that isn't there.

#include <memory>
#include <string>

namespace platform {

// An open library; closed with the object.
class SharedLibrary {
public:
    virtual ~SharedLibrary() = default;
    virtual void * symbol(const char * name) = 0; // null when it has none of that name
};

class Modules {
public:
    virtual ~Modules() = default;
    virtual const char * name() const = 0;
    // A library file by its path on the machine, in UTF-8. Null when there is none or it is no library.
    virtual std::unique_ptr<SharedLibrary> open(const std::string & machinePath) = 0;
    // One of the system's own, by the name that its loader knows.
    virtual std::unique_ptr<SharedLibrary> openSystem(const std::string & name) = 0;
};

} // namespace platform
