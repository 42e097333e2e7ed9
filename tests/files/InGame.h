#pragma once

// A world with a window whose local root is the test's folder. The language is none, unless a test sets it.

#include "app/CCommandLine6.h"
#include "app/CWindow.h"
#include "files/CLanguageOSVer.h"
#include "support/InWorld.h"

#include <ostream>

inline void PrintTo(const CXString & text, std::ostream * out) { *out << '"' << text.view() << '"'; }

namespace test {

class InGame : public InWorld {
protected:
    explicit InGame(const platform::Options & options = {}) : InWorld(options) { CWindow::setCDPath(""); }

    // The Windows name of something in the test's folder, named with slashes.
    CXString path(const std::string & name) {
        return CXString(world().files->fromMachine(folder() + "/" + name));
    }
    void enter(const std::string & name) {
        ASSERT_TRUE(world().files->changeDirectory(std::string(path(name).view())));
    }

    struct English : platform::Locale {
        const char * name() const override { return "english"; }
        std::string languageCode() override { return "0409"; }
    };
    bool englishSet_ = (world().locale = std::make_unique<English>(), true);
    CCommandLine6 commandLine_{""};
    CLanguageOSVer language_;
    CWindow window_{nullptr, &commandLine_, &language_, {800, 600}, nullptr, "", true};
};

} // namespace test
