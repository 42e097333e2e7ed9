// Statements whose parameters are static or variables take nothing from the heap.

#include "script/CMC_Behaviour.h"
#include "support/InScope.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <new>

namespace {

long taken = 0;

} // namespace

// Every allocation of this program is counted: strings take theirs by malloc, the rest by new. Where a
// sanitizer has malloc for itself, new alone counts.
#if defined(__has_feature)
#define TARNOOK_OWN_MALLOC !__has_feature(address_sanitizer)
#elif defined(__SANITIZE_ADDRESS__)
#define TARNOOK_OWN_MALLOC 0
#else
#define TARNOOK_OWN_MALLOC 1
#endif

#if TARNOOK_OWN_MALLOC
extern "C" void * __libc_malloc(std::size_t);
extern "C" void * malloc(std::size_t bytes) {
    taken++;
    return __libc_malloc(bytes);
}
#endif

void * operator new(std::size_t bytes) {
    taken++;
    void * memory = std::malloc(bytes ? bytes : 1);
    if (!memory) std::abort();
    return memory;
}
void * operator new(std::size_t bytes, const std::nothrow_t &) noexcept { return ::operator new(bytes); }
void operator delete(void * memory) noexcept { std::free(memory); }
void operator delete(void * memory, const std::nothrow_t &) noexcept { std::free(memory); }
void operator delete(void * memory, std::size_t) noexcept { std::free(memory); }

namespace {

class Allocations : public test::InScope {};

TEST_F(Allocations, NoneByStatements) {
    load("OBJECT=V\nV:TYPE=INTEGER\nOBJECT=W\nW:TYPE=INTEGER\nW:VALUE=3\n"
         "OBJECT=D\nD:TYPE=DOUBLE\nOBJECT=B\nB:TYPE=BOOL\nOBJECT=S\nS:TYPE=STRING\nS:VALUE=word\n"
         "OBJECT=SIG\nSIG:TYPE=INTEGER\nOBJECT=H\nH:TYPE=BEHAVIOUR\nH:CODE={W^SET(&V);}\nSIG:ONCHANGED=H\n"
         "OBJECT=Q\nQ:TYPE=INTEGER\nQ:ONCHANGED^7=H\n");
    const char * statements[] = {
        "V^ADD(&W);",      "V^ADD(1);",
        "V^SET(W);",       "V^INC();",
        "D^MUL(V);",       "D^SET(1.5);",
        "B^SET(TRUE);",    "S^SET(\"ab\");",
        "S^ADD(\"\");",    "SIG^ADD(1);",
        "Q^ADD(1);",       "@IF(V,\">\",W,{V^SUB(1);},{V^ADD(&W);});",
        "V^ADD([W+V*2]);", "@LOOP({V^ADD(1);},0,5,1);",
    };
    for (const char * statement : statements) {
        CMC_Behaviour behaviour(&scope(), "B", statement);
        behaviour.init();
        for (int i = 0; i < 3; i++)
            behaviour.run(nullptr, nullptr, true);                      // what a name means is kept by then
        bool isLoop = std::string_view(statement).starts_with("@LOOP"); // which makes its counter
        long before = taken;
        behaviour.run(nullptr, nullptr, true);
        long once = taken - before;
        for (int i = 0; i < 20; i++) behaviour.run(nullptr, nullptr, true);
        EXPECT_EQ(taken - before, once * 21) << statement;
        EXPECT_TRUE(once == 0 || isLoop) << statement << ": " << once;
    }
}

} // namespace
