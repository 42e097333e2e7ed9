#include "app/Describe.h"

#include "script/CMC_Runner.h"
#include "script/CMC_RunnerFactory.h"
#include "script/TypeTable.h"
#include "support/InWorld.h"

#include <map>
#include <set>
#include <sstream>

namespace {

class Describe : public test::InWorld {};

} // namespace

// What is printed for people is what the runners answer to, each word once.
TEST_F(Describe, EveryWordOnceAndEveryMethodFound) {
    std::set<std::string> seen;
    std::map<std::string, std::set<int>> ids;
    std::istringstream lines(describe());
    CMC_RunnerFactory::initialize();
    const std::map<std::string, int> others = {{"APPLICATION", types::kApplication},
                                               {"EPISODE", types::kEpisode},
                                               {"SCENE", types::kScene},
                                               {"RANDOM", types::kRandom},
                                               {"SYSTEM", types::kSystem},
                                               {"CNVLOADER", types::kCnvLoader},
                                               {"@", types::kNone},
                                               {"*", types::kInteger}};
    int methods = 0;
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string type, kind, word, id;
        std::getline(words, type, '\t');
        std::getline(words, kind, '\t');
        std::getline(words, word, '\t');
        EXPECT_TRUE(seen.insert(type + " " + kind + " " + word).second) << line;
        if (kind != "method" && kind != "statement") continue;
        ASSERT_TRUE(std::getline(words, id, '\t')) << line;
        EXPECT_TRUE(ids[type].insert(std::stoi(id)).second) << line;
        const TypeRow * row = typetable::find(std::string_view(type));
        CMC_Runner * runner = CMC_RunnerFactory::getRunner(row ? row->id : others.at(type));
        ASSERT_NE(runner, nullptr) << line;
        EXPECT_EQ(runner->resolveMethod(CXString(word)), std::stoi(id)) << line;
        methods++;
    }
    EXPECT_GT(methods, 300);
    CMC_RunnerFactory::done();
}
