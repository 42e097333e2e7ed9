#include "script/CMC_MultiArray.h"

#include "files/CFile_Stream.h"
#include "files/CXArchive.h"
#include "script/CMC_VariableFactory.h"
#include "support/InScope.h"

#include <iterator>

namespace {

class MultiArray : public test::InScope {
protected:
    MultiArray() {
        load("OBJECT=M\nM:TYPE=MULTIARRAY\nM:DIMENSIONS=2\n"
             "OBJECT=ONE\nONE:TYPE=MULTIARRAY\nONE:DIMENSIONS=1\n"
             "OBJECT=THREE\nTHREE:TYPE=MULTIARRAY\nTHREE:DIMENSIONS=3\n"
             "OBJECT=V\nV:TYPE=INTEGER\nV:VALUE=4\n");
    }

    CMC_MultiArray & grid(const char * name) {
        return *static_cast<CMC_MultiArray *>(scope().getObject(name));
    }
};

std::string ints(std::initializer_list<int> values) {
    std::string bytes;
    for (int value : values)
        for (int i = 0; i < 32; i += 8) bytes += static_cast<char>(static_cast<unsigned>(value) >> i);
    return bytes;
}

} // namespace

TEST_F(MultiArray, Cells) {
    struct {
        const char * code;
        const char * boxes;
    } const cases[] = {
        {"@MSGBOX(M^GETSIZE(0),M^GETSIZE(1),M^GETSIZE(2),M^GETSIZE(-1));", "16, 16, 0, 0"},
        {"M^SET(3,4,V);V^SET(9);@MSGBOX(M^GET(3,4),M^SAFEGET(3,4));", "4, 4"},
        {"@MSGBOX(M^SAFEGET(4,3),M^SAFEGET(99,0),M^SAFEGET(-1,0));", "0, 0, 0"},
        {"M^GET(4,3);", "Attempting to access NULL element at position ( 4 3  ) from array M"},
        {"M^GET(-1,99);", "Attempting to access NULL element at position ( -1 99  ) from array M"},
        {"M^SET(0,0,\"x\");M^SET(0,0,\"y\");M^SET(15,15,\"Y\");@MSGBOX(M^GET(0,0),M^COUNT(\"y\"),M^COUNT(4))"
         ";",
         "y, 2, 1"},
        {"M^SET(16,0,1);@MSGBOX(M^GETSIZE(0),M^GETSIZE(1),M^GET(3,4),M^GET(15,15));", "32, 16, 4, Y"},
        {"M^SET(40,70,2);@MSGBOX(M^GETSIZE(0),M^GETSIZE(1),M^GET(3,4),M^GET(16,0),M^GET(40,70));",
         "64, 128, 4, 1, 2"},
        {"M^SET(-1,0,1);M^SET(0,-1,1);M^SET(2147483647,2147483647,1);M^SET(1);@MSGBOX(M^GETSIZE(0),M^COUNT(1)"
         ");",
         "64, 1"},
        {"ONE^SET(20,1);ONE^SET(3,7,2);@MSGBOX(ONE^GETSIZE(0),ONE^GET(20),ONE^GET(3),ONE^GET(3,9));",
         "32, 1, 2, 2"},
        // A third coordinate makes the grid grow, and chooses nothing.
        {"THREE^SET(1,2,20,5);@MSGBOX(THREE^GETSIZE(2),THREE^GET(1,2),THREE^GET(1,2,3));", "32, 5, 5"},
        {"THREE^SET(0,0,2147483647,5);@MSGBOX(THREE^GETSIZE(2));", "32"},
        {"M^SET(5,5,@VALUE(\"NOTHING\"));@MSGBOX(M^SAFEGET(5,5));", "0"},
    };
    for (const auto & each : cases) EXPECT_EQ(shown(each.code), each.boxes) << each.code;
    EXPECT_EQ(grid("M").getTotal(), 64 * 128);
    EXPECT_EQ(CMC_VariableFactory::takenNo(), 0);
}

TEST_F(MultiArray, TotalFollowsTheSizes) {
    run("M^SET(16,0,1);");
    EXPECT_EQ(grid("M").getTotal(), 512);
    for (int wanted : {-1, 0, 8, 2147483647}) {
        notes.clear();
        load("OBJECT=ODD\nODD:TYPE=MULTIARRAY\nODD:DIMENSIONS=" + std::to_string(wanted) + "\n");
        EXPECT_EQ(grid("ODD").getTotal(), wanted < 1 ? 16 : 1 << 28) << wanted;
        EXPECT_EQ(notes.size(), 1U);
    }
}

TEST_F(MultiArray, Files) {
    const std::string bytes =
        ints({2, 32, 16, 3, 1, 5, 2 * 32 + 16, 2, 2}) + "xy" + ints({15 * 32 + 31, 4, 2500, 512});
    run("M^SET(16,2,\"xy\");M^SET(3,0,5);M^SET(31,15,2.5);M^SAVE(\"m.bin\");");
    EXPECT_EQ(get("m.bin"), bytes);
    EXPECT_EQ(shown("ONE^SET(1,1);ONE^LOAD(\"m.bin\");"
                    "@MSGBOX(ONE^GETSIZE(1),ONE^GET(16,2),ONE^GET(3,0),ONE^GET(31,15),ONE^SAFEGET(1,0));"),
              "16, xy, 5, 2.50000, 0");
    EXPECT_EQ(grid("ONE").getTotal(), 512);
    EXPECT_EQ(shown("M^LOAD(\"none\");@MSGBOX(M^GET(3,0));"), "5");

    CMC_Integer five(5);
    for (std::size_t length = 0; length <= bytes.size(); length++) {
        CFile_Stream file(bytes.data(), static_cast<int>(length));
        CXArchive archive(&file, false);
        CMC_MultiArray & m = grid("THREE");
        notes.clear();
        ::notes::reset();
        m.read(archive);
        EXPECT_EQ(m.getTotal(), length < 12 ? 4096 : 512) << length;
        EXPECT_EQ(m.count(&five), length < 24 ? 0 : 1) << length;
        EXPECT_EQ(notes.empty(), length == bytes.size()) << length;
    }
    const std::string damaged[] = {
        ints({0, 1}),           ints({8, 1, 1, 1, 1, 1, 1, 1, 1, 1}), ints({-1}),
        ints({2, -5, 16, -80}), ints({2, 65536, 65536, 0}),           ints({2, 1 << 20, 1 << 10, 1 << 30}),
        ints({2, 0, 16, 0}),
    };
    for (const std::string & each : damaged) {
        put("d.bin", each);
        EXPECT_EQ(shown("M^LOAD(\"d.bin\");@MSGBOX(M^GET(3,0));"), "5");
    }
    for (int place : {-1, 256, 2147483647}) { // sound sizes, and a place that isn't there
        put("d.bin", ints({2, 16, 16, 7, 1, 5, place, 1, 6, 8, 1, 7, 256}));
        EXPECT_EQ(shown("M^LOAD(\"d.bin\");@MSGBOX(M^GET(7,0),M^SAFEGET(8,0));"), "5, 0") << place;
    }
    EXPECT_EQ(CMC_VariableFactory::takenNo(), 0);
}
