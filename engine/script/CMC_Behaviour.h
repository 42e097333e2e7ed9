#pragma once

// A named piece of script code: it holds the text, the statements parsed from it, and runs them. Owned by
// its scope. A run is synchronous and may nest to any depth up to a limit; running and parsing the same
// behaviour at once is fine, since a run keeps the statements that it began with.

#include "core/CTimerNotificator.h"
#include "script/CMC_Object.h"

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

class CMC_BasicCondition;
class CMC_Behaviour_Entry;

namespace names {
struct Record;
}

// The statements of a behaviour's text. Their behaviour and each of its runs hold them by a Use.
class Statements {
public:
    // Like a shared pointer that stays on one thread.
    class Use {
    public:
        Use() = default;
        explicit Use(Statements * statements) : statements_(statements) { count(1); }
        Use(const Use & other) : Use(other.statements_) {}
        Use(Use && other) noexcept : statements_(std::exchange(other.statements_, nullptr)) {}
        Use & operator=(Use other) noexcept {
            std::swap(statements_, other.statements_);
            return *this;
        }
        ~Use() {
            count(-1);
            if (statements_ && statements_->uses_ == 0) delete statements_;
        }
        Statements * get() const { return statements_; }
        Statements * operator->() const { return statements_; }
        Statements & operator*() const { return *statements_; }
        explicit operator bool() const { return statements_ != nullptr; }

    private:
        void count(int change) {
            if (statements_) statements_->uses_ += change;
        }

        Statements * statements_ = nullptr;
    };

    Statements();
    ~Statements();
    Statements(const Statements &) = delete;
    Statements & operator=(const Statements &) = delete;

    std::vector<std::unique_ptr<CMC_Behaviour_Entry>> entries;

    // A name that the parser looked up, and the object that it bound, or null. Parsing again gives the same
    // as long as each name still means that object.
    void sawName(const names::Record * record, CMC_Object * bound);
    // The same for all names that the parser of a text inside this one saw.
    void sawNamesOf(const Statements & inner);
    bool namesStand(CMC_ObjectsContainer * scope) const;

private:
    struct Seen {
        const names::Record * record = nullptr;
        mutable std::uint64_t version = 0; // up to which the name is known to mean that object
        life::Handle bound;
    };
    std::vector<Seen> seen_;
    int uses_ = 0;
};

class CMC_Behaviour : public CMC_Object, public CTimerNotificator {
public:
    static constexpr int kLimit = 10240; // bytes that a statement, or a text with its arguments, may take
    static const char * const kSignals[3];
    static const char * const kKeys[2];

    explicit CMC_Behaviour(CMC_ObjectsContainer * scope); // empty, named "temp"
    CMC_Behaviour(CMC_ObjectsContainer * scope, CMElement * element);
    CMC_Behaviour(CMC_ObjectsContainer * scope, const CXString & name, const CXString & code);
    ~CMC_Behaviour() override;

    void init() override;         // parses
    bool done(bool all) override; // drops the statements; with all, their inline blocks stay to the scope
    SignalList getBehavioursList() override { return kSignals; }
    CMC_Runner * getRunner() override;

    // self: whom THIS stands for, or null. args: CXArray of CXString for $1 to $9, or null; the caller's.
    // True when a BREAK ended it.
    virtual bool run(CMC_Object * self, CXArray * args, bool useCondition);
    // A local variable: gone from its scope and deleted when this behaviour's run ends.
    virtual void addTempObject(CMC_Object * object);
    // Runs on the window's timer; args (its first string is the tick's number) and onDone become this one's.
    virtual void runOnTimer(int interval, int count, CXArray * args, CMC_Behaviour * onDone);
    virtual void _break(); // stops such a run
    void onTimer(int id) override;

    // Parses the code anew with the arguments in it; the code itself stays.
    void setParams(CXArray * args);
    void resolveCondition();
    void flushTempObjects();

    const CXString & getCode() const { return code_; }
    const CXString & getCodition() const { return condition_; }
    const Statements * getLines() const { return lines_.get(); }
    // Whether parsing anew gives the same statements.
    bool linesStand() const { return lines_ && lines_->namesStand(scene_); }
    bool isEnabled() const { return enabled_; }
    void enable(bool on) { enabled_ = on; }
    int getCalls() const { return calls_; }
    int getTotalBehTime() const { return totalTime_; }
    int getAvgBehTime() const { return calls_ ? totalTime_ / calls_ : 0; }
    int getBreakpoint() const { return breakpoint_; }
    void setBreakpoint(int line) { breakpoint_ = line; }
    void resetBreakpoint() { breakpoint_ = -1; }

    // The second interpreter, for comparison texts: walks the text without keeping statements. Results as an
    // entry's; an expression goes to the trash.
    static CMC_Object * runLine(CMC_ObjectsContainer * scope, CMC_Object * self, const CXString & text,
                                CXArray * args);
    static CMC_Object * resolveObject(CMC_ObjectsContainer * scope, CMC_Object * self, const CXString & text);
    static CXVector * resolveParameters(CMC_ObjectsContainer * scope, CMC_Object * self,
                                        const CXString & text,
                                        CXArray * args); // new vector
    static CMC_Object * resolveParameter(CMC_ObjectsContainer * scope, CMC_Object * self,
                                         const CXString & text, CXArray * args);

    // Objects that outlive the statement that made them, until the application's next tick.
    static void initTrash();
    static void doneTrash();
    static void addToTrash(CMC_Object * object);
    static void flushTrash();
    // What a comparison put there goes with it, so that loops don't pile it up: nothing else knows of it.
    static std::size_t trashSize();
    static void cutTrash(std::size_t size);

    static int runningNo() { return depth; }

    // Scripts may loop or run each other without end. What an outermost run and all that it runs may take; a
    // run that takes more is left as far as that bound asks, with a note.
    struct Bounds {
        long turns = 100'000'000; // of all loops together: then every loop ends
        int tooDeep = 100;        // runs refused for their depth: then all behaviours end
        int depth = 1000;         // behaviours that run inside each other
    };
    static Bounds bounds;
    static bool nextTurn(); // counts a loop's turn; false when the loop has to end

private:
    void parse(const CXString & text);
    void drop(bool keepBlocks);
    void leaveTimer();
    void endTimer();
    static void startCounting();
    void refuse();
    bool runLines(CMC_Object * self, CXArray * args);

    struct Local {
        life::Handle object;
        int madeAt = 0; // how many behaviours ran
    };

    static int depth;
    static Bounds taken;   // by the outermost run
    static bool isLeaving; // all behaviours end
    static int textsNo;    // runLine inside each other

    CXString code_;
    CXString condition_;
    life::Handle conditionObject_;
    Statements::Use lines_; // null before init and for empty code; a run shares them
    CXString parsedText_;   // with arguments, of lines_; empty when lines_ are of code_
    int timerCounter_ = 0;
    int timerCount_ = 0;
    CXArray * timerArgs_ = nullptr; // owned with its strings
    life::Handle timerDone_;
    int timerId_ = 0; // 0 while no timer runs it
    std::vector<Local> tempObjects_;
    bool enabled_ = true;
    int breakpoint_ = -1;
    int calls_ = 0;
    int totalTime_ = 0; // milliseconds
};
