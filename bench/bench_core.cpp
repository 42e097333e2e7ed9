// Name lookups and strings against the standard library's.

#include "Ratio.h"

#include "core/CHashtable.h"
#include "core/CStringHashCode.h"
#include "core/CXString.h"

#include <random>
#include <string>
#include <unordered_map>

namespace {

// Names as authors give them.
std::vector<std::string> mixedNames(std::size_t count) {
    const char * kinds[] = {"ANN", "ANI", "IMG", "SND", "BEH", "VAR", "I", "S", "BTN", "ARR", "TMR", "V"};
    const char * nouns[] = {"HERO", "DOOR",  "TREE",  "KEY", "BOX",  "LAMP",
                            "BIRD", "CLOUD", "WATER", "MAP", "EXIT", "MENU"};
    const char * verbs[] = {"CLICK", "SHOW", "HIDE", "START", "STOP", "CHECK", "MOVE", "PLAY"};
    std::vector<std::string> names;
    for (std::size_t i = 0; names.size() < count; i++) {
        std::string name = std::string(kinds[i % 12]) + (i % 3 ? nouns[i / 12 % 12] : verbs[i / 12 % 8]);
        if (i % 4 == 1) name += "_";
        name += std::to_string(i / 5);
        names.push_back(name);
    }
    return names;
}

std::vector<std::string> cloneNames(std::size_t count) {
    std::vector<std::string> names;
    for (std::size_t i = 1; i <= count; i++) names.push_back("ANIBIRD_" + std::to_string(i));
    return names;
}

void lookups(const char * title, const std::vector<std::string> & names, double goal) {
    CHashtable table(10001, 1.0, true);
    std::unordered_map<std::string, void *> peer;
    CXObject value;
    for (const std::string & name : names) {
        table.put(new CStringHashCode(name), &value);
        peer[name] = &value;
    }
    std::mt19937 random(4);
    std::vector<const std::string *> order;
    for (int i = 0; i < 4096; i++) order.push_back(&names[random() % names.size()]);
    CStringHashCode key("temp");
    bench::Table t(title);
    auto ours = t.add("CHashtable::get, one reused key", 4096, [&] {
        for (const std::string * name : order) {
            key.set(std::string_view(*name));
            bench::keep(table.get(&key));
        }
    });
    auto theirs = t.add("std::unordered_map::find", 4096, [&] {
        for (const std::string * name : order) bench::keep(peer.find(*name)->second);
    });
    t.sample();
    t.ratio(ours, theirs, goal);
}

void addAndRemove() {
    CHashtable table(10001, 1.0, true);
    std::unordered_map<std::string, void *> peer;
    CXObject value;
    for (const std::string & name : mixedNames(2000)) {
        table.put(new CStringHashCode(name), &value);
        peer[name] = &value;
    }
    CXObject local;
    CStringHashCode key("LOCALVAR");
    bench::Table t("a name comes and goes, 2,000 are there");
    auto ours = t.add("CHashtable", 1, [&] {
        table.put(new CStringHashCode(std::string_view("LOCALVAR")), &local);
        table.remove(&key, &local);
    });
    auto theirs = t.add("std::unordered_map", 1, [&] {
        peer["LOCALVAR"] = &local;
        peer.erase("LOCALVAR");
    });
    t.sample();
    t.ratio(ours, theirs, 2.0);
}

template <class String>
void append(const char * piece) {
    String text;
    for (int i = 0; i < 1000; i++) text += piece;
    bench::keep(text);
}

template <class String>
void concatenate(const String & a, const String & b) {
    for (int i = 0; i < 1000; i++) {
        String sum = a + b;
        bench::keep(sum);
    }
}

void strings() {
    bench::Table t("strings");
    auto a1 = t.add("CXString, 1,000 short appends", 1000, [] { append<CXString>("HERO_1"); });
    auto a2 = t.add("std::string, 1,000 short appends", 1000, [] { append<std::string>("HERO_1"); });
    const char * words = "a statement of some length, such as HERO^PLAY(\"WALK\");";
    auto b1 = t.add("CXString, 1,000 long appends", 1000, [=] { append<CXString>(words); });
    auto b2 = t.add("std::string, 1,000 long appends", 1000, [=] { append<std::string>(words); });
    CXString s("ONCHANGED^"), v("12345"), l(words);
    std::string ss("ONCHANGED^"), sv("12345"), sl(words);
    auto c1 = t.add("CXString, short + short", 1000, [&] { concatenate(s, v); });
    auto c2 = t.add("std::string, short + short", 1000, [&] { concatenate(ss, sv); });
    auto d1 = t.add("CXString, long + long", 1000, [&] { concatenate(l, l); });
    auto d2 = t.add("std::string, long + long", 1000, [&] { concatenate(sl, sl); });
    t.sample();
    t.ratio(a1, a2, 0.5);
    t.ratio(b1, b2, 0.5);
    t.ratio(c1, c2, 0.5);
    t.ratio(d1, d2, 0.5);
}

} // namespace

int main() {
    lookups("2,000 mixed names", mixedNames(2000), 2.5);
    lookups("2,000 clones of one object", cloneNames(2000), 2.0);
    addAndRemove();
    strings();
}
