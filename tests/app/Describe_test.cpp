#include "app/Describe.h"

#include "script/CMC_Runner.h"
#include "script/CMC_RunnerFactory.h"
#include "script/TypeTable.h"
#include "support/InWorld.h"

#include <map>
#include <set>
#include <sstream>
#include <vector>

namespace {

class Describe : public test::InWorld {};

const std::map<std::string, int> kOthers = {{"APPLICATION", types::kApplication},
                                            {"EPISODE", types::kEpisode},
                                            {"SCENE", types::kScene},
                                            {"RANDOM", types::kRandom},
                                            {"SYSTEM", types::kSystem},
                                            {"CNVLOADER", types::kCnvLoader},
                                            {"@", types::kNone},
                                            {"*", types::kInteger}};

struct Line {
    std::string type, kind, word, id, parameters;
};

std::vector<Line> described() {
    std::vector<Line> all;
    std::istringstream lines(describe());
    for (std::string line; std::getline(lines, line);) {
        Line parts;
        std::istringstream words(line);
        for (std::string * each : {&parts.type, &parts.kind, &parts.word, &parts.id, &parts.parameters})
            std::getline(words, *each, '\t');
        EXPECT_TRUE(words.eof() || words.peek() == EOF) << line;
        all.push_back(parts);
    }
    return all;
}

} // namespace

// What is printed for people is what the runners answer to, each word once.
TEST_F(Describe, EveryWordOnceAndEveryMethodFound) {
    std::set<std::string> seen;
    std::map<std::string, std::set<int>> ids;
    const std::vector<Line> lines = described();
    CMC_RunnerFactory::initialize();
    for (const Line & line : lines) {
        const std::string name = line.type + " " + line.kind + " " + line.word;
        EXPECT_TRUE(seen.insert(name).second) << name;
        bool isMethod = line.kind == "method" || line.kind == "statement";
        EXPECT_TRUE(isMethod || line.kind == "key" || line.kind == "signal") << name;
        EXPECT_EQ(line.id.empty(), !isMethod) << name;
        if (!isMethod) continue;
        int id = std::stoi(line.id);
        EXPECT_TRUE(ids[line.type].insert(id).second) << name;
        const TypeRow * row = typetable::find(std::string_view(line.type));
        CMC_Runner * runner = CMC_RunnerFactory::getRunner(row ? row->id : kOthers.at(line.type));
        ASSERT_NE(runner, nullptr) << name;
        EXPECT_EQ(runner->resolveMethod(CXString(line.word)), id) << name;
    }
    CMC_RunnerFactory::done();
}

// And nothing that a runner answers to is left out.
TEST_F(Describe, NoRunnersWordIsMissing) {
    std::set<std::string> words;
    std::set<int> types;
    for (const Line & line : described()) {
        const TypeRow * row = typetable::find(std::string_view(line.type));
        int type = row ? row->id : kOthers.at(line.type);
        types.insert(type);
        words.insert(std::to_string(type) + " " + line.word + " " + line.id + " " + line.parameters);
    }
    CMC_RunnerFactory::initialize();
    std::set<CMC_Runner *> runners;
    for (int type = 0; type <= 20000; type++) {
        CMC_Runner * runner = CMC_RunnerFactory::getRunner(type);
        if (!runner || !runners.insert(runner).second) continue;
        for (const MethodRow & row : runner->rows()) {
            if (!row.name) continue;
            std::string word = std::to_string(type) + " " + row.name + " " + std::to_string(row.id) + " ";
            EXPECT_TRUE(words.contains(word + row.parameters)) << word;
        }
    }
    EXPECT_GT(runners.size(), 15U);
    for (const TypeRow & row : typetable::rows()) EXPECT_TRUE(types.contains(row.id)) << row.word;
    CMC_RunnerFactory::done();
}

// Words as authors know them, in the order of their ids or of their lists.
TEST_F(Describe, WordsOfTheFlow) {
    std::map<std::string, std::string> lists;
    for (const Line & line : described()) {
        std::string & list = lists[line.type + " " + line.kind];
        list += (list.empty() ? "" : " ") + line.word;
    }
    const std::string info =
        "PATH DLLS DESCRIPTION CREATIONTIME LASTMODIFYTIME AUTHOR COAUTHORS BACKGROUND MUSIC DEAMON";
    const std::string signals =
        "ONINIT ONDONE ONSIGNAL ONDOMODAL ONRESTART ONMUSICLOOPED ONACTIVATE ONDEACTIVATE";
    const std::map<std::string, std::string> rows = {
        {"APPLICATION key", "TARNOOK_VERSION EPISODES SCENES STARTWITH VERSION " + info},
        {"APPLICATION signal", signals + " ONUPGRADE"},
        {"APPLICATION method", "EXIT RESTART GOTO SETLANGUAGE GETLANGUAGE PRINT ENABLEMUSIC DISABLEMUSIC RUN "
                               "STOREBINARY RUNENV EXISTSENV STARTDRAGGINGWINDOW STOPDRAGGINGWINDOW RELOAD"},
        {"EPISODE key", "SCENES STARTWITH " + info},
        {"EPISODE signal", signals},
        {"EPISODE method", "NEXT PREV BACK RESTART GOTO GETLATESTSCENE GETCURRENTSCENE"},
        {"SCENE key", info},
        {"SCENE signal", signals},
        {"SCENE method",
         "STARTMUSIC STOPMUSIC GETDRAGGEDNAME GETPLAYINGSEQ RUN RUNCLONES CREATEOBJECT REMOVE REMOVECLONES "
         "SETMUSICVOLUME GETMUSICVOLUME SETMUSICPAN SETMUSICFREQ PAUSE RESUME RESUMEONLY RESUMESEQONLY "
         "SETMINHSPRIORITY SETMAXHSPRIORITY GETMINHSPRIORITY GETMAXHSPRIORITY GETELEMENTSNO TOTIME ISPAUSED "
         "GETPLAYINGANIMO GETRUNNINGTIMER GETOBJECTS"},
        {"CNVLOADER method", "LOAD RELEASE"},
        {"* method", "SEND ADDTOGROUP ADDTOARRAY GETNAME CLONE ADDBEHAVIOUR GETCLONEINDEX MSGBOX RESETCLONES "
                     "REMOVEBEHAVIOUR GETCLONESNO REMOVEALLBEHAVIOURS REMOVEBEHAVIOURFORCE OVERIDESIGNALS"},
        {"@ statement",
         "IF WHILE RETURN BREAK CONV MSGBOX BOOL DOUBLE INT STRING LOOP VALUE RUNONTIMER CREATE "
         "GETAPPLICATIONNAME GETCURRENTSCENE ONEBREAK CONTINUE FOR"},
        {"TIMER signal", "ONINIT ONDONE ONSIGNAL ONTICK"},
        {"BEHAVIOUR method", "RUN RUNC RUNLOOPED BREAK ENABLE DISABLE"},
    };
    for (const auto & [list, words] : rows) EXPECT_EQ(lists[list], words) << list;
}
