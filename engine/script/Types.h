#pragma once

// The numbers of the script types. They stand in stored files, so they are fixed.

#include "core/CXString.h"

namespace types {

enum Id : int {
    kNone = 0,
    kInteger = 1,
    kString = 2,
    kBool = 3,
    kDouble = 4,
    kVariable = 5,
    kCondition = 10,
    kComplexCondition = 11,
    kExpression = 12,
    kBehaviour = 13,
    kMouse = 100,
    kKeyboard = 101,
    kRandom = 102,
    kCanvasObserver = 103,
    kApplication = 1000,
    kEpisode = 1001,
    kScene = 1002,
    kAnimo = 2000,
    kButton = 2001,
    kFont = 2002,
    kSequence = 2004,
    kSound = 2005,
    kText = 2006,
    kTimer = 2007,
    kImage = 2008,
    kEditBox = 2009,
    kNetPeer = 2010,
    kNetServer = 2011,
    kNetClient = 2012,
    kDialog = 2013,
    kFilter = 2014,
    kStaticFilter = 2015,
    kVector = 2016,
    kPath = 2017,
    kFifo = 2018,
    kLifo = 2019,
    kCanvas = 2020,
    kPattern = 2021,
    kScroll = 2022,
    kJoystick = 2023,
    kMovie = 2024,
    kGrBuffer = 2026,
    kInternet = 2027,
    kGroup = 3000,
    kArray = 3001,
    kStructure = 3002,
    kDatabase = 3003,
    kClass = 3004,
    kVirtualGraphicsObject = 3005,
    kMultiArray = 3006,
    kKolorowanka = 10002,
    kMatrix = 10003,
    kSwf = 10060,
    kSystem = 11000,
    kCnvLoader = 12000,
    kEntry = -100,
};

// Types above this number bring their own runner, even when they are found by an indirect name.
inline constexpr int kFirstModuleType = 10001;

inline bool isValue(int type) { return type >= kInteger && type <= kDouble; }

// The number of a type's word, -1 for an unknown one; upper case, exactly.
int idOf(const CXString & word);
// A type's word for messages; an id without one gives its number.
CXString wordOf(int id);

} // namespace types
