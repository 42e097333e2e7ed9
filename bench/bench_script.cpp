// Statements beside Lua 5.4: each against V:ADD(1) on a table unless said.

#include "Ratio.h"

#include "app/CCommandLine6.h"
#include "app/CWindow.h"
#include "files/CLanguageOSVer.h"
#include "files/CTextFileReader.h"
#include "platform/World.h"
#include "script/CMC_Behaviour.h"
#include "script/CMC_ObjectsContainer.h"
#include "script/CMC_RunnerFactory.h"
#include "script/CMC_VariableFactory.h"
#include "script/CMElements.h"
#include "script/CMElementsLoader.h"

#include <chrono>
#include <cstdlib>
#include <memory>

extern "C" {
#include <lauxlib.h>
#include <lua.h>
#include <lualib.h>
}

namespace {

constexpr int kTurns = 20000;

lua_State * lua;

std::function<void()> luaLoop(const std::string & body) {
    std::string text = "local n = ...\nfor i=1,n do " + body + " end";
    if (luaL_loadstring(lua, text.c_str())) {
        std::printf("lua: %s\n", lua_tostring(lua, -1));
        std::exit(1);
    }
    int function = luaL_ref(lua, LUA_REGISTRYINDEX);
    return [function] {
        lua_rawgeti(lua, LUA_REGISTRYINDEX, function);
        lua_pushinteger(lua, kTurns);
        if (lua_pcall(lua, 1, 0, 0)) std::abort();
    };
}

class Scope {
public:
    Scope()
        : world_(platform::desktop()),
          installed_(*world_),
          commandLine_(""),
          window_(nullptr, &commandLine_, &language_, {800, 600}, nullptr, "", true) {
        CMC_VariableFactory::initialize();
        CMC_RunnerFactory::initialize();
        scope_ = std::make_unique<CMC_ObjectsContainer>(&window_, nullptr, CXString("SCENE"), types::kScene);
        scope_->setScene(scope_.get());
        std::string text;
        for (int i = 0; i < 2000; i++)
            text += "OBJECT=NAME" + std::to_string(i) + "\nNAME" + std::to_string(i) + ":TYPE=INTEGER\n";
        for (const char * name : {"V", "W", "ONE", "SCORE", "SIG"}) {
            std::string n(name);
            text += "OBJECT=" + n + "\n" + n + ":TYPE=INTEGER\n" + n + ":VALUE=" +
                    (n == "ONE" ? "1"
                     : n == "V" ? "0"
                                : "3") +
                    "\n";
        }
        text += "OBJECT=H\nH:TYPE=BEHAVIOUR\nH:CODE={ONE^SET(&W);}\nSIG:ONCHANGED=H\n";
        load(text);
    }
    ~Scope() {
        scope_->unload();
        scope_.reset();
        CMC_RunnerFactory::done();
        CMC_VariableFactory::done();
    }

    void load(std::string text) {
        CTextFileReader reader(&window_, text.data(), static_cast<int>(text.size()));
        std::unique_ptr<CMElements> elements(CMElementsLoader::load(&window_, &reader));
        delete scope_->resolveObjects(elements.get());
        for (int i = 0; i < scope_->getElementsNo(); i++) scope_->getObject(i)->init();
    }
    std::function<void()> runs(const std::string & code, int times) {
        auto behaviour = std::make_shared<CMC_Behaviour>(scope_.get(), "BENCH", CXString(code));
        behaviour->init();
        return [behaviour, times] {
            for (int i = 0; i < times; i++) behaviour->run(nullptr, nullptr, true);
        };
    }
    CMC_ObjectsContainer & scope() { return *scope_; }

private:
    std::unique_ptr<platform::World> world_;
    platform::Installed installed_;
    CCommandLine6 commandLine_;
    CLanguageOSVer language_;
    CWindow window_;
    std::unique_ptr<CMC_ObjectsContainer> scope_;
};

std::string tenTimes(const std::string & statement) {
    std::string code;
    for (int i = 0; i < 10; i++) code += statement;
    return code;
}

void statements() {
    Scope s;
    lua = luaL_newstate();
    luaL_openlibs(lua);
    if (luaL_dostring(lua, "V = {value = 0}; W = 3; SCORE = 3; ONE = 1\n"
                           "local mt = {__index = {}}\n"
                           "function mt.__index:ADD(x) self.value = self.value + x; return self.value end\n"
                           "setmetatable(V, mt)\n"
                           "S = {value = 0, on = function(v) ONE = v.value end}\n"
                           "function S:ADD(x) local o = self.value; self.value = o + x\n"
                           "if self.on and o ~= self.value then self.on(self) end return self.value end\n"
                           "function A() V.value = V.value + 1 end\n"))
        std::abort();
    bench::Table t("statements; Lua's loops count their turns");
    auto add = t.add("Lua V:ADD(1)", kTurns, luaLoop("V:ADD(1)"));
    auto hook = t.add("Lua S:ADD(1) with a change hook", kTurns, luaLoop("S:ADD(1)"));
    auto branch =
        t.add("Lua if SCORE>10 then A() else A() end", kTurns, luaLoop("if SCORE>10 then A() else A() end"));
    auto local =
        t.add("Lua function with a local", kTurns, luaLoop("(function() local LOC=5 LOC=LOC+W end)()"));
    int runs = kTurns / 10;
    auto fixed = t.add("V^ADD(&ONE), static", kTurns, s.runs(tenTimes("V^ADD(&ONE);"), runs));
    auto literal = t.add("V^ADD(1), literal", kTurns, s.runs(tenTimes("V^ADD(1);"), runs));
    t.add("V^ADD([W+W*ONE])", kTurns, s.runs(tenTimes("V^ADD([W+W*ONE]);"), runs));
    auto late = t.add("T^ADD(1), found at run time", kTurns,
                      s.runs("@INT(\"T\",1);" + tenTimes(tenTimes("T^ADD(1);")), kTurns / 100));
    auto change = t.add("SIG^ADD(1) with ONCHANGED", kTurns, s.runs(tenTimes("SIG^ADD(1);"), runs));
    auto iff = t.add("@IF with two blocks", kTurns,
                     s.runs(tenTimes("@IF(SCORE,\">\",10,{V^ADD(&ONE);},{V^ADD(&ONE);});"), runs));
    auto made = t.add("@INT(\"LOC\",5);LOC^ADD(W); a run", runs, s.runs("@INT(\"LOC\",5);LOC^ADD(W);", runs));
    auto loop =
        t.add("@LOOP, a turn", kTurns, s.runs("@LOOP({V^ADD(1);},0," + std::to_string(kTurns) + ",1);", 1));
    t.sample();
    t.ratio(fixed, add, 4.5);
    t.ratio(literal, add, 2.5);
    t.ratio(late, add, 2.2);
    t.ratio(loop, add, 1.5);
    t.ratio(change, hook, 0.85);
    t.ratio(iff, branch, 0.4);
    t.ratio(made, local, 0.08);
    lua_close(lua);
}

// 2,000 behaviours of ten statements.
void loading() {
    for (int behaviours : {500, 2000}) {
        Scope s;
        std::string text;
        for (int i = 0; i < behaviours; i++) {
            std::string n = "B" + std::to_string(i);
            text += "OBJECT=" + n + "\n" + n + ":TYPE=BEHAVIOUR\n" + n + ":CODE={" +
                    tenTimes("V^ADD(NAME" + std::to_string(i) + ",1);") + "}\n";
        }
        auto start = std::chrono::steady_clock::now();
        s.load(text);
        double ms =
            std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
        std::printf("\nloading %d statements in %d behaviours: %.1f ms (goal for 20,000: 150)\n",
                    behaviours * 10, behaviours, ms);
    }
}

} // namespace

int main() {
    statements();
    loading();
}
