#include "script/CMC_VariableFactory.h"
#include "support/InScope.h"

using Queue = test::InScope;

TEST_F(Queue, FirstAndLast) {
    load("OBJECT=V\nV:TYPE=INTEGER\nV:VALUE=4\n"
         "OBJECT=F\nF:TYPE=FIFO\nF:ONEMPTY={@MSGBOX(\"F empty\");}\n"
         "OBJECT=L\nL:TYPE=LIFO\nL:ONEMPTY={L^PUSH(\"filled\");}\n");
    struct {
        const char * code;
        const char * boxes;
    } const cases[] = {
        {"@MSGBOX(F^GETSIZE(),F^ISEMPTY(),F^POP());", "Fempty; 0, TRUE, NULL"},
        {"F^PUSH(V,\"b\",2.5,TRUE);L^PUSH(V,\"b\",2.5);V^SET(9);@MSGBOX(F^GETSIZE(),F^ISEMPTY(),L^GETSIZE())"
         ";",
         "4, FALSE, 3"},
        {"@MSGBOX(F^POP(),F^POP(),L^POP(),L^POP());", "4, b, 2.50000, b"},
        {"F^PUSH(6);L^PUSH(7);@MSGBOX(F^POP(),F^POP(),F^POP(),L^POP(),L^POP());", "2.50000, TRUE, 6, 7, 4"},
        {"@MSGBOX(L^POP(),L^POP(),L^GETSIZE());",
         "NULL, filled, 0"}, // the handler comes too late for this one
        {"F^PUSH();@MSGBOX(F^GETSIZE());", "0"},
    };
    for (const auto & each : cases) EXPECT_EQ(shown(each.code), each.boxes) << each.code;
}

// Values that wait are the queue's: the pools go round meanwhile.
TEST_F(Queue, ManyValues) {
    load("OBJECT=F\nF:TYPE=FIFO\n");
    run("@LOOP({F^PUSH(_I_);},0,2000,1);@LOOP({F^PUSH([F^POP()+1]);},0,2000,1);");
    EXPECT_EQ(shown("@MSGBOX(F^GETSIZE(),F^POP(),F^POP());"), "2000, 1, 2");
    EXPECT_EQ(CMC_VariableFactory::takenNo(), 0);
}
