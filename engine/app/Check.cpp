#include "app/Check.h"

#include "app/CheckText.h"
#include "app/Describe.h"
#include "files/CTextCoder.h"

#include <algorithm>
#include <map>
#include <set>

namespace {

using Names = std::vector<std::string>;
using View = std::string_view;

std::string upper(View text) {
    std::string result(text);
    for (char & c : result)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return result;
}

bool holds(const Names & list, View word) { return std::ranges::find(list, word) != list.end(); }

Names split(View text, View separators) {
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
    Names types, methods;

    Language() {
        for (const std::string & line : split(describe(), "\n")) {
            Names row = split(line, "\t");
            words[row[0]][row[1]].push_back(row[2]);
            if (row[1] == "method") methods.push_back(row[2]);
        }
        for (const auto & [type, kinds] : words)
            if (type != "*" && type != "@") types.push_back(type);
    }
    Names methodsOf(const std::string & type) {
        Names all = words["*"]["method"];
        auto add = [&](const char * each) {
            all.insert(all.end(), words[each]["method"].begin(), words[each]["method"].end());
        };
        if (type == "EXPRESSION")
            for (const char * value : {"BOOL", "DOUBLE", "INTEGER", "STRING"}) add(value);
        add(type.c_str());
        return all;
    }
};

// A logical line, and where in it its physical lines begin.
struct Line {
    std::string text;
    std::vector<std::pair<std::size_t, int>> starts;

    int number(std::size_t at) const {
        int found = starts.front().second;
        for (auto [start, line] : starts)
            if (start <= at) found = line;
        return found;
    }
};

struct Property {
    std::string key, value;
    std::size_t at; // of the value in the line
    Line line;
};

struct Element {
    std::string file, name, type;
    std::vector<Property> properties;
};

class Checker {
public:
    Checker(CheckResult & result, const Names & media) : result_(result) {
        for (const std::string & each : media) media_.insert(upper(each));
        for (const char * each : {"RANDOM", "SYSTEM", "CNVLOADER"}) typesOf_[each].insert(each);
    }

    void read(const std::string & name, const std::string & path) {
        CTextCoder coder(nullptr, CXString(path), false);
        if (coder.LastError()) {
            result_.findings.push_back(name + ":1: the file can't be read");
            return;
        }
        result_.files++;
        int number = 0;
        while (!coder._eof()) {
            Line line;
            for (bool more = true; more;) {
                std::string text(coder.nextLine());
                number++;
                more = text.find('/') != std::string::npos && !coder._eof();
                std::erase_if(text, [](char c) { return c == '\t' || c == '/' || c == '\n'; });
                if (line.text.empty()) text.erase(0, text.find_first_not_of(' '));
                line.starts.emplace_back(line.text.size(), number);
                line.text += text;
                while (line.text.ends_with(' ')) line.text.pop_back();
            }
            if (line.text.starts_with('!')) return; // the rest is no definition
            if (!line.text.empty() && !line.text.starts_with('#')) statement(name, line);
        }
    }

    void check() {
        for (const Element & each : elements_) typesOf_[each.name].insert(each.type);
        for (const Element & each : elements_)
            for (const Property & property : each.properties)
                for (const std::string & text : checktext::scan(property.value).texts) texts_.insert(text);
        for (const auto & [name, types] : typesOf_) names_.push_back(name);
        for (const Element & each : elements_) checkElement(each);
    }

private:
    void statement(const std::string & file, const Line & line) {
        std::size_t end = line.text.find_first_of(":=");
        std::string first = line.text.substr(0, end);
        std::size_t from = line.text.find_first_not_of(":=", end);
        std::string rest = from == std::string::npos ? std::string() : line.text.substr(from);
        if (first == "DEF") return define(file, line);
        if (first == "OBJECT" || first == "IMPORT") {
            std::string name = rest.substr(0, rest.find_first_of(":="));
            if (find(file, name)) return;
            elements_.push_back({file, name, first == "IMPORT" ? "SEQUENCE" : "", {}});
            result_.objects++;
            return;
        }
        Element * element = find(file, first);
        if (!element) {
            report(file, line, 0, first, "no OBJECT of this name is above", line.text);
            return;
        }
        std::size_t keyEnd = rest.find_first_of(":=");
        std::string key = rest.substr(0, keyEnd);
        std::size_t at =
            keyEnd == std::string::npos ? keyEnd : line.text.find_first_not_of(":=", from + keyEnd);
        add(*element, {key, at == std::string::npos ? std::string() : line.text.substr(at),
                       at == std::string::npos ? 0 : at, line});
    }

    void define(const std::string & file, const Line & line) {
        std::size_t open = line.text.find('('), close = line.text.rfind(')');
        if (open == std::string::npos || close == std::string::npos || close < open || open < 4) {
            report(file, line, 0, "DEF", "brackets are missing round the keys", line.text);
            return;
        }
        elements_.push_back({file, line.text.substr(4, open - 4), "", {}});
        result_.objects++;
        for (const std::string & item : split(View(line.text).substr(open + 1, close - open - 1), "|")) {
            std::size_t equals = item.find('=');
            auto trim = [](std::string text) {
                text.erase(0, text.find_first_not_of(' '));
                while (text.ends_with(' ')) text.pop_back();
                return text;
            };
            add(elements_.back(),
                {trim(item.substr(0, equals)),
                 equals == std::string::npos ? "" : trim(item.substr(equals + 1)), 0, line});
        }
    }

    Element * find(const std::string & file, const std::string & name) {
        for (std::size_t i = elements_.size(); i-- > 0 && elements_[i].file == file;)
            if (elements_[i].name == name) return &elements_[i];
        return nullptr;
    }

    static void add(Element & element, Property property) {
        if (property.key == "TYPE" && element.type.empty()) element.type = property.value;
        element.properties.push_back(std::move(property));
    }

    void checkElement(const Element & element) {
        std::string type = element.type;
        if (type.empty())
            for (const std::string & each : typesOf_[element.name])
                if (!each.empty()) type = each; // a scene's own keys in its own file
        bool known = holds(language_.types, type);
        if (!known && !element.properties.empty()) {
            const Property & first = element.properties.front();
            for (const Property & each : element.properties)
                if (each.key == "TYPE")
                    reportWord(element, each, 0, "unknown type " + each.value, each.value, language_.types);
            if (type.empty())
                report(element.file, first.line, 0, element.name, "the object has no TYPE", first.line.text);
        }
        for (const Property & each : element.properties) {
            if (known) checkKey(element, each, type);
            checkValue(element, each);
        }
    }

    void checkKey(const Element & element, const Property & property, const std::string & type) {
        std::string key = property.key.substr(0, property.key.find('^'));
        if (key == "TYPE" || key == "ADD" || key == "APPLY") return;
        Names known = language_.words[type]["key"];
        const Names & raised = language_.words[type]["signal"];
        known.insert(known.end(), raised.begin(), raised.end());
        if (holds(known, key) || key == "ONSIGNAL" || key == "ONINIT" || key == "ONDONE") return;
        const char * what = key.starts_with("ON") ? "raises no signal " : "reads no key ";
        reportWord(element, property, 0, type + " " + what + key, key, known);
    }

    void checkValue(const Element & element, const Property & property) {
        if (property.key == "FILENAME" || property.key == "BACKGROUND" || property.key == "MUSIC")
            checkFile(element, property);
        if (property.key == "SCENES" || property.key == "EPISODES" || property.key == "STARTWITH")
            for (const std::string & each : split(property.value, ", "))
                if (!typesOf_.contains(each))
                    reportWord(element, property, 0, "no scene or episode " + each, each, names_);
        if (property.value.find('{') == std::string::npos && !property.key.starts_with("ON")) return;
        checktext::Code code = checktext::scan(property.value);
        for (const checktext::Fault & each : code.faults)
            report(element.file, property.line, property.at + each.at, element.name, each.what,
                   around(property.value, each.at));
        for (const checktext::Call & each : code.calls) checkCall(element, property, each);
        if (property.key.starts_with("ON") && !property.value.starts_with('{')) {
            std::string handler = property.value.substr(0, property.value.find('('));
            if (!handler.empty() && !isObject(handler))
                reportWord(element, property, property.at, "no behaviour " + handler, handler, names_);
        }
    }

    void checkFile(const Element & element, const Property & property) {
        const std::string & value = property.value;
        if (value.empty() || value.find_first_of("*\"") != std::string::npos ||
            value.rfind('$') != value.find('$'))
            return;
        std::size_t slash = value.rfind('\\');
        std::string name = upper(slash == std::string::npos ? value : value.substr(slash + 1));
        if (name.find('.') == std::string::npos || media_.contains(name)) return;
        report(element.file, property.line, 0, element.name, "no file " + value, property.line.text);
    }

    void checkCall(const Element & element, const Property & property, const checktext::Call & call) {
        result_.calls++;
        std::size_t at = property.at + call.at;
        if (call.method.find('$') != std::string::npos) return;
        if (call.object == "@") {
            Names known;
            for (const std::string & each : language_.words["@"]["statement"])
                known.push_back(each.starts_with('@') ? each.substr(1) : each);
            if (!holds(known, call.method))
                reportWord(element, property, at, "unknown statement @" + call.method, call.method, known);
            return;
        }
        if (call.object.find_first_of("$|.") != std::string::npos) return;
        Names methods;
        auto found = typesOf_.find(base(call.object));
        bool any = call.object.empty() || call.object == "THIS" || found == typesOf_.end();
        if (found == typesOf_.end() && !any) return;
        if (any && !call.object.empty() && !isObject(call.object)) {
            reportWord(element, property, at, "no object " + call.object, call.object, names_);
            return;
        }
        if (any)
            methods = language_.methods;
        else
            for (const std::string & type : found->second) {
                if (!type.empty() && !holds(language_.types, type)) return; // told where it's defined
                Names more = language_.methodsOf(type);
                methods.insert(methods.end(), more.begin(), more.end());
            }
        if (!holds(methods, call.method))
            reportWord(element, property, at, "no method " + call.method + (any ? "" : " of " + call.object),
                       call.method, methods);
    }

    // Without a clone's number.
    std::string base(const std::string & name) const {
        std::size_t end = name.find_last_not_of("0123456789");
        bool numbered = end != std::string::npos && end > 0 && end + 1 < name.size() && name[end] == '_';
        return typesOf_.contains(name) || !numbered ? name : name.substr(0, end);
    }

    bool isObject(const std::string & name) const {
        return name == "THIS" || name.find_first_of("$|*[") != std::string::npos ||
               typesOf_.contains(base(name)) || texts_.contains(name);
    }

    // The statement that holds a place.
    static std::string around(const std::string & code, std::size_t at) {
        std::size_t start = at == 0 ? 0 : code.find_last_of(";{", at - 1);
        start = start == std::string::npos ? 0 : start + (at == 0 ? 0 : 1);
        return code.substr(start, code.find(';', at) - start);
    }

    void reportWord(const Element & element, const Property & property, std::size_t at, std::string what,
                    const std::string & word, const Names & list) {
        std::string near = checktext::closest(word, list);
        if (!near.empty() && near != word) what += ", did you mean " + near + "?";
        report(element.file, property.line, at, element.name, what,
               at ? around(property.line.text, at) : property.line.text);
    }

    void report(const std::string & file, const Line & line, std::size_t at, const std::string & object,
                const std::string & what, const std::string & text) {
        constexpr std::size_t kShown = 100;
        result_.findings.push_back(file + ":" + std::to_string(line.number(at)) + ": " + object + ": " +
                                   what + ": " +
                                   (text.size() > kShown ? text.substr(0, kShown) + "..." : text));
    }

    CheckResult & result_;
    Language language_;
    std::set<std::string> media_, texts_;
    std::vector<Element> elements_;
    std::map<std::string, std::set<std::string>> typesOf_;
    Names names_;
};

} // namespace

CheckResult check(const std::vector<std::pair<std::string, std::string>> & files,
                  const std::vector<std::string> & media) {
    CheckResult result;
    Checker checker(result, media);
    for (const auto & [name, path] : files) checker.read(name, path);
    checker.check();
    return result;
}
