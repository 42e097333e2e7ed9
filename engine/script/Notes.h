#pragma once

// What a script author is told: the engine stays silent on bad statements, but each gets a line in the log.
// A note is data, so that a checker can collect the same notes.

#include <functional>
#include <string>
#include <string_view>

class CMC_Behaviour;
class CXString;

namespace notes {

enum class Kind {
    unknownObject,      // a statement's target isn't there
    unknownMethod,      // the target's type has no such method
    missingSemicolon,   // text behind the last statement
    missingParenthesis, // a call without its closing one
    noCall,             // a statement that is neither a call nor a value
    unknownBehaviour,   // a binding to a behaviour that isn't there
    tooFewParameters,
    divisionByZero,
    textTooLong, // cut at the limit of a statement
    tooDeep,     // behaviours that run each other without end
    poolGrown,   // more temporary values alive than a pool holds
    noSettings,  // a value to keep, and no settings file
    other,
};

struct Note {
    Kind kind = Kind::other;
    std::string scope;
    std::string behaviour;
    int statement = 0; // counted from 1; 0 when no statement is at hand
    std::string text;  // the statement's
    std::string what;  // what was wrong, in words
};

const char * name(Kind kind);

// Notes what was wrong in the statement that runs or is parsed now: to the log (one line) and to the
// listener. A cause is told once for each statement, not at each of its runs.
void add(Kind kind, std::string_view what);
// The same for a mistake in an object's definition.
void add(Kind kind, std::string_view scope, std::string_view object, std::string_view what);

using Listener = std::function<void(const Note &)>;
// Who else is told; an empty function for nobody. Returns the listener before.
Listener listen(Listener listener);

// The statement that notes are about, while this object lives. Places nest. Costs a few stores.
class Place {
public:
    explicit Place(const CMC_Behaviour * behaviour) : behaviour_(behaviour), outer_(current) {
        current = this;
    }
    Place(const CMC_Behaviour * behaviour, int statement, const CXString & text) : Place(behaviour) {
        at(statement, text);
    }
    ~Place() { current = outer_; }
    Place(const Place &) = delete;
    Place & operator=(const Place &) = delete;

    void at(int statement, const CXString & text) {
        statement_ = statement;
        text_ = &text;
    }

private:
    friend void add(Kind kind, std::string_view what);

    const CMC_Behaviour * behaviour_;
    int statement_ = 0;
    const CXString * text_ = nullptr; // outlives the place
    Place * outer_;
    static Place * current;
};

// Forgets which causes were told (a new game, a test).
void reset();

} // namespace notes
