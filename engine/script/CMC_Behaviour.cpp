#include "script/CMC_Behaviour.h"

#include "app/CWindow.h"
#include "core/CXTimer.h"
#include "core/Diagnostics.h"
#include "core/Text.h"
#include "platform/World.h"
#include "script/CMC_BasicCondition.h"
#include "script/CMC_Behaviour_Entry.h"
#include "script/CMC_ObjectsContainer.h"
#include "script/CMC_RunnerFactory.h"
#include "script/CMC_Variable.h"
#include "script/CMC_VariableFactory.h"
#include "script/CMElement.h"
#include "script/Control.h"
#include "script/Names.h"
#include "script/Notes.h"
#include "script/TimerIds.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

const char * const CMC_Behaviour::kSignals[3] = {"ONINIT", "ONDONE", "ONSIGNAL"};
const char * const CMC_Behaviour::kKeys[2] = {"CODE", "CONDITION"};
int CMC_Behaviour::depth = 0;
CMC_Behaviour::Bounds CMC_Behaviour::bounds;
CMC_Behaviour::Bounds CMC_Behaviour::taken;
int CMC_Behaviour::textsNo = 0;
bool CMC_Behaviour::isLeaving = false;

namespace {

// Code without the blanks and the braces round it.
CXString bare(const CXString & code) {
    std::string_view text = text::trimBlanks(code.view());
    if (text.starts_with('{')) text.remove_prefix(1);
    if (text.ends_with('}')) text.remove_suffix(1);
    return CXString(text::trimBlanks(text));
}

std::vector<CMC_Object *> trash; // owned
std::unordered_set<const CMC_Object *> inTrash;

} // namespace

Statements::Statements() = default;
Statements::~Statements() = default;

void Statements::sawName(const names::Record * record, CMC_Object * bound) {
    seen_.push_back({record, record->now(), life::Handle(bound)});
}

void Statements::sawNamesOf(const Statements & inner) {
    seen_.insert(seen_.end(), inner.seen_.begin(), inner.seen_.end());
}

bool Statements::namesStand(CMC_ObjectsContainer * scope) const {
    return std::ranges::all_of(seen_, [scope](const Seen & each) {
        std::uint64_t now = each.record->now();
        if (now == each.version) return true;
        // What is temporary comes and goes all the time, and is never bound.
        CMC_Object * found = scope ? scope->getObject(*each.record) : nullptr;
        if (found && found->isTemporary()) found = nullptr;
        if (found != each.bound.get()) return false;
        each.version = now;
        return true;
    });
}

CMC_Behaviour::CMC_Behaviour(CMC_ObjectsContainer * scope) : CMC_Behaviour(scope, "temp", "") {}

CMC_Behaviour::CMC_Behaviour(CMC_ObjectsContainer * scope, CMElement * element)
    : CMC_Object(scope, element, types::kBehaviour),
      code_(bare(element->getPropertyValue("CODE"))),
      condition_(element->getPropertyValue("CONDITION")) {
    initializeBehaviours(scope, element);
}

CMC_Behaviour::CMC_Behaviour(CMC_ObjectsContainer * scope, const CXString & name, const CXString & code)
    : CMC_Object(name, types::kBehaviour), code_(bare(code)) {
    scene_ = scope;
}

CMC_Behaviour::~CMC_Behaviour() {
    endTimer();
    drop(false);
}

CMC_Runner * CMC_Behaviour::getRunner() { return CMC_RunnerFactory::getRunner(types::kBehaviour); }

void CMC_Behaviour::init() {
    if (code_.GetAt(0) == '{') code_ = code_.Mid(1, code_.getLength() - 1);
    drop(false);
    if (code_.IsString()) parse(code_);
}

bool CMC_Behaviour::done(bool all) {
    drop(all);
    return true;
}

void CMC_Behaviour::drop(bool keepBlocks) {
    if (!lines_) return;
    for (auto & entry : lines_->entries) entry->releaseTempBeh(!keepBlocks);
    lines_ = {};
    parsedText_ = "";
}

void CMC_Behaviour::parse(const CXString & text) {
    lines_ = Statements::Use(new Statements);
    // The statements see what they were parsed into, not what a nested parse makes of this behaviour.
    Statements::Use lines = lines_;
    CMC_Behaviour_Entry::getCodeLines(this, text, *lines);
}

void CMC_Behaviour::setParams(CXArray * args) {
    CXString text = CMC_Behaviour_Entry::fillParams(code_, args);
    if (text == (parsedText_.IsString() ? parsedText_ : code_) && linesStand()) return;
    drop(false);
    parse(text);
    parsedText_ = text;
}

void CMC_Behaviour::resolveCondition() {
    if (!condition_.IsString() || !scene_) return;
    CMC_Object * found = scene_->getObject(condition_);
    bool fits =
        found && (found->getType() == types::kCondition || found->getType() == types::kComplexCondition);
    conditionObject_ = life::Handle(fits ? found : nullptr);
}

bool CMC_Behaviour::run(CMC_Object * self, CXArray * args, bool useCondition) {
    if (!enabled_ || !lines_) return false;
    life::Guard guard;
    if (useCondition)
        if (CMC_Object * condition = conditionObject_.get())
            if (!static_cast<CMC_BasicCondition *>(condition)->valid(true)) return false;
    if (depth >= bounds.depth) {
        refuse();
        return false;
    }
    if (depth == 0 && textsNo == 0) startCounting();
    depth++;
    calls_++;
    std::uint32_t start = platform::world().clock->tickCount();
    bool broken = runLines(self, args);
    totalTime_ += static_cast<int>(platform::world().clock->tickCount() - start);
    flushTempObjects();
    depth--;
    return broken;
}

void CMC_Behaviour::startCounting() {
    taken = {0, 0, 0};
    isLeaving = false;
}

void CMC_Behaviour::refuse() {
    notes::add(notes::Kind::tooDeep, std::string(getName().view()) +
                                         " isn't run: behaviours run each other " +
                                         std::to_string(bounds.depth) + " deep");
    if (++taken.tooDeep == 1) dispMsgBox(nullptr, "Behaviour " + getName() + " runs itself without end");
    // One that runs itself twice would try every way down.
    if (taken.tooDeep >= bounds.tooDeep) isLeaving = true;
}

bool CMC_Behaviour::nextTurn() {
    if (isLeaving) return false;
    if (++taken.turns < bounds.turns) return true;
    if (taken.turns == bounds.turns)
        notes::add(notes::Kind::tooDeep, "the loops are left after too many turns");
    return false;
}

bool CMC_Behaviour::runLines(CMC_Object * self, CXArray * args) {
    Statements::Use lines = lines_;
    if (!lines) return false; // the condition's handlers dropped them
    notes::Place place(this);
    int number = 0;
    for (auto & entry : lines->entries) {
        place.at(++number, entry->getLine());
        CMC_Object * result = entry->run(self, args);
        if (control::isSignal(result)) return result == control::breakSignal();
        CMC_Object::flush(result);
        if (isLeaving) break;
    }
    return false;
}

void CMC_Behaviour::addTempObject(CMC_Object * object) {
    tempObjects_.push_back({life::Handle(object), depth});
}

void CMC_Behaviour::flushTempObjects() {
    if (tempObjects_.empty()) return;
    for (const Local & each : std::exchange(tempObjects_, {})) {
        CMC_Object * object = each.object.get();
        if (!object) continue;
        if (object->getScene()) object->getScene()->removeObject(object);
        // Nobody outside of the run that made it can be in the midst of using it.
        if (each.madeAt == depth)
            delete object;
        else
            life::bury(object);
    }
}

void CMC_Behaviour::runOnTimer(int interval, int count, CXArray * args, CMC_Behaviour * onDone) {
    endTimer();
    timerCounter_ = 0;
    timerCount_ = count;
    timerArgs_ = args;
    timerDone_ = life::Handle(onDone);
    CWindow * window = scene_ ? scene_->getWindow() : nullptr;
    if (!window) return;
    timerId_ = timerids::next();
    window->getTimer()->add(timerId_, static_cast<unsigned>(std::max(interval, 0)), this);
}

void CMC_Behaviour::leaveTimer() {
    if (int id = std::exchange(timerId_, 0))
        if (CWindow * window = CWindow::getWindow()) window->getTimer()->remove(id);
}

void CMC_Behaviour::endTimer() {
    leaveTimer();
    life::buryStrings(std::exchange(timerArgs_, nullptr));
}

void CMC_Behaviour::onTimer(int) {
    life::Guard guard;
    life::Handle alive(this);
    timerCounter_++;
    if (timerArgs_ && timerArgs_->size > 0) *timerArgs_->stringAt(0) = timerCounter_;
    CXArray * args = timerArgs_; // the guard keeps it
    bool broken = run(this, args, false);
    if (!alive.get()) return; // it stopped itself
    if (!broken && (timerCount_ < 1 || timerCounter_ != timerCount_)) return;
    leaveTimer();
    if (auto * onDone = static_cast<CMC_Behaviour *>(timerDone_.get())) {
        onDone->run(this, args, true);
        if (onDone->getName() == "temp" && timerDone_.get()) {
            if (onDone->getScene()) onDone->getScene()->removeObject(onDone);
            life::bury(onDone);
        }
    }
    if (alive.get()) _break();
}

void CMC_Behaviour::_break() {
    if (isToDelete()) return;
    endTimer();
    setToDelete();
    if (scene_) scene_->removeObject(this);
    life::bury(this);
}

void CMC_Behaviour::initTrash() {
    trash.clear();
    inTrash.clear();
}

void CMC_Behaviour::doneTrash() { flushTrash(); }

void CMC_Behaviour::addToTrash(CMC_Object * object) {
    if (inTrash.insert(object).second) trash.push_back(object);
}

void CMC_Behaviour::flushTrash() {
    inTrash.clear();
    for (CMC_Object * each : std::exchange(trash, {})) life::bury(each);
}

std::size_t CMC_Behaviour::trashSize() { return trash.size(); }

void CMC_Behaviour::cutTrash(std::size_t size) {
    while (trash.size() > size) {
        CMC_Object * last = trash.back();
        trash.pop_back();
        inTrash.erase(last);
        delete last;
    }
}
