#include "app/Check.h"

#include "app/CWindow.h"
#include "app/CheckCode.h"
#include "app/CheckLines.h"
#include "app/Describe.h"
#include "files/CFile.h"
#include "script/CMC_Runner.h"
#include "script/CMC_RunnerFactory.h"
#include "script/TypeTable.h"

#include <algorithm>
#include <map>
#include <set>

namespace {

using Names = std::vector<std::string>;

bool listHolds(const Names & list, std::string_view word) {
    return std::ranges::find(list, word) != list.end();
}

Names splitWords(std::string_view text, std::string_view separators) {
    Names words;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t end = std::min(text.find_first_of(separators, at), text.size());
        if (end > at) words.emplace_back(text.substr(at, end - at));
        at = end + 1;
    }
    return words;
}

// Every word of the language by its type and kind.
struct Language {
    std::map<std::string, std::map<std::string, Names>> words;
    std::map<std::string, std::map<std::string, int>> needed; // parameters, by type and method
    Names types, methods;

    Language() {
        for (const std::string & line : splitWords(describe(), "\n")) {
            Names row = splitWords(line, "\t");
            words[row[0]][row[1]].push_back(row[2]);
            if (row[1] == "method") methods.push_back(row[2]);
        }
        for (const auto & [type, kinds] : words)
            if (type != "*" && type != "@") types.push_back(type);
        CMC_RunnerFactory::initialize();
        addNeeded("@", types::kNone);
        for (const TypeRow & row : typetable::rows()) addNeeded(std::string(row.word), row.id);
        for (const MethodRow & row : CMC_Runner::commonRows()) needed["*"][row.name] = row.needed;
        CMC_RunnerFactory::done();
    }
    void addNeeded(const std::string & type, int id) {
        CMC_Runner * runner = CMC_RunnerFactory::getRunner(id);
        if (!runner) return;
        for (const MethodRow & row : runner->rows())
            if (row.name) needed[type][row.name] = row.needed;
    }
    // 0 where it isn't known.
    int neededBy(const std::string & type, const std::string & method) const {
        for (const std::string & each : {type, std::string("*")})
            if (auto rows = needed.find(each); rows != needed.end())
                if (auto row = rows->second.find(method); row != rows->second.end()) return row->second;
        return 0;
    }
    void addMethods(Names & to, const std::string & type) {
        const Names & own = words[type]["method"];
        to.insert(to.end(), own.begin(), own.end());
    }
    Names methodsOf(const std::string & type) {
        Names all = words["*"]["method"];
        if (type == "EXPRESSION") // it answers by its value
            for (const char * value : {"BOOL", "DOUBLE", "INTEGER", "STRING"}) addMethods(all, value);
        addMethods(all, type);
        return all;
    }
};

// Where a statement or method takes code or a behaviour's name, by how many parameters there are.
Names behavioursIn(const checkcode::MethodCall & call) {
    auto pick = [&](std::initializer_list<std::size_t> places) {
        Names result;
        for (std::size_t i : places)
            if (i < call.parameters.size()) result.push_back(call.parameters[i]);
        return result;
    };
    if (call.method == "ADDBEHAVIOUR") return pick({1});
    if (call.method == "RUNCLONES") return pick({3});
    if (call.object != "@") return {};
    if (call.method == "IF") return call.parameters.size() < 4 ? pick({1, 2}) : pick({3, 4});
    if (call.method == "WHILE") return pick({3});
    if (call.method == "LOOP") return pick({0});
    if (call.method == "FOR") return pick({1});
    return call.method == "RUNONTIMER" ? pick({2, 3}) : Names{};
}

bool endsLike(std::string_view text, std::string_view with) {
    auto same = [](char a, char b) { return (a >= 'A' && a <= 'Z' ? a - 'A' + 'a' : a) == b; };
    return text.size() >= with.size() &&
           std::ranges::equal(text.substr(text.size() - with.size()), with, same);
}

// The name that a call gives to an object it makes; empty for none.
std::string madeBy(const checkcode::MethodCall & call) {
    static const Names first = {"BOOL", "DOUBLE", "INT", "STRING"};
    const Names & given = call.parameters;
    bool statement = call.object == "@";
    if (call.method == "NEW" || (statement && listHolds(first, call.method)))
        return given.empty() ? std::string() : given[0];
    if (call.method == "CREATEOBJECT" || (statement && call.method == "CREATE"))
        return given.size() > 1 ? given[1] : std::string();
    // A definition file that isn't looked through: its name is no object's, so names can't be known.
    bool loads = call.object == "CNVLOADER" && call.method == "LOAD" && !given.empty();
    return loads && given[0].starts_with('"') && !endsLike(given[0], ".cnv\"") ? given[0] : std::string();
}

bool isMedia(const std::string & type) {
    return type == "ANIMO" || type == "IMAGE" || type == "SOUND" || type == "MOVIE" || type == "SEQUENCE";
}

// Keys whose value names an object.
bool namesObject(const checklines::Property & property) {
    static const Names keys = {"GFXSTANDARD", "GFXONMOVE",  "GFXONCLICK", "SNDSTANDARD",
                               "SNDONMOVE",   "SNDONCLICK", "CONDITION1", "CONDITION2",
                               "CONDITION",   "RECT",       "DRAG"};
    if (!listHolds(keys, property.key) || property.value.empty()) return false;
    return property.value.find_first_not_of("0123456789,- ") != std::string::npos;
}

class GameChecker {
public:
    GameChecker(const std::string & root, CheckResult & result) : root_(root), result_(result) {
        for (const char * each : {"RANDOM", "SYSTEM", "CNVLOADER"}) typesOf_[each].insert(each);
        for (const char * each : {"THIS", "_I_", "__RETURN__"}) made_.insert(each);
        CWindow::rootPath = CXString(root + "\\");
        CWindow::setCDPath(CWindow::rootPath);
    }

    void read(const std::string & name, const std::string & path) {
        checklines::File file = checklines::read(name, path);
        if (!file.opened) {
            result_.findings.push_back(name + ":1: the file can't be read");
            return;
        }
        result_.files++;
        for (checklines::Element & each : file.elements) elements_.push_back(std::move(each));
        for (checklines::Fault & each : file.faults) faults_.emplace_back(name, std::move(each));
    }

    void check() {
        for (checklines::Element & each : elements_) {
            result_.objects += each.declared;
            if (each.type.empty()) mendType(each);
            typesOf_[each.name].insert(each.type);
            if (each.declared) names_.push_back(each.name);
            if (each.type == "APPLICATION" && each.name == "DEMO")
                typesOf_["GAME"].insert(each.type); // renamed
            folders_.insert(each.folder);
            for (const checklines::Property & property : each.properties)
                for (const checkcode::MethodCall & call : codeOf(property).calls) learn(madeBy(call));
        }
        for (const auto & [file, fault] : faults_) {
            std::string near = checkcode::closest(fault.object, names_);
            report(file, fault.line, 0, fault.object, fault.what + hint(fault.object, near), fault.line.text);
        }
        for (const checklines::Element & each : elements_) checkElement(each);
        for (auto & [place, text] : told_) result_.findings.push_back(std::move(text));
    }

private:
    // --- what there is

    void learn(const std::string & parameter) {
        std::string name = checkcode::nameIn(parameter);
        if (!name.empty())
            made_.insert(name);
        else if (!parameter.empty())
            anyName_ = true; // put together at run time
    }

    // Without a clone's number.
    std::string base(const std::string & name) const {
        std::size_t end = name.find_last_not_of("0123456789");
        bool numbered = end != std::string::npos && end > 0 && end + 1 < name.size() && name[end] == '_';
        return typesOf_.contains(name) || !numbered ? name : name.substr(0, end);
    }

    bool isObject(const std::string & name) const {
        return anyName_ || !checkcode::isName(name) || typesOf_.contains(base(name)) || made_.contains(name);
    }

    static bool holdsCode(const checklines::Property & property) {
        return property.key == "CODE" || property.value.find_first_of("{}") != std::string::npos;
    }

    // Its places count from the value's beginning.
    static checkcode::Code codeOf(const checklines::Property & property) {
        if (!holdsCode(property)) return {};
        if (property.key != "CODE" || property.value.starts_with('{')) return checkcode::scan(property.value);
        checkcode::Code code = checkcode::scan("{" + property.value + "}"); // outer braces may be left out
        auto back = [](std::size_t & at) { at -= at > 0; };
        for (checkcode::MethodCall & each : code.calls) back(each.at);
        for (checkcode::Place & each : code.operands) back(each.at);
        for (checkcode::Place & each : code.fault) back(each.at);
        return code;
    }

    // One that stands there for one language alone counts as well.
    static bool opens(const std::string & folder, const std::string & name) {
        if (CFile::chDir(CXString(folder)) != 0) return false;
        std::size_t behind = name.find_last_of("\\$") + 1; // 0 without either
        for (const char * each : {"", "POL\\", "CZE\\", "BUL\\", "ROM\\", "RUS\\", "HUN\\", "SLO\\"}) {
            std::string path = name.substr(0, behind) + each + name.substr(behind);
            if (CFile(nullptr, CXString(path), CFile::kRead | CFile::kBinary).LastError() == 0) return true;
        }
        return false;
    }

    // As the engine finds it: below the folder of the scene that reads the definition.
    bool finds(const checklines::Element & element, const std::string & name) const {
        if (name.find_first_of("*\"[") != std::string::npos || name.rfind('$') != name.find('$')) return true;
        if (opens(element.folder, name) || opens(root_ + "\\WAVS", name) || opens(root_, name)) return true;
        std::string file = element.file.substr(element.file.find_last_of('/') + 1);
        std::string stem = file.substr(0, file.rfind('.'));
        auto owner = typesOf_.find(stem);
        bool sceneOwn = owner != typesOf_.end() && owner->second.contains("SCENE");
        if (sceneOwn) return false;
        return std::ranges::any_of(folders_, [&](const std::string & each) { return opens(each, name); });
    }

    // --- elements and keys

    // A misspelt TYPE is told here, once, not at all that would follow from it.
    void mendType(checklines::Element & element) {
        for (checklines::Property & each : element.properties)
            if (checkcode::closest(each.key, {"TYPE"}) == "TYPE" && listHolds(language_.types, each.value)) {
                reportWord(element, each, 0, "no type reads " + each.key, each.key, {"TYPE"});
                each.key = "TYPE";
                element.type = each.value;
                return;
            }
    }

    void checkElement(const checklines::Element & element) {
        std::string type = element.type;
        if (type.empty())
            for (const std::string & each : typesOf_[element.name])
                if (!each.empty()) type = each; // a scene's own keys in its own file
        bool known = listHolds(language_.types, type);
        auto named = std::ranges::find(element.properties, "TYPE", &checklines::Property::key);
        if (!known && named != element.properties.end())
            reportWord(element, *named, 0, "unknown type " + type, type, language_.types);
        if (type.empty() && element.declared && !element.properties.empty() &&
            named == element.properties.end())
            report(element.file, element.line, 0, element.name, "the object has no TYPE", element.line.text);
        for (const checklines::Property & each : element.properties) {
            if (known) checkKey(element, each, type);
            checkValue(element, each, type);
        }
    }

    void checkKey(const checklines::Element & element, const checklines::Property & property,
                  const std::string & type) {
        std::string key = property.key.substr(0, property.key.find('^'));
        if (key == "TYPE" || key == "ADD" || key == "APPLY") return;
        Names known = language_.words[type]["key"];
        const Names & raised = language_.words[type]["signal"];
        known.insert(known.end(), raised.begin(), raised.end());
        if (listHolds(known, key) || key == "ONSIGNAL" || key == "ONINIT" || key == "ONDONE") return;
        const char * what = key.starts_with("ON") ? "raises no signal " : "reads no key ";
        reportWord(element, property, 0, type + " " + what + key, key, known);
    }

    void checkValue(const checklines::Element & element, const checklines::Property & property,
                    const std::string & type) {
        const std::string & key = property.key;
        if ((key == "FILENAME" && isMedia(type)) || key == "BACKGROUND" || key == "MUSIC" || key == "PATH")
            checkFile(element, property);
        if (key == "SCENES" || key == "EPISODES" || key == "STARTWITH")
            for (const std::string & each : splitWords(property.value, ", "))
                if (!isObject(each))
                    reportWord(element, property, 0, "no scene or episode " + each, each, names_);
        if (namesObject(property) && !isObject(property.value))
            reportWord(element, property, 0, "no object " + property.value, property.value, names_);
        checkcode::Code code = codeOf(property);
        for (const checkcode::Place & each : code.fault)
            report(element.file, property.line, property.at + each.at, element.name, each.text,
                   around(property.value, each.at));
        for (const checkcode::MethodCall & each : code.calls) checkCall(element, property, each);
        for (const checkcode::Place & each : code.operands)
            if (!isObject(each.text) && each.text != "TRUE" && each.text != "FALSE")
                reportWord(element, property, property.at + each.at, "no object " + each.text, each.text,
                           names_);
        if (key.starts_with("ON") && !holdsCode(property)) {
            std::string handler = property.value.substr(0, property.value.find('('));
            if (!handler.empty() && (!checkcode::isName(handler) || !isObject(handler)))
                reportWord(element, property, 0, "no behaviour " + handler, handler, names_);
        }
    }

    void checkFile(const checklines::Element & element, const checklines::Property & property) {
        const std::string & value = property.value;
        if (value.empty()) return;
        std::string path;
        for (const checklines::Property & each : element.properties)
            if (each.key == "PATH") path = each.value;
        std::string folder = root_ + "\\Dane" + (path.empty() ? "" : "\\" + path);
        if (property.key == "PATH") {
            if (CFile::chDir(CXString(folder)) != 0) reportFile(element, property, 0, "no folder " + value);
        } else if (!finds(element, value) && (property.key == "FILENAME" || !opens(folder, value)))
            reportFile(element, property, 0, "no file " + value);
    }

    // --- code

    void checkCall(const checklines::Element & element, const checklines::Property & property,
                   const checkcode::MethodCall & call) {
        result_.calls++;
        std::size_t at = property.at + call.at;
        for (const std::string & each : behavioursIn(call))
            if (std::string name = checkcode::nameIn(each); !name.empty() && !isObject(name))
                reportWord(element, property, at, "no behaviour " + name, name, names_);
        if (call.object == "@")
            checkStatement(element, property, at, call);
        else
            checkMethod(element, property, at, call);
    }

    void checkStatement(const checklines::Element & element, const checklines::Property & property,
                        std::size_t at, const checkcode::MethodCall & call) {
        if (call.method == "IF" && call.parameters.size() == 3) checkConditions(element, property, at, call);
        const Names & known = language_.words["@"]["statement"];
        if (listHolds(known, call.method)) return checkCount(element, property, at, call, "@");
        reportWord(element, property, at, "unknown statement @" + call.method, call.method, known);
    }

    // With fewer parameters than a method needs nothing happens.
    void checkCount(const checklines::Element & element, const checklines::Property & property,
                    std::size_t at, const checkcode::MethodCall & call, const std::string & type) {
        int least = type.empty() ? 0 : language_.neededBy(type, call.method);
        if (static_cast<int>(call.parameters.size()) >= least || !codeOf(property).fault.empty()) return;
        reportFile(element, property, at,
                   call.method + " needs " + std::to_string(least) +
                       (least > 1 ? " parameters" : " parameter"));
    }

    // "A'1&&B'2": what stands left of a comparison names an object.
    void checkConditions(const checklines::Element & element, const checklines::Property & property,
                         std::size_t at, const checkcode::MethodCall & call) {
        for (const std::string & each : splitWords(call.parameters[0], "&|\"")) {
            std::string left = each.substr(0, each.find_first_of("'<>!?"));
            bool number = left.find_first_not_of("0123456789.-") == std::string::npos;
            if (left.size() < each.size() && !number && checkcode::isName(left) && !isObject(left))
                reportWord(element, property, at, "no object " + left, left, names_);
        }
    }

    void checkMethod(const checklines::Element & element, const checklines::Property & property,
                     std::size_t at, const checkcode::MethodCall & call) {
        if (call.method.find('$') != std::string::npos) return;
        if (!call.object.empty() && !isObject(call.object)) {
            reportWord(element, property, at, "no object " + call.object, call.object, names_);
            return;
        }
        auto found = call.indirect ? typesOf_.end() : typesOf_.find(base(call.object));
        bool any = found == typesOf_.end();
        Names methods = any ? language_.methods : Names{};
        if (!any)
            for (const std::string & type : found->second) {
                if (!type.empty() && !listHolds(language_.types, type)) return; // told where it's defined
                Names more = language_.methodsOf(type);
                methods.insert(methods.end(), more.begin(), more.end());
            }
        if (!listHolds(methods, call.method)) {
            std::string what = "no method " + call.method + (any ? "" : " of " + call.object);
            reportWord(element, property, at, what, call.method, methods);
            return;
        }
        if (!any && found->second.size() == 1)
            checkCount(element, property, at, call, *found->second.begin());
        if (any || call.parameters.empty()) return;
        std::string given = checkcode::nameIn(call.parameters[0]);
        if (call.method == "GOTO" && call.parameters[0].starts_with('"') && !given.empty() &&
            !isObject(given))
            reportWord(element, property, at, "no scene or episode " + given, given, names_);
        const std::string & quoted = call.parameters[0];
        if (call.object == "CNVLOADER" && call.method == "LOAD" && quoted.size() > 2 && quoted[0] == '"')
            if (std::string file = quoted.substr(1, quoted.size() - 2); !finds(element, file))
                reportFile(element, property, at, "no file " + file);
    }

    // --- telling

    // The statement that holds a place.
    static std::string around(const std::string & code, std::size_t at) {
        std::size_t start = at == 0 ? std::string::npos : code.find_last_of(";{", at - 1);
        start = start == std::string::npos ? 0 : start + 1;
        return code.substr(start, code.find(';', at) - start);
    }

    static std::string hint(const std::string & word, const std::string & near) {
        return near.empty() || near == word ? std::string() : ", did you mean " + near + "?";
    }

    void reportFile(const checklines::Element & element, const checklines::Property & property,
                    std::size_t at, const std::string & what) {
        report(element.file, property.line, at, element.name, what,
               at ? around(property.line.text, at) : property.line.text);
    }

    void reportWord(const checklines::Element & element, const checklines::Property & property,
                    std::size_t at, const std::string & what, const std::string & word, const Names & list) {
        reportFile(element, property, at, what + hint(word, checkcode::closest(word, list)));
    }

    void report(const std::string & file, const checklines::Line & line, std::size_t at,
                const std::string & object, const std::string & what, const std::string & text) {
        constexpr std::size_t kShown = 100;
        std::string shown = text.size() > kShown ? text.substr(0, kShown) + "..." : text;
        int number = line.number(at);
        told_.emplace(std::pair(file, number),
                      file + ":" + std::to_string(number) + ": " + object + ": " + what + ": " + shown);
    }

    std::string root_;
    CheckResult & result_;
    Language language_;
    std::multimap<std::pair<std::string, int>, std::string> told_; // by file and line
    std::vector<checklines::Element> elements_;
    std::vector<std::pair<std::string, checklines::Fault>> faults_; // with their files
    std::map<std::string, std::set<std::string>> typesOf_;
    std::set<std::string> folders_, made_; // made_: objects that scripts make
    bool anyName_ = false;                 // scripts make objects of names that can't be known here
    Names names_;                          // that an OBJECT line gives
};

} // namespace

CheckResult check(const std::string & root, const std::vector<std::pair<std::string, std::string>> & files) {
    CheckResult result;
    GameChecker checker(root, result);
    for (const auto & [name, path] : files) checker.read(name, path);
    checker.check();
    return result;
}
