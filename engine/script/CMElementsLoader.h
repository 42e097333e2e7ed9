#pragma once

// Reads definitions: lines of text that name objects and give them keys and values. What doesn't fit is left
// out without a message. Main thread.
//
//     OBJECT=name                 a new element, unless there is one
//     name:KEY=VALUE              a property of an element named before; KEY alone does too
//     name:ADD=parent             puts it below another; name:APPLY=child is the other way round
//     IMPORT=name                 an element of the type SEQUENCE, unless there is one
//     DEF=name(KEY=VALUE|...)     an element at once, with values that may hold colons and equals signs
//     # comment                   ! ends the definitions; / anywhere goes on in the next line

#include "core/CXString.h"

class CMElements;
class CTextCoder;
class CTextFileReader;
class CWindow;

class CMElementsLoader {
public:
    // New lists, which belong to the caller and own their elements; null when the text can't be opened.
    // By name, a window whose command line asks for it makes coded and clear copies of the file, beside it.
    static CMElements * load(CWindow * window, const CXString & path);
    static CMElements * load(CWindow * window, CTextFileReader * reader); // which stays the caller's
    static CMElements * load(CTextCoder * coder);                         // never null

    // A logical line: physical ones joined while they hold a slash, without slashes, tabs and outer blanks.
    static CXString getLine(CTextCoder * coder);

    // Definitions are written by authors: writes nothing, true.
    static bool save(const CXString & path, CMElements * elements);
};
