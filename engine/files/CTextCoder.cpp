#include "files/CTextCoder.h"

#include "core/Text.h"
#include "files/CFile.h"

#include <algorithm>
#include <cstdint>

namespace {

constexpr std::string_view kCodedHead = "{<C:";
constexpr std::string_view kDecodeHead = "{<D:"; // as long as the other
constexpr std::string_view kMark = "<E>";

constexpr int kCopyMode = CFile::kWrite | CFile::kUpdate | CFile::kText;

// +1, -1, +2, -2 ... The places of a long cycle reach the largest int.
int offset(int place) {
    int amount = static_cast<int>((static_cast<std::int64_t>(place) + 2) / 2);
    return place % 2 ? -amount : amount;
}

char moved(char c, int by) {
    return static_cast<char>(static_cast<unsigned char>(c) + static_cast<unsigned>(by));
}

std::string_view zeroEnded(std::string_view line) { return line.substr(0, line.find('\0')); }

} // namespace

CTextCoder::CTextCoder(CWindow * window, const CXString & name, bool noAutoDecode)
    : name_(name), owned_(std::make_unique<CTextFileReader>(window, name.c_str())), reader_(owned_.get()) {
    init(window, noAutoDecode);
}

CTextCoder::CTextCoder(CWindow * window, CTextFileReader * reader, bool noAutoDecode) : reader_(reader) {
    init(window, noAutoDecode);
}

void CTextCoder::init(CWindow * window, bool noAutoDecode) {
    setErrorCode(reader_->LastError());
    if (LastError()) return;
    std::string_view head = zeroEnded(reader_->nextLine());
    bool copies = head.starts_with(kDecodeHead);
    coded_ = copies || head.starts_with(kCodedHead);
    if (!coded_) {
        reader_->reset();
        return;
    }
    head.remove_prefix(kCodedHead.size());
    cycle_ = std::max(text::toInt(head.substr(0, head.find('>'))), 1);
    // Without a name there is nothing to name a copy after.
    if (copies && !noAutoDecode && name_.IsString()) decode(window, name_, name_ + ".decoded");
}

int CTextCoder::getOffset(int position) { return offset(position); }

bool CTextCoder::_eof() { return coded_ ? ended_ : reader_->eof(); }

CXString CTextCoder::getLine() {
    CXString line(nextLine());
    line += '\n';
    return line;
}

std::string_view CTextCoder::nextLine() { return zeroEnded(coded_ ? nextCodedLine() : reader_->nextLine()); }

std::string_view CTextCoder::nextCodedLine() {
    if (sourceLines_ == 0) physical_ = reader_->nextLine();
    if (ended_) return {};
    std::size_t length = physical_.find(kMark);
    if (length == std::string_view::npos) {
        ended_ = true;
        return {};
    }
    decoded_.resize(length);
    for (std::size_t i = 0; i < length; i++) {
        decoded_[i] = moved(physical_[i], -offset(place_));
        if (++place_ == cycle_) place_ = 0;
    }
    physical_.remove_prefix(length + kMark.size());
    if (++sourceLines_ == cycle_) sourceLines_ = 0;
    return decoded_;
}

CXString CTextCoder::codeLine() {
    std::string line;
    return readCodedLine(line) ? CXString(line) : CXString();
}

// As bytes, since a coded character may be a zero.
bool CTextCoder::readCodedLine(std::string & line) {
    line.clear();
    if (coded_) return false;
    for (int i = 0; i < cycle_ && !reader_->eof(); i++) {
        for (char c : text::trimBlanks(zeroEnded(reader_->nextLine()))) {
            if (c == '\t') continue;
            line += moved(c, offset(place_));
            if (++place_ == cycle_) place_ = 0;
        }
        line += kMark;
    }
    line += '\n';
    return true;
}

template <class Sink>
void CTextCoder::codeAll(int cycle, Sink && sink) {
    cycle_ = std::max(cycle, 1);
    CXString head;
    head.Format("{<C:%d>}\n", cycle_);
    sink(head.view());
    std::string line;
    while (!_eof() && readCodedLine(line)) sink(std::string_view(line));
}

std::string CTextCoder::code(CTextFileReader * reader, int cycle) {
    std::string coded;
    CTextCoder coder(nullptr, reader, true);
    if (!coder.LastError() && !coder.isCoded())
        coder.codeAll(cycle, [&](std::string_view bytes) { coded += bytes; });
    return coded;
}

void CTextCoder::code(CWindow * window, const CXString & from, const CXString & to, int cycle) {
    CTextCoder coder(window, from, false);
    if (coder.LastError() || coder.isCoded()) return;
    CFile file(nullptr, to, kCopyMode);
    if (file.LastError()) return;
    coder.codeAll(cycle,
                  [&](std::string_view bytes) { file.Write(bytes.data(), static_cast<int>(bytes.size())); });
}

void CTextCoder::decode(CWindow * window, const CXString & from, const CXString & to) {
    CTextCoder coder(window, from, true);
    if (coder.LastError() || !coder.isCoded()) return;
    CFile file(nullptr, to, kCopyMode);
    if (file.LastError()) return;
    while (!coder._eof()) file.putLine(coder.getLine());
}
