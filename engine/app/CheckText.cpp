#include "app/CheckText.h"

#include <algorithm>

namespace checktext {

namespace {

bool isName(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_' ||
           c == '$' || c == '|' || c == '.' || static_cast<unsigned char>(c) >= 0x80;
}

char closing(char open) { return open == '(' ? ')' : open == '[' ? ']' : '}'; }

class Scanner {
public:
    explicit Scanner(std::string_view text) : text_(text) {}

    Code run() {
        for (at_ = 0; at_ < text_.size(); at_++) step(text_[at_]);
        for (const Open & each : open_) fault(each.at, std::string("'") + each.bracket + "' isn't closed");
        return std::move(code_);
    }

private:
    struct Open {
        char bracket;
        std::size_t at;
    };

    void step(char c) {
        switch (c) {
        case '"': quote(); break;
        case '(':
        case '[':
        case '{': open_.push_back({c, at_}); break;
        case ')':
        case ']':
        case '}': close(c); break;
        case '^': call(); break;
        case '@': statement(); break;
        default: break;
        }
    }

    void quote() {
        bool opensBlock = at_ + 1 < text_.size() && text_[at_ + 1] == '{';
        bool closesBlock = at_ > 0 && text_[at_ - 1] == '}';
        if (opensBlock || closesBlock) return; // the block's code is looked at
        std::size_t end = text_.find('"', at_ + 1);
        if (end == std::string_view::npos) {
            fault(at_, "the quotes aren't closed");
            at_ = text_.size();
            return;
        }
        code_.texts.emplace_back(text_.substr(at_ + 1, end - at_ - 1));
        at_ = end;
    }

    void close(char c) {
        if (open_.empty() || closing(open_.back().bracket) != c) {
            fault(at_, std::string("'") + c + "' closes nothing");
            return;
        }
        open_.pop_back();
        if (c != ')' || open_.empty() || open_.back().bracket != '{') return;
        std::size_t next = text_.find_first_not_of(" \n", at_ + 1);
        if (next != std::string_view::npos && (isName(text_[next]) || text_[next] == '@'))
            fault(next, "';' is missing before this");
    }

    std::string nameBehind(std::size_t from) {
        std::size_t end = from;
        while (end < text_.size() && isName(text_[end])) end++;
        return end < text_.size() && text_[end] == '(' ? std::string(text_.substr(from, end - from))
                                                       : std::string();
    }

    void call() {
        std::size_t start = at_;
        while (start > 0 && isName(text_[start - 1])) start--;
        std::string method = nameBehind(at_ + 1);
        if (method.empty()) return;
        bool direct = start < at_ && (start == 0 || text_[start - 1] != '*');
        code_.calls.push_back(
            {start, direct ? std::string(text_.substr(start, at_ - start)) : std::string(), method});
    }

    void statement() {
        std::string method = nameBehind(at_ + 1);
        if (!method.empty()) code_.calls.push_back({at_, "@", method});
    }

    void fault(std::size_t at, std::string what) { code_.faults.push_back({at, std::move(what)}); }

    std::string_view text_;
    std::size_t at_ = 0;
    std::vector<Open> open_;
    Code code_;
};

std::size_t distance(std::string_view a, std::string_view b) {
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

Code scan(std::string_view text) { return Scanner(text).run(); }

std::string closest(std::string_view word, const std::vector<std::string> & list) {
    std::string best;
    std::size_t least = std::min<std::size_t>(3, word.size() / 2 + 1);
    for (const std::string & each : list)
        if (std::size_t far = distance(word, each); far < least) {
            least = far;
            best = each;
        }
    return best;
}

} // namespace checktext
