#include "script/CMElementsLoader.h"

#include "app/CCommandLine6.h"
#include "app/CWindow.h"
#include "files/CLanguageOSVer.h"
#include "files/CTextCoder.h"
#include "script/CMElements.h"
#include "script/CMProperties.h"
#include "support/InWorld.h"

#include <chrono>
#include <memory>
#include <string>
#include <vector>

namespace {

std::unique_ptr<CMElements> loaded(const std::string & text) {
    CTextFileReader reader(nullptr, text.data(), static_cast<int>(text.size()));
    return std::unique_ptr<CMElements>(CMElementsLoader::load(nullptr, &reader));
}

// "NAME{KEY=VALUE;KEY=}>CHILD>CHILD " for each element.
std::string told(CMElements & elements) {
    std::string text;
    for (int i = 0; i < elements.size; i++) {
        CMElement & element = *elements.getAt(i);
        text += std::string(element.getName().view()) + "{";
        for (CXObject * each : *element.getProperties()) {
            auto * property = static_cast<CMProperty *>(each);
            if (each != element.getProperties()->getAt(0)) text += ';';
            text += std::string(property->getName().view()) + "=" + property->getValue().c_str();
        }
        text += '}';
        for (CXObject * child : *element.getChildren())
            (text += '>') += static_cast<CMElement *>(child)->getName().c_str();
        text += ' ';
    }
    if (!text.empty()) text.pop_back();
    return text;
}

struct Case {
    const char * text;
    const char * expected;
};

void check(std::initializer_list<Case> cases) {
    for (const Case & each : cases) {
        auto elements = loaded(each.text);
        ASSERT_NE(elements, nullptr);
        EXPECT_EQ(told(*elements), each.expected) << each.text;
    }
}

} // namespace

TEST(CMElementsLoader, Statements) {
    check({
        {"", ""},
        {"\n", ""},
        {"OBJECT=A\n", "A{}"},
        {"OBJECT=A\nA:TYPE=X\nOBJECT=A\nA:FILE=Y\n", "A{TYPE=X;FILE=Y}"},
        {"A:TYPE=X\nOBJECT=A\n", "A{}"}, // not declared yet
        {"OBJECT=A\nA:KEY\nA:KEY\nA\na:KEY=1\n", "A{KEY=}"},
        {"OBJECT=A\nA:KEY=1\nA:KEY=2\nA:KEY\n", "A{KEY=1;KEY=2}"},
        {"OBJECT=A\nA:KEY=A:B=1==2:3:\n", "A{KEY=A B 1 2 3}"},
        {"OBJECT=A\nA:KEY= B C : D\n", "A{KEY= B C   D}"}, // blanks stay in the tokens
        {"OBJECT = A\nOBJECT= B\nobject=C\n", " B{}"},
        {"OBJECT:A\nA=KEY=1\n:=A::KEY:=2\n", "A{KEY=1;KEY=2}"}, // separators are all alike
        {"OBJECT\nOBJECT=\nIMPORT\nOBJECT=A:B=C\n", "A{}"},
        // A statement may follow on the same line, unless this one failed.
        {"OBJECT=A=OBJECT=B:A:KEY=1\n", "A{KEY=1} B{}"},
        {"OBJECT=A\nOBJECT=A=OBJECT=B\nOBJECT=C\n", "A{} C{}"},
        {"IMPORT=A=IMPORT=A=A:K=1\nOBJECT=A=OBJECT=B\n", "A{TYPE=SEQUENCE;K=1}"},
        {"OBJECT=A\nOBJECT=B\nB:ADD=A=A:KEY=1\nA:APPLY=B:B:KEY=2\n", "A{KEY=1}>B>B B{KEY=2}"},
        {"OBJECT=A\nA:ADD=B=A:KEY=1\nA:APPLY=B=A:KEY=2\nA:ADD\nA:ADD=A\n", "A{}>A"},
        // Elements with the names of statements are there, but out of reach.
        {"OBJECT=OBJECT\nOBJECT:KEY=1\nOBJECT=DEF\nDEF:KEY=1\n", "OBJECT{} KEY{} DEF{}"},
    });
}

TEST(CMElementsLoader, ElementsInOneLine) {
    check({
        {"DEF=A(PATH=C:\\X|TYPE=IMAGE)\n", "A{PATH=C:\\X;TYPE=IMAGE}"},
        {"DEF=A()\nDEF:B(|)\nDEF=(K=1)\n", "A{} B{} {K=1}"},
        {"DEF= A B ( K  = 1=2:3  ||L=|M|M| |=5)\n", " A B {K=1=2:3;L=;M=;=5}"},
        {"DEF=A(F=G(1)|H=(2))trailing\n", "A{F=G(1);H=(2)}"},
        {"DEF=A(K=1|K=2)\nDEF=A(K=3)\nA:K=4\n", "A{K=1;K=2;K=4} A{K=3}"},
        {"DEF=A\nDEF=B(K=1\nDEF=C)K=1(\nDEF\nDEF=\n", ""},
        {"DEF=(K=1)\nOBJECT=A\nA:ADD\nA:ADD=\n", "{K=1} A{}"}, // nobody means the nameless one
        {"OBJECT=A=DEF=B(K=1)\nOBJECT=C=OBJECT=A=DEF=D()\n", "A{} B{K=1} C{}"},
    });
}

TEST(CMElementsLoader, Lines) {
    check({
        {"# OBJECT=A\n  # OBJECT=B\n\t#OBJECT=C\n \t OBJECT=D \n", "D{}"},
        {"OBJECT=A\n !\nOBJECT=B\nA:K=1\n", "A{}"},
        {"#!\nOBJECT=A\n!#/\nOBJECT=B\n", "A{}"},
        {"O\tBJECT=\tA\nA:K=x\ty\n", "A{K=xy}"},
        {"OBJECT=A\nA:K=X/Y\nZ\nA:L=1\n", "A{K=XYZ;L=1}"},
        // Blanks at a break vanish before the slash and stay behind it.
        {"OBJECT=A\nA:K=1 /\n  2/  \n3\n", "A{K=1   23}"},
        {"OBJECT=A\nA:K=1/2 /\n/ 3 / \n 4\n", "A{K=12  3  4}"},
        // A line of one character keeps its line feed, which separates.
        {"OBJECT=A\nA:K=/\n1\nA:L=/\n22\n", "A{K=1;L=22}"},
        {"OBJECT=A\nA:K=12/\n3\n:L\n", "A{K=123}"},
        {"OBJECT=A\nA:K=1/\n/\n2\n", "A{K=1 2}"},
        {"OBJECT=#\n/\n#:K=1\n#:K=2\n", "#{K=1}"}, // the first sign stands behind a line feed
        {"OBJECT=A/\n", "A{}"},
        {"DEF=A(K=1/\n/\nx|L=2)\n", "A{K=1\nx;L=2}"},
        // The last byte of a text ends its line, whatever it is.
        {"OBJECT=AB", "A{}"},
        {"OBJECT=A\nA:K=1\n\n", "A{K=1}"},
    });
}

TEST(CMElementsLoader, LogicalLinesAreGivenOut) {
    std::string text = " OBJECT = A /\n\t B /\n\n x \n1\n  \n\t\nend\n";
    CTextFileReader reader(nullptr, text.data(), static_cast<int>(text.size()));
    CTextCoder coder(nullptr, &reader, false);
    std::vector<std::string> lines;
    while (!coder._eof()) lines.emplace_back(CMElementsLoader::getLine(&coder).view());
    EXPECT_EQ(lines, (std::vector<std::string>{"OBJECT = A  B \n", "x", "1\n", "", "\n", "end"}));
}

TEST(CMElementsLoader, BadTextsGiveWhatCanBeRead) {
    using namespace std::string_literals;
    std::string bytes;
    for (int i = 0; i < 256 * 8; i++) bytes += static_cast<char>(i * 7);
    EXPECT_NE(loaded(bytes), nullptr);
    EXPECT_EQ(told(*loaded("OBJECT=A\0B\nA:K\0=1\nA:L=2\n"s)), "A{K=;L=2}");
    // A coded text with a wrong head, and one without an end mark.
    EXPECT_EQ(told(*loaded("{<C:\nOBJECT=A<E>\n")), "");
    EXPECT_EQ(told(*loaded("{<C:6>}\nOBJECT=A\n")), "");
    EXPECT_EQ(told(*loaded("{<C:6>}\n")), "");
    // The letters are moved by +1 -1 +2 -2 +3 -3.
    EXPECT_EQ(told(*loaded("{<C:6>}\nPALCFQ>@<E>\n")), "A{}");
}

// A walk over the list for each of these lines would take minutes, and so would one for each byte.
TEST(CMElementsLoader, LoadingIsLinear) {
    constexpr int kMany = 100'000;
    struct {
        const char * name;
        std::string (*line)(int);
        int elements, properties;
    } cases[] = {
        {"elements", [](int i) { return "OBJECT=OBJ" + std::to_string(i) + "\n"; }, kMany + 1, 0},
        {"keys alone", [](int i) { return "A:KEY" + std::to_string(i) + "\nA:KEY7\n"; }, 1, kMany},
        {"one logical line", [](int i) { return "A:K=" + std::to_string(i) + "/\n"; }, 1, 1},
        {"blanks joined", [](int) { return std::string("      /\n"); }, 1, 0},
        {"unknown elements", [](int i) { return "B" + std::to_string(i) + ":KEY=1\n"; }, 1, 0},
        {"keys of two",
         [](int i) { return std::string(i % 2 ? "A" : "B") + ":K" + std::to_string(i) + "\n"; }, 1,
         kMany / 2},
    };
    for (auto & each : cases) {
        SCOPED_TRACE(each.name);
        std::string text = "OBJECT=A\n";
        for (int i = 0; i < kMany; i++) text += each.line(i);
        auto start = std::chrono::steady_clock::now();
        auto elements = loaded(text);
        std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
        EXPECT_EQ(elements->size, each.elements);
        EXPECT_EQ(elements->getAt(0)->getProperties()->size, each.properties);
        EXPECT_LT(took.count(), 10.0);
    }
}

class CMElementsLoaderFiles : public test::InWorld {};

TEST_F(CMElementsLoaderFiles, AreFoundByName) {
    put("app.def", "OBJECT=A\r\nA:K=1/\r\n2\r\n");
    std::unique_ptr<CMElements> elements(CMElementsLoader::load(nullptr, CXString("App.DEF")));
    ASSERT_NE(elements, nullptr);
    EXPECT_EQ(told(*elements), "A{K=12}");
    EXPECT_EQ(CMElementsLoader::load(nullptr, CXString("none.def")), nullptr);
    EXPECT_FALSE(exists("app.def.coded"));

    EXPECT_TRUE(CMElementsLoader::save("app.def", elements.get()));
    EXPECT_EQ(get("app.def"), "OBJECT=A\r\nA:K=1/\r\n2\r\n");
}

TEST_F(CMElementsLoaderFiles, TheCommandLineAsksForCopies) {
    put("clear.def", "OBJECT=A\n");
    put("coded.def", "{<C:6>}\nPALCFQ>@<E>\n");
    CCommandLine6 commandLine("-code -decode");
    CLanguageOSVer language;
    CWindow window(nullptr, &commandLine, &language, CXSize(800, 600), nullptr, "", true);
    for (const char * name : {"clear.def", "coded.def"}) {
        std::unique_ptr<CMElements> elements(CMElementsLoader::load(&window, CXString(name)));
        ASSERT_NE(elements, nullptr) << name;
        EXPECT_EQ(told(*elements), "A{}") << name;
    }
    EXPECT_EQ(get("clear.def.coded"), "{<C:6>}\nPALCFQ>@<E>\n");
    EXPECT_FALSE(exists("clear.def.decoded"));
    EXPECT_EQ(get("coded.def.decoded"), "OBJECT=A\n\n"); // with the empty line behind the text
    EXPECT_FALSE(exists("coded.def.coded"));
    EXPECT_EQ(CMElementsLoader::load(&window, CXString("none.def")), nullptr);
    EXPECT_FALSE(exists("none.def.coded"));
}
