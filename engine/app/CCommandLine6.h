#pragma once

// The engine's command line: options begin with a dash or a slash, in the case of the table. Made by the
// host, which owns it.

#include "core/CXSize.h"
#include "core/CXString.h"

#include <string_view>
#include <vector>

class CCommandLine6 {
public:
    // text: the command line without the program's name. It is cut at blanks, up to the first token that
    // equals the one before it; that one and what follows it are dropped.
    explicit CCommandLine6(const char * text);

    int getNoArgs() const { return static_cast<int>(argv_.size()); }
    CXSize getResolution() const { return resolution_; }
    bool isHdd() const { return hdd_; }
    void setAsHdd(bool on) { hdd_ = on; }
    bool isMusicEnabled() const { return music_; }
    bool isSoundEnabled() const { return sound_; }
    bool isWindowMode() const { return windowMode_; }
    void setAsWindow(bool on) { windowMode_ = on; }
    void runInWindow(bool on) { windowMode_ = on; }
    bool isRunWithParams() const { return runWithParams_; }
    bool isGFXEnabled() const { return gfx_; } // the flag that the option "nogfx" sets
    bool isServer() const { return server_; }
    bool isClient() const { return client_; }
    bool isToCode() const { return toCode_; }
    bool isToDecode() const { return toDecode_; }
    bool isToRemove() const { return toRemove_; }
    bool isPageFlippingEnabled() const { return pageFlipping_; }
    bool isVMem() const { return vmem_; }
    bool isCheatMode() const { return cheat_; }
    bool is2Bin() const { return to2Bin_; }
    bool isForceCNV() const { return forceCNV_; }
    bool isDebugMode() const { return debug_; }
    void setAsShowDbg(bool on) { debug_ = on; }
    bool isCreateBigFile() const { return createBigFile_; }
    bool isLogEnabled() const { return log_; }
    const CXString & getPath() const { return path_; }
    void setPath(const CXString & path) { path_ = path; }
    bool isGame() const { return path_.IsString(); }
    int getDelay() const { return delay_; }
    bool isSecondaryDisplayEnabled() const { return delay_ > 0; }
    bool isNoFrame() const { return noFrame_; }
    const CXString & getPackDir() const { return packDir_; }
    bool isToPack() const { return packDir_.IsString(); }
    const CXString & getPackFile() const { return packFile_; }
    int getStackDepth() const { return stackDepth_; }

    // Whether the option stands on the command line, and the token behind it (empty when there is none).
    bool isParameter(const CXString & name) const { return findToken(name.view()); }
    CXString getParameter(const CXString & name) const;
    CXString getFullName() const; // option "fullname", its underscores as blanks

    // Whether the engine knows the option, and how many tokens that follow belong to it; -1 for an unknown
    // one. For hosts with options of their own on the same line.
    static int argumentsOf(std::string_view option);

private:
    static constexpr std::size_t kNowhere = ~std::size_t{0};

    bool findToken(std::string_view name) const;
    std::size_t placeBehind(std::string_view name) const;
    CXString token(std::size_t place) const;
    CXString getNextToken(std::string_view name) const { return token(placeBehind(name)); }

    std::vector<CXString> argv_;
    CXSize resolution_{800, 600};
    bool hdd_, music_, sound_, windowMode_, runWithParams_, gfx_, server_, client_, toCode_, toDecode_,
        toRemove_, pageFlipping_, vmem_, cheat_, to2Bin_, forceCNV_, debug_, createBigFile_, log_, noFrame_;
    CXString path_;
    int delay_ = 0;
    CXString packDir_, packFile_;
    int stackDepth_ = 0;
};
