#include "app/CheckCode.h"

#include "core/Text.h"

#include <algorithm>

namespace checkcode {

namespace {

using View = std::string_view;

bool isLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}
bool isNamePart(char c) { return isLetter(c) || c == '$' || c == '|' || c == '.'; }
char closing(char open) { return open == '(' ? ')' : open == '[' ? ']' : '}'; }

class Scanner {
public:
    explicit Scanner(View text) : text_(text) {}

    Code run() {
        for (at_ = 0; at_ < text_.size(); at_++) step(text_[at_]);
        if (!open_.empty()) unclosed(open_.back());
        return std::move(code_);
    }

private:
    struct Open {
        char bracket;
        std::size_t at;
        std::size_t statement; // where the last one of a block began
    };

    void step(char c) {
        switch (c) {
        case '"': quote(); break;
        case '(':
        case '[':
        case '{': open_.push_back({c, at_, at_ + 1}); break;
        case ')':
        case ']':
        case '}': close(c); break;
        case ';': semicolon(); break;
        case '^': call(); break;
        case '@':
            if (!inside('[')) statement(); // there it divides
            break;
        default:
            if (isNamePart(c)) word();
        }
    }

    bool inside(char bracket) const { return !open_.empty() && open_.back().bracket == bracket; }

    void quote() {
        bool opensBlock = at_ + 1 < text_.size() && text_[at_ + 1] == '{';
        bool closesBlock = at_ > 0 && text_[at_ - 1] == '}';
        if (opensBlock || closesBlock) return; // the block's code is looked at
        std::size_t end = text_.find('"', at_ + 1);
        if (end == View::npos) {
            fault(suspect_ == View::npos ? at_ : suspect_, "the quotes aren't closed");
            at_ = text_.size();
            return;
        }
        // Where quotes don't pair, the first text that holds code is one that wasn't closed.
        if (suspect_ == View::npos && text_.substr(at_, end - at_).find_first_of(",;") != View::npos)
            suspect_ = at_;
        at_ = end;
    }

    void close(char c) {
        if (open_.empty() || closing(open_.back().bracket) != c) {
            bool outer = std::ranges::any_of(open_, [&](Open & each) { return closing(each.bracket) == c; });
            if (outer)
                unclosed(open_.back());
            else
                fault(at_, std::string("'") + c + "' closes nothing");
            return;
        }
        if (c == '}') endOfBlock();
        open_.pop_back();
        std::size_t next = std::min(text_.find_first_not_of(" \n", at_ + 1), text_.size());
        char follows = next < text_.size() ? text_[next] : ';';
        bool begins = isNamePart(follows) || follows == '@' || follows == '*';
        if (c == ')' && inside('{') && begins) fault(at_, "';' is missing behind this");
        if (c == '}' && inside('(') && (begins || follows == '{')) fault(at_, "',' is missing behind this");
    }

    void semicolon() {
        if (inside('(') || inside('[')) return unclosed(open_.back());
        if (!inside('{')) return;
        std::size_t start = open_.back().statement;
        View line = text::trimBlanks(text_.substr(start, at_ - start));
        open_.back().statement = at_ + 1;
        if (line.empty()) return;
        start = text_.find(line, start);
        std::size_t caret = line.find('^');
        if (!line.starts_with('@') && caret == View::npos)
            fault(start, "no statement, which is NAME^METHOD(...) or @NAME(...)");
        else if (line.find('(', caret == View::npos ? 0 : caret) == View::npos)
            fault(start, "'(' and ')' are missing");
    }

    void endOfBlock() {
        std::size_t start = open_.back().statement;
        View line = text::trimBlanks(text_.substr(start, at_ - start));
        if (!line.empty()) fault(text_.find(line, start), "';' is missing at the end, so it never runs");
    }

    std::string nameBehind(std::size_t from) const {
        std::size_t end = from;
        while (end < text_.size() && isNamePart(text_[end])) end++;
        return end < text_.size() && text_[end] == '(' ? std::string(text_.substr(from, end - from))
                                                       : std::string();
    }

    void call() {
        std::size_t start = at_;
        while (start > 0 && isNamePart(text_[start - 1])) start--;
        std::string method = nameBehind(at_ + 1);
        if (method.empty()) return;
        bool indirect = start > 0 && text_[start - 1] == '*' && !inside('[');
        std::string object(text_.substr(start, at_ - start));
        code_.calls.push_back({start, object, indirect, method, parameters(at_ + 1 + method.size())});
        at_ += method.size();
    }

    void statement() {
        std::string method = nameBehind(at_ + 1);
        if (method.empty()) return;
        code_.calls.push_back({at_, "@", false, method, parameters(at_ + 1 + method.size())});
        at_ += method.size();
    }

    // A name that begins here.
    void word() {
        std::size_t end = at_;
        while (end < text_.size() && isNamePart(text_[end])) end++;
        std::string name(text_.substr(at_, end - at_));
        bool called = end < text_.size() && (text_[end] == '^' || text_[end] == '(');
        bool letter = name[0] < '0' || name[0] > '9';
        if (inside('[') && !called && letter && isName(name)) code_.operands.push_back({at_, name});
        at_ = end - 1;
    }

    // Of the call whose bracket opens there.
    std::vector<std::string> parameters(std::size_t open) const {
        std::vector<std::string> list;
        std::size_t start = open + 1;
        int depth = 0;
        bool quoted = false;
        for (std::size_t i = open; i < text_.size(); i++) {
            char c = text_[i];
            quoted ^= c == '"';
            if (quoted && c != '"') continue;
            if (c == '(' || c == '[' || c == '{') depth++;
            if (c == ')' || c == ']' || c == '}') depth--;
            if (depth > 1 || (depth == 1 && c != ',')) continue;
            View one = text::trimBlanks(text_.substr(start, i - start));
            if (!one.empty()) list.emplace_back(one);
            start = i + 1;
            if (depth == 0) break;
        }
        return list;
    }

    void unclosed(const Open & open) { fault(open.at, std::string("'") + open.bracket + "' isn't closed"); }

    // One fault brings others with it, so the first counts.
    void fault(std::size_t at, std::string what) {
        if (code_.fault.empty()) code_.fault.push_back({at, std::move(what)});
    }

    View text_;
    std::size_t at_ = 0, suspect_ = View::npos;
    std::vector<Open> open_;
    Code code_;
};

std::size_t distance(View a, View b) {
    std::vector<std::size_t> row(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); j++) row[j] = j;
    for (std::size_t i = 0; i < a.size(); i++) {
        std::size_t diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < b.size(); j++) {
            std::size_t above = row[j + 1];
            row[j + 1] = std::min({above + 1, row[j] + 1, diagonal + (a[i] == b[j] ? 0U : 1U)});
            diagonal = above;
        }
    }
    return row[b.size()];
}

} // namespace

Code scan(View text) { return Scanner(text).run(); }

bool isName(View text) { return !text.empty() && std::ranges::all_of(text, isLetter); }

std::string nameIn(View parameter) {
    if (parameter.size() > 1 && parameter.front() == '"' && parameter.back() == '"')
        parameter = text::trimBlanks(parameter.substr(1, parameter.size() - 2));
    return isName(parameter) ? std::string(parameter) : std::string();
}

std::string closest(View word, const std::vector<std::string> & list) {
    std::string best;
    std::size_t least = std::min<std::size_t>(3, word.size() / 2 + 1);
    for (const std::string & each : list)
        if (std::size_t far = distance(word, each); far < least) {
            least = far;
            best = each;
        }
    return best;
}

} // namespace checkcode
