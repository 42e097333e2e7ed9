#include "app/CCommandLine6.h"

#include "core/Diagnostics.h"

#include <algorithm>

namespace {

struct Option {
    std::string_view name;
    int arguments;
};

constexpr Option kOptions[] = {
    {"nomusic", 0}, {"nosound", 0}, {"window", 0},     {"noframe", 0},  {"nogfx", 0},    {"hdd", 0},
    {"server", 0},  {"client", 0},  {"pf", 0},         {"code", 0},     {"decode", 0},   {"remove", 0},
    {"vmem", 0},    {"cheat", 0},   {"wakoprendy", 0}, {"2bin", 0},     {"forceCNV", 0}, {"debug", 0},
    {"bigfile", 0}, {"log", 0},     {"params", 0},     {"nomsgbox", 0}, {"res", 2},      {"path", 1},
    {"game", 1},    {"delay", 1},   {"pack", 0},       {"file", 1},     {"stack", 1},    {"fullname", 1},
};

bool isOption(std::string_view token, std::string_view name) {
    return !token.empty() && (token[0] == '-' || token[0] == '/') && token.substr(1) == name;
}

} // namespace

CCommandLine6::CCommandLine6(const char * text) {
    std::string_view rest(text ? text : "");
    while (true) {
        std::size_t start = rest.find_first_not_of(' ');
        if (start == std::string_view::npos) break;
        std::size_t end = std::min(rest.find(' ', start), rest.size());
        std::string_view next = rest.substr(start, end - start);
        if (!argv_.empty() && argv_.back().view() == next) break;
        argv_.emplace_back(next);
        rest.remove_prefix(end);
    }

    music_ = !findToken("nomusic");
    sound_ = !findToken("nosound");
    windowMode_ = findToken("window");
    noFrame_ = findToken("noframe");
    gfx_ = findToken("nogfx");
    hdd_ = findToken("hdd");
    server_ = findToken("server");
    client_ = findToken("client");
    pageFlipping_ = findToken("pf");
    toCode_ = findToken("code");
    toDecode_ = findToken("decode");
    toRemove_ = findToken("remove");
    vmem_ = findToken("vmem");
    cheat_ = findToken("cheat") || findToken("wakoprendy");
    to2Bin_ = findToken("2bin");
    forceCNV_ = findToken("forceCNV");
    debug_ = findToken("debug");
    createBigFile_ = findToken("bigfile");
    log_ = findToken("log");
    runWithParams_ = findToken("params");
    if (findToken("nomsgbox")) setMsgBoxFlag(false);

    // Options with an argument answer to their bare names too.
    if (std::size_t width = placeBehind("res"); width != kNowhere) {
        if (CXString value = token(width); value.IsString()) resolution_.cx = value.toNumber();
        if (CXString value = token(width + 1); value.IsString()) resolution_.cy = value.toNumber();
    }
    path_ = getNextToken("path");
    if (CXString game = getNextToken("game"); game.IsString()) path_ = game; // read later, so it wins
    delay_ = getNextToken("delay").toNumber();
    if (findToken("pack")) {
        packDir_ = path_;
        packFile_ = path_ + ".tnk";
        if (CXString file = getNextToken("file"); file.IsString()) packFile_ = file;
    }
    if (CXString depth = getNextToken("stack"); depth.IsString()) stackDepth_ = depth.toNumber();
}

bool CCommandLine6::findToken(std::string_view name) const {
    return std::ranges::any_of(argv_, [&](const CXString & each) { return isOption(each.view(), name); });
}

// The place of the token behind the first one that is the option or its bare name.
std::size_t CCommandLine6::placeBehind(std::string_view name) const {
    for (std::size_t i = 0; i < argv_.size(); i++)
        if (isOption(argv_[i].view(), name) || argv_[i].view() == name) return i + 1;
    return kNowhere;
}

CXString CCommandLine6::token(std::size_t place) const {
    return place < argv_.size() ? argv_[place] : CXString();
}

CXString CCommandLine6::getParameter(const CXString & name) const {
    return isParameter(name) ? getNextToken(name.view()) : CXString();
}

CXString CCommandLine6::getFullName() const {
    CXString name = getParameter("fullname");
    name.Replace('_', ' ');
    return name;
}

int CCommandLine6::argumentsOf(std::string_view option) {
    for (const Option & each : kOptions)
        if (isOption(option, each.name)) return each.arguments;
    return -1;
}
