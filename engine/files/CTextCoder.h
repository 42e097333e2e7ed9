#pragma once

// The lines of a text, in clear whether it is stored coded or not; and the writer of coded and clear copies.
// A coded text opens with a head, "{<C:N>}" and a line feed ("{<D:" instead asks for a clear copy whenever it
// is opened). Each further physical line holds up to N source lines, each followed by "<E>". A character is
// stored moved by an amount that depends on its place, counted through the text modulo N; so one that comes
// out as a line feed, or characters that come out as "<E>", split a line: the format can't hold them.
//
// A cycle N below 1 counts as 1; a head without ">" has the number that its line begins with. Lines end at a
// zero byte of the clear text, as every string does. One owner; main thread.

#include "files/CTextFileReader.h"

#include <string>

class CTextCoder : public CXObject {
public:
    // Over the file of that name; the error code is 2000 when it isn't found, and then there are no lines.
    CTextCoder(CWindow * window, const CXString & name, bool noAutoDecode);
    // Over a reader that stays the caller's and outlives the coder.
    CTextCoder(CWindow * window, CTextFileReader * reader, bool noAutoDecode);
    CTextCoder(const CTextCoder &) = delete;
    CTextCoder & operator=(const CTextCoder &) = delete;

    virtual int getOffset(int position); // how far a character at that place of the cycle is moved
    // Whether the text is at its end. A coded one is when getLine() looked for a further line in vain, so the
    // last line that it gives is an empty one behind the text.
    virtual bool _eof();
    // The next line; whatever it holds, a line feed ends it.
    virtual CXString getLine();
    // Up to a cycle of source lines as one physical line; only of a clear text, else empty.
    virtual CXString codeLine();
    virtual bool isCoded() { return coded_; }

    // getLine() for readers in a hurry: no line feed, and nothing is copied out of a clear text. Good until
    // the next line is asked for.
    std::string_view nextLine();
    // Of a coded text at its end: what stands on its last line behind the last "<E>", and is no line.
    std::string_view getRest() const { return physical_; }

    // Copies of files, coded and in clear. The new file is made below the local root or where its name says.
    // Nothing happens on an error, to a text already coded, or to one already clear.
    static void code(CWindow * window, const CXString & from, const CXString & to, int cycle);
    static void decode(CWindow * window, const CXString & from, const CXString & to);
    // A whole clear text as the bytes of a coded copy; none of one already coded.
    static std::string code(CTextFileReader * reader, int cycle);

private:
    template <class Sink>
    void codeAll(int cycle, Sink && sink);
    void init(CWindow * window, bool noAutoDecode);
    std::string_view nextCodedLine();
    bool readCodedLine(std::string & line);

    CXString name_;                          // empty over a reader that was given
    std::unique_ptr<CTextFileReader> owned_; // null over a reader that was given
    CTextFileReader * reader_;
    bool coded_ = false;
    int cycle_ = 1;
    int place_ = 0; // of the next character within the cycle
    bool ended_ = false;
    int sourceLines_ = 0;       // decoded so far, within the cycle
    std::string_view physical_; // what is left of the physical line
    std::string decoded_;       // the last line given
};
