#include "script/CMElementsLoader.h"

#include "app/CCommandLine6.h"
#include "app/CWindow.h"
#include "core/Text.h"
#include "files/CTextCoder.h"
#include "script/CMElements.h"
#include "script/CMProperties.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace {

constexpr int kCopyCycle = 6; // of the coded copies that the command line asks for

// Gathers physical lines into logical ones.
class LineReader {
public:
    explicit LineReader(CTextCoder & coder) : coder_(coder) {}

    // Good until the next one is asked for.
    std::string_view next() {
        std::string_view text = coder_.nextLine();
        bool slash = text.find('/') != std::string_view::npos;
        if (!slash && text.size() > 1 && text.find('\t') == std::string_view::npos)
            return text::trimBlanks(text); // as it stands: nothing to join or to take out
        line_.clear();
        append(text);
        if (!slash) return line_;
        while (slash && !coder_._eof()) {
            text = coder_.nextLine();
            slash = text.find('/') != std::string_view::npos;
            append(text);
        }
        std::erase(line_, '/');
        return line_;
    }

private:
    void append(std::string_view text) {
        std::size_t start = line_.size();
        line_ += text;
        line_.erase(std::remove(line_.begin() + static_cast<std::ptrdiff_t>(start), line_.end(), '\t'),
                    line_.end());
        // A line of one character or none keeps its line feed.
        if (line_.size() - start <= 1) line_ += '\n';
        // What stood here before is trimmed, so only an empty text can take blanks at its front.
        if (start == 0) line_.erase(0, line_.find_first_not_of(' '));
        while (!line_.empty() && line_.back() == ' ') line_.pop_back();
    }

    CTextCoder & coder_;
    std::string line_;
};

// The tokens of a logical line; empty at its end.
class Tokens {
public:
    explicit Tokens(std::string_view line) : line_(line) {}

    std::string_view next() {
        std::size_t start = place_;
        while (start < line_.size() && separates(line_[start])) start++;
        place_ = start;
        while (place_ < line_.size() && !separates(line_[place_])) place_++;
        return line_.substr(start, place_ - start);
    }
    std::size_t place() const { return place_; } // behind the last token

private:
    static bool separates(char c) { return c == ':' || c == '=' || c == '\n'; }

    std::string_view line_;
    std::size_t place_ = 0;
};

// Finds the first entry of each name in a list that grows, with no walk. It catches up with the list whenever
// it's asked.
template <class Entry>
class NameIndex {
public:
    explicit NameIndex(CMList<Entry> & list) : list_(list), slots_(64) {}

    Entry * find(std::string_view name) {
        for (; known_ < list_.size; known_++) learn(known_);
        const Slot & slot = slots_[place(name, hashOf(name))];
        return slot.number ? entry(slot) : nullptr;
    }

private:
    struct Slot {
        std::uint32_t hash = 0;
        int number = 0; // of the entry, counted from 1; 0 is an empty slot
    };

    static std::uint32_t hashOf(std::string_view name) {
        return static_cast<std::uint32_t>(std::hash<std::string_view>()(name));
    }
    Entry * entry(const Slot & slot) { return list_.getAt(slot.number - 1); }

    // Where the name stands, or the empty slot where it would.
    std::size_t place(std::string_view name, std::uint32_t hash) {
        std::size_t mask = slots_.size() - 1; // a power of two
        for (std::size_t i = hash & mask;; i = (i + 1) & mask) {
            const Slot & slot = slots_[i];
            if (!slot.number || (slot.hash == hash && entry(slot)->getName().view() == name)) return i;
        }
    }
    void learn(int i) {
        std::string_view name = list_.getAt(i)->getName().view();
        std::uint32_t hash = hashOf(name);
        Slot & slot = slots_[place(name, hash)];
        if (slot.number) return; // the first of a name counts
        slot = {hash, i + 1};
        if (++used_ * 2 > slots_.size()) grow();
    }
    void grow() {
        std::vector<Slot> old(slots_.size() * 2);
        old.swap(slots_);
        std::size_t mask = slots_.size() - 1;
        for (const Slot & slot : old) {
            if (!slot.number) continue;
            std::size_t i = slot.hash & mask;
            while (slots_[i].number) i = (i + 1) & mask;
            slots_[i] = slot;
        }
    }

    CMList<Entry> & list_;
    int known_ = 0; // entries of the list looked at
    std::size_t used_ = 0;
    std::vector<Slot> slots_; // at most half full
};

// Fills a list line by line. The list itself finds by walking; while it grows, an index stands beside it.
class Parser {
public:
    explicit Parser(CMElements & elements) : elements_(elements), index_(elements) {}

    void read(std::string_view line) {
        if (line.starts_with('!')) stopped_ = true; // for good
        if (stopped_ || line.starts_with('#')) return;
        Tokens tokens(line);
        bool first = true;
        for (std::string_view token = tokens.next(); !token.empty(); token = tokens.next()) {
            if (token == "DEF") {
                // The name stands behind the word and one separator, at a fixed place of the line.
                readDefinition(line, first ? kDefinitionName : tokens.place() + 1);
                return;
            }
            if (!readStatement(token, tokens)) return;
            first = false;
        }
    }

private:
    static constexpr std::size_t kDefinitionName = 4;
    static constexpr int kShortList = 32; // properties that may be walked for every key

    // False when the rest of the line is to be left out.
    bool readStatement(std::string_view token, Tokens & tokens) {
        if (token == "OBJECT") {
            std::string_view name = tokens.next();
            if (name.empty() || find(name)) return false;
            elements_.add(last_ = new CMElement(CXString(name)));
            return true;
        }
        if (token == "IMPORT") {
            std::string_view name = tokens.next();
            if (name.empty()) return false;
            if (find(name)) return true;
            auto * element = new CMElement(CXString(name));
            element->addProperty("TYPE", "SEQUENCE");
            elements_.add(element);
            return true;
        }
        CMElement * element = find(token);
        return element && readKey(*element, tokens);
    }

    bool readKey(CMElement & element, Tokens & tokens) {
        std::string_view key = tokens.next();
        if (key.empty()) return false;
        if (key == "ADD" || key == "APPLY") {
            std::string_view name = tokens.next();
            CMElement * other = name.empty() ? nullptr : find(name);
            if (!other) return false;
            key == "ADD" ? other->addChild(&element) : element.addChild(other);
            return true;
        }
        std::string_view value = tokens.next(), more = tokens.next();
        if (value.empty())
            addKey(element, key);
        else if (more.empty())
            addProperty(element, key, value);
        else {
            joined_ = value;
            for (; !more.empty(); more = tokens.next()) (joined_ += ' ') += more;
            addProperty(element, key, joined_);
        }
        return false;
    }

    void readDefinition(std::string_view line, std::size_t nameAt) {
        std::size_t open = line.find('(', nameAt), close = line.rfind(')');
        if (open == std::string_view::npos || close == std::string_view::npos || close < open) return;
        auto * element = new CMElement(CXString(line.substr(nameAt, open - nameAt)));
        std::string_view items = line.substr(open + 1, close - open - 1);
        while (!items.empty()) {
            std::size_t end = std::min(items.find('|'), items.size());
            readItem(*element, items.substr(0, end));
            items.remove_prefix(std::min(end + 1, items.size()));
        }
        elements_.add(element);
    }

    void readItem(CMElement & element, std::string_view item) {
        if (text::trimBlanks(item).empty()) return;
        std::size_t equals = item.find('=');
        std::string_view key = text::trimBlanks(item.substr(0, equals));
        if (equals == std::string_view::npos)
            addKey(element, key);
        else
            addProperty(element, key, text::trimBlanks(item.substr(equals + 1)));
    }

    static void addProperty(CMElement & element, std::string_view key, std::string_view value) {
        element.getProperties()->add(new CMProperty(key, value));
    }

    // As CMElement::addProperty of a key alone, in constant time on long lists too.
    void addKey(CMElement & element, std::string_view key) {
        CMProperties & properties = *element.getProperties();
        if (properties.size <= kShortList) {
            element.addProperty(CXString(key));
            return;
        }
        auto & keys = keys_.try_emplace(&element, properties).first->second;
        if (!keys.find(key)) addProperty(element, key, {});
    }

    // The first of that name. Most lines speak of the same element as the one before.
    CMElement * find(std::string_view name) {
        if (last_ && last_->getName().view() == name) return last_;
        CMElement * found = index_.find(name);
        if (found) last_ = found;
        return found;
    }

    CMElements & elements_;
    NameIndex<CMElement> index_;
    std::unordered_map<CMElement *, NameIndex<CMProperty>> keys_; // of elements with many properties
    CMElement * last_ = nullptr;                                  // of the index
    std::string joined_;
    bool stopped_ = false;
};

} // namespace

CMElements * CMElementsLoader::load(CWindow * window, const CXString & path) {
    CTextCoder coder(window, path, false);
    if (window && window->getCommandLine()->isToCode())
        CTextCoder::code(window, path, path + ".coded", kCopyCycle);
    if (window && window->getCommandLine()->isToDecode()) CTextCoder::decode(window, path, path + ".decoded");
    return coder.LastError() ? nullptr : load(&coder);
}

CMElements * CMElementsLoader::load(CWindow * window, CTextFileReader * reader) {
    CTextCoder coder(window, reader, false);
    return coder.LastError() ? nullptr : load(&coder);
}

CMElements * CMElementsLoader::load(CTextCoder * coder) {
    auto * elements = new CMElements(true);
    LineReader lines(*coder);
    Parser parser(*elements);
    while (!coder->_eof()) parser.read(lines.next());
    return elements;
}

CXString CMElementsLoader::getLine(CTextCoder * coder) { return CXString(LineReader(*coder).next()); }

bool CMElementsLoader::save(const CXString &, CMElements *) { return true; }
