#pragma once

// One statement, or one parameter of one: parsed once, run many times. What can't be settled when the text
// is parsed is settled at each run. Owned by its behaviour's Statements, or by the entry it is a parameter
// of.

#include "script/CMC_Behaviour.h"
#include "script/CMC_Object.h"

#include <cstdint>
#include <memory>
#include <vector>

class CMC_Expression;
struct MethodRow;

class CMC_Behaviour_Entry : public CMC_Object {
public:
    static constexpr int kDeepestText = 200;     // statements, blocks and brackets inside each other
    static constexpr int kDeepestArguments = 20; // texts filled with arguments inside each other
    static constexpr int kMostArguments = 1000;  // of them for one parameter of a statement

    CMC_Behaviour_Entry(CMC_Behaviour * behaviour, const CXString & text, Statements * statements = nullptr);
    ~CMC_Behaviour_Entry() override;

    // The value, an object that is no value, a control signal, or null.
    CMC_Object * run(CMC_Object * self, CXArray * args);

    const CXString & getLine() const { return line_; }
    int getMethod() const { return methodId_; }
    bool isReference() const { return form_ == Form::indirect; }
    void releaseTempBeh(bool on); // whether the blocks go with this entry; its parameters' too

    static void getCodeLines(CMC_Behaviour * behaviour, const CXString & text, Statements & statements);
    static CXString getStringValue(CMC_Object * variable); // empty for null
    // The text with $1 to $9 replaced by the arguments that are there; at most kLimit - 1 bytes.
    static CXString fillParams(const CXString & text, CXArray * args);

private:
    enum class Form { plain, expression, builtIn, call, self, indirect, nothing };

    // What a name in the text meant when it was last looked up.
    struct Meaning {
        const names::Record * record = nullptr;
        std::uint64_t version = ~std::uint64_t{0};
        CMC_ObjectsContainer * scope = nullptr;
        CMC_Object * object = nullptr;
        CMC_Runner * runner = nullptr;
        const MethodRow * row = nullptr;
    };

    struct Parameter {
        Parameter();
        ~Parameter();
        Parameter(Parameter &&) noexcept;
        Parameter & operator=(Parameter &&) = delete;

        // How the value in the statement's list comes about. fixed, block: it stands there (a block may be
        // parsed again for arguments). bound: it stands while that object lives. standing: while a name means
        // what it meant. computed: its entry gives it at each run; filled: with the $ of the entry's text
        // replaced.
        enum class Kind { fixed, block, bound, standing, computed, filled } kind = Kind::fixed;
        bool takesArgs = false; // a block with a $
        life::Handle object;
        std::uint64_t version = 0;
        const names::Record * record = nullptr;
        const CMC_ObjectsContainer * scope = nullptr;
        std::unique_ptr<CMC_Behaviour_Entry> entry; // null where nothing is computed
        std::unique_ptr<CMC_Object> owned;          // a value of the statement's own
        CXString name;                              // of a "&NAME"
    };

    struct Literal {
        int type = 0; // of the value; 0 before the first use
        int integer = 0;
        double real = 0.0;
        bool boolean = false;
        std::string_view text; // inside line_
    };

    void parse(Statements * statements);
    std::size_t parseIndirect(std::string_view text, Statements * statements);
    void parseCall(std::string_view text, Statements * statements);
    bool cutMethod(std::string_view text, std::size_t from, std::size_t open);
    void parseParameters(std::string_view text, Statements * statements);
    void parseParameter(std::string_view text, Statements * statements);

    CMC_Object * lookUp(std::string_view name, Statements * statements);
    CMC_Object * lookUpCall(std::string_view name, Statements * statements);
    CMC_Object * runOther(CMC_Object * self, CXArray * args);
    CMC_Object * runInside(CMC_Object * self, CXArray * args);
    CMC_Object * target() const;
    CMC_Object * runPlain(CXArray * args);
    CMC_Object * lookUpPlain(CXArray * args);
    CMC_Object * substituted(CXArray * args);
    CMC_Variable * literal();
    CMC_Object * call(CMC_Object * self, CXArray * args, CXVector & params);
    CMC_Object * callLate(CXVector & params);
    CMC_Object * callFound(CMC_Object * self, CXArray * args, CXVector & params);
    CMC_Object * callByName(CMC_Object * object, CMC_Runner * runner, const CXString & method,
                            CXVector & params);
    CMC_Object * evaluate(const CXString & text, CMC_Object * self, CXArray * args);
    bool ready(const CXArray * args) const;
    static bool blockStands(const Parameter & parameter);
    CXObject * compute(Parameter & parameter, CMC_Object * self, CXArray * args);
    void fill(CXVector & params, CMC_Object * self, CXArray * args);
    CXObject * settle(Parameter & parameter);
    void release(CXVector & params);
    void releaseOther(CMC_Object * value, const Parameter & parameter);

    CMC_ObjectsContainer * scope() const { return behaviour_->scene(); }

    // What each run reads comes first.
    CMC_Behaviour * behaviour_; // not owned
    Form form_ = Form::nothing;
    bool running_ = false; // paramValues_ is in use
    bool plainHasParam_ = false;
    bool plainHasField_ = false;
    bool nameHasParam_ = false;
    bool nameHasField_ = false;
    bool ownsTemp_ = true;
    CMC_Runner * runner_ = nullptr;
    const MethodRow * row_ = nullptr; // of the runner; null when the method isn't known yet
    life::Handle object_;             // found when the text was parsed
    std::vector<Parameter> parameters_;
    Meaning meaning_;
    Literal literal_;
    CXVector paramValues_{4, 0.75F};
    std::unique_ptr<CMC_Expression> expression_; // a plain bracket, or the target of an indirect call
    life::Handle indirectTarget_;
    int methodId_ = -1;
    CXString line_;
    CXString objectName_;
    CXString methodName_;
    CXString plainText_;               // of a plain value or an expression with $
    std::vector<life::Handle> blocks_; // behaviours made from blocks of this text
};
