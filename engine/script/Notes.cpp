#include "script/Notes.h"

#include "app/CWindow.h"
#include "script/CMC_Behaviour.h"
#include "script/CMC_ObjectsContainer.h"

#include <unordered_set>
#include <utility>

namespace notes {

namespace {

Listener listener;
std::unordered_set<std::string> told; // lines that stand in the log already

std::string line(const Note & note) {
    std::string text = std::string("script: ") + name(note.kind) + ": " + note.what + " [" + note.scope;
    if (!note.behaviour.empty()) text += " / " + note.behaviour;
    if (note.statement > 0) text += " #" + std::to_string(note.statement);
    text += "]";
    if (!note.text.empty()) text += " " + note.text;
    return text + "\n";
}

void tell(const Note & note) {
    if (!CWindow::logEnabled && !listener) return;
    std::string text = line(note);
    if (!told.insert(text).second) return;
    CWindow::toLog(text.c_str(), false);
    if (listener) listener(note);
}

} // namespace

Place * Place::current = nullptr;

const char * name(Kind kind) {
    switch (kind) {
    case Kind::unknownObject: return "unknown object";
    case Kind::unknownMethod: return "unknown method";
    case Kind::missingSemicolon: return "missing ;";
    case Kind::missingParenthesis: return "missing )";
    case Kind::noCall: return "not a statement";
    case Kind::unknownBehaviour: return "unknown behaviour";
    case Kind::tooFewParameters: return "too few parameters";
    case Kind::divisionByZero: return "division by zero";
    case Kind::textTooLong: return "text too long";
    case Kind::tooDeep: return "too deep";
    case Kind::poolGrown: return "many temporary values";
    case Kind::noSettings: return "no settings file";
    case Kind::other: break;
    }
    return "note";
}

void add(Kind kind, std::string_view what) {
    if (!CWindow::logEnabled && !listener) return;
    Note note;
    note.kind = kind;
    note.what = what;
    if (const Place * place = Place::current) {
        auto * behaviour = const_cast<CMC_Behaviour *>(place->behaviour_);
        note.behaviour = behaviour->getName().view();
        if (behaviour->getScene()) note.scope = behaviour->getScene()->getName().view();
        note.statement = place->statement_;
        if (place->text_) note.text = place->text_->view();
    }
    tell(note);
}

void add(Kind kind, std::string_view scope, std::string_view object, std::string_view what) {
    Note note;
    note.kind = kind;
    note.scope = scope;
    note.behaviour = object;
    note.what = what;
    tell(note);
}

Listener listen(Listener next) { return std::exchange(listener, std::move(next)); }

void reset() { told.clear(); }

} // namespace notes
