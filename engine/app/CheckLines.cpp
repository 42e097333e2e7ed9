#include "app/CheckLines.h"

#include "files/CTextCoder.h"
#include "script/CMElementsLoader.h"

#include <algorithm>

namespace checklines {

namespace {

constexpr std::string_view kSeparators = ":=";

std::string trimmed(std::string_view text) {
    std::size_t start = std::min(text.find_first_not_of(' '), text.size());
    return std::string(text.substr(start, text.find_last_not_of(' ') + 1 - start));
}

class FileReader {
public:
    FileReader(const std::string & name, const std::string & path)
        : name_(name), folder_(path.substr(0, path.rfind('\\'))) {}

    File run(const std::string & path) {
        CTextCoder logical(nullptr, CXString(path), false), physical(nullptr, CXString(path), false);
        file_.opened = !logical.LastError() && !physical.LastError();
        while (file_.opened && !logical._eof()) {
            Line line = startsOf(physical);
            line.text = CMElementsLoader::getLine(&logical).view();
            if (line.text.starts_with('!')) break; // the rest is no definition
            std::erase(line.text, '\n');
            if (!line.text.empty() && !line.text.starts_with('#')) statement(line);
        }
        return std::move(file_);
    }

private:
    // Walks over the physical lines of the next logical one.
    Line startsOf(CTextCoder & coder) {
        Line line;
        std::string joined;
        for (bool more = true; more;) {
            std::string text(coder.nextLine());
            number_++;
            more = text.find('/') != std::string::npos && !coder._eof();
            std::erase_if(text, [](char c) { return c == '\t' || c == '/'; });
            line.starts.emplace_back(joined.size(), number_);
            if (joined.empty()) text = trimmed(text);
            joined += text;
            while (joined.ends_with(' ')) joined.pop_back();
        }
        return line;
    }

    void statement(const Line & line) {
        std::size_t end = line.text.find_first_of(kSeparators);
        std::string first = line.text.substr(0, end);
        std::size_t from = line.text.find_first_not_of(kSeparators, end);
        std::string rest = from == std::string::npos ? std::string() : line.text.substr(from);
        if (line.text.starts_with("DEF ") || first == "DEF") return define(line);
        if (first == "OBJECT" || first == "IMPORT")
            return begin(line, first, rest.substr(0, rest.find_first_of(kSeparators)));
        Element * element = find(first);
        if (!element) {
            if (first.starts_with("OBJ") && rest.find_first_of(kSeparators) == std::string::npos) {
                file_.faults.push_back({line, first, "did you mean OBJECT?"});
                return begin(line, "OBJECT", rest);
            }
            unknown(line, first);
            element = make(line, first, false); // so it's told once
        }
        std::size_t keyEnd = rest.find_first_of(kSeparators);
        std::size_t at =
            keyEnd == std::string::npos ? keyEnd : line.text.find_first_not_of(kSeparators, from + keyEnd);
        std::string value = at == std::string::npos ? std::string() : line.text.substr(at);
        std::ranges::replace_if(
            value, [](char c) { return kSeparators.find(c) != kSeparators.npos; }, ' ');
        if (value.empty() && !element->declared) return; // was it meant as a key at all?
        add(*element, {rest.substr(0, keyEnd), value, value.empty() ? 0 : at, line});
    }

    // The name may be wrong here or in the OBJECT above, if that has no keys yet.
    void unknown(const Line & line, const std::string & name) {
        const Element * last = file_.elements.empty() ? nullptr : &file_.elements.back();
        if (last && last->declared && last->properties.empty())
            file_.faults.push_back({last->line, last->name, "the keys below are of " + name});
        else
            file_.faults.push_back({line, name, "no OBJECT of this name is above"});
    }

    void begin(const Line & line, const std::string & word, const std::string & name) {
        if (name.empty())
            file_.faults.push_back({line, word, "a name is missing"});
        else if (Element * before = find(name); before && word == "OBJECT") {
            std::string where = std::to_string(before->line.number(0));
            file_.faults.push_back({line, name, "an OBJECT of this name stands in line " + where});
        } else if (!before)
            make(line, name, true)->type = word == "IMPORT" ? "SEQUENCE" : "";
    }

    void define(const Line & line) {
        std::size_t open = line.text.find('('), close = line.text.rfind(')');
        if (open == std::string::npos || close == std::string::npos || close < open || open < 4) {
            file_.faults.push_back({line, "DEF", "brackets are missing round the keys"});
            return;
        }
        Element * element = make(line, line.text.substr(4, open - 4), true);
        std::string_view items = std::string_view(line.text).substr(open + 1, close - open - 1);
        for (std::size_t at = 0; at < items.size();) {
            std::size_t end = std::min(items.find('|', at), items.size());
            std::string_view item = items.substr(at, end - at);
            std::size_t equals = std::min(item.find('='), item.size());
            std::string key = trimmed(item.substr(0, equals));
            if (!key.empty())
                add(*element, {key, trimmed(item.substr(std::min(equals + 1, item.size()))), 0, line});
            at = end + 1;
        }
    }

    Element * make(const Line & line, const std::string & name, bool declared) {
        return &file_.elements.emplace_back(Element{name_, folder_, name, "", line, declared, {}});
    }
    Element * find(const std::string & name) {
        auto found = std::ranges::find(file_.elements, name, &Element::name);
        return found == file_.elements.end() ? nullptr : &*found;
    }
    static void add(Element & element, Property property) {
        if (property.key == "TYPE" && element.type.empty()) element.type = property.value;
        element.properties.push_back(std::move(property));
    }

    std::string name_, folder_;
    File file_;
    int number_ = 0; // of the physical line
};

} // namespace

int Line::number(std::size_t at) const {
    int found = starts.front().second;
    for (auto [start, line] : starts)
        if (start <= at) found = line;
    return found;
}

File read(const std::string & name, const std::string & path) { return FileReader(name, path).run(path); }

} // namespace checklines
