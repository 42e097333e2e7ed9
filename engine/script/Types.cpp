#include "script/Types.h"

namespace types {

namespace {

struct Row {
    int id;
    const char * word;    // by which scripts ask for the type; null when they can't
    const char * message; // how messages name it; null when they give the number
};

constexpr Row kRows[] = {
    {kInteger, "INTEGER", "INTEGER"},
    {kString, "STRING", "STRING"},
    {kBool, "BOOL", "BOOL"},
    {kDouble, "DOUBLE", "DOUBLE"},
    {kVariable, "VARIABLE", nullptr},
    {kCondition, "CONDITION", "CONDITION"},
    {kComplexCondition, "COMPLEXCONDITION", "COMPLEX CONDITION"},
    {kExpression, "EXPRESSION", "EXPRESSION"},
    {kBehaviour, "BEHAVIOUR", "BEHAVIOUR"},
    {kMouse, "MOUSE", "MOUSE"},
    {kKeyboard, "KEYBOARD", "KEYBOARD"},
    {kRandom, "RANDOM", "RANDOM"},
    {kCanvasObserver, "CANVASOBSERVER", "CANVAS OBSERVER"},
    {kApplication, "APPLICATION", "APPLICATION"},
    {kEpisode, "EPISODE", "EPISODE"},
    {kScene, "SCENE", "SCENE"},
    {kAnimo, "ANIMO", "ANIMO"},
    {kButton, "BUTTON", "BUTTON"},
    {kFont, "FONT", "FONT"},
    {kSequence, "SEQUENCE", "SEQUENCE"},
    {kSound, "SOUND", "SOUND"},
    {kText, "TEXT", "TEXT"},
    {kTimer, "TIMER", "TIMER"},
    {kImage, "IMAGE", "IMAGE"},
    {kEditBox, "EDITBOX", nullptr},
    {kNetPeer, "NETPEER", "NETPEER"},
    {kNetServer, "NETSERVER", nullptr},
    {kNetClient, "NETCLIENT", nullptr},
    {kDialog, "DIALOG", "DIALOG"},
    {kFilter, "FILTER", "FILTER"},
    {kStaticFilter, "STATICFILTER", nullptr},
    {kVector, "VECTOR", nullptr},
    {kPath, "PATH", nullptr},
    {kFifo, "FIFO", nullptr},
    {kLifo, "LIFO", nullptr},
    {kCanvas, "CANVAS", nullptr},
    {kPattern, "PATTERN", nullptr},
    {kScroll, "SCROLL", nullptr},
    {kGroup, "GROUP", nullptr},
    {kArray, "ARRAY", "ARRAY"},
    {kStructure, "STRUCTURE", nullptr},
    {kDatabase, "DATABASE", nullptr},
    {kClass, "CLASS", nullptr},
    {kVirtualGraphicsObject, "VIRTUAL_GRAPHICSOBJECT", nullptr},
    {kMultiArray, "MULTIARRAY", nullptr},
    {kKolorowanka, "KOLOROWANKA", nullptr},
    {kMatrix, "MATRIX", nullptr},
    {kSwf, "SWF", nullptr},
};

} // namespace

int idOf(const CXString & word) {
    for (const Row & row : kRows)
        if (word == row.word) return row.id;
    return -1;
}

CXString wordOf(int id) {
    for (const Row & row : kRows)
        if (row.id == id && row.message) return row.message;
    return CXString::toString(id);
}

} // namespace types
