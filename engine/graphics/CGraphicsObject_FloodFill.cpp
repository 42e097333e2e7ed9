// A fill of an area, kept as its rows' pieces so that it can be painted again in another colour.

#include "graphics/CGraphicsObject.h"

#include <algorithm>
#include <vector>

namespace {

// One piece whose neighbour rows are being looked through; those of the older pieces wait below it.
struct Piece {
    int left, right, y;          // right behind the last pixel
    int direction;               // +1 down, -1 up
    int parentLeft, parentRight; // the piece that it was found from, in the row behind
    int phase, x;                // of the search: ahead, behind on the left, behind on the right
};

class Filler {
public:
    Filler(const std::uint16_t * map, std::uint16_t * target, CXSize size, std::uint16_t colour,
           _floodfill * spans)
        : map_(map), target_(target), size_(size), colour_(colour), spans_(spans) {}

    void run(CXPoint seed) {
        if (!open(seed.x, seed.y)) return;
        add(seed.x, seed.y, 1, seed.x, seed.x);
        while (!pieces_.empty()) step();
    }
    int count() const { return count_; }
    CXRect box() const { return box_; }

private:
    std::ptrdiff_t at(int x, int y) const { return static_cast<std::ptrdiff_t>(y) * size_.cx + x; }
    bool open(int x, int y) const {
        return x >= 0 && y >= 0 && x < size_.cx && y < size_.cy && map_[at(x, y)] != 0 &&
               target_[at(x, y)] != colour_;
    }

    // The piece round (x, y): painted, stored, and its search begun.
    int add(int x, int y, int direction, int parentLeft, int parentRight) {
        int left = x, right = x + 1;
        while (open(left - 1, y)) left--;
        while (open(right, y)) right++;
        std::fill(target_ + at(left, y), target_ + at(left, y) + (right - left), colour_);
        spans_[count_] = {static_cast<std::int16_t>(left), static_cast<std::int16_t>(y),
                          static_cast<std::int16_t>(right - left)};
        CXRect mine(left, y, right, y + 1);
        box_ = count_++ == 0 ? mine : box_.Sum(mine);
        pieces_.push_back({left, right, y, direction, parentLeft, parentRight, 0, left});
        return right;
    }

    void step() {
        Piece & p = pieces_.back();
        int ends[] = {p.right, std::min(p.parentLeft, p.right), p.right};
        if (p.x >= ends[p.phase]) {
            if (++p.phase == 3)
                pieces_.pop_back();
            else
                p.x = p.phase == 1 ? p.left : std::max(p.parentRight, p.left);
            return;
        }
        int direction = p.phase == 0 ? p.direction : -p.direction;
        int x = p.x++, y = p.y + direction;
        if (!open(x, y)) return;
        int left = p.left, right = p.right;
        int next = add(x, y, direction, left, right); // p is gone if the pieces moved
        pieces_[pieces_.size() - 2].x = next;
    }

    const std::uint16_t * map_;
    std::uint16_t * target_;
    CXSize size_;
    std::uint16_t colour_;
    _floodfill * spans_;
    int count_ = 0;
    CXRect box_;
    std::vector<Piece> pieces_;
};

} // namespace

CXRect CGraphicsObject::PrepareFloodFill(CXPoint seed, const CColor & colour, char * target,
                                         _floodfill * spans) {
    floodCount_ = 0;
    floodSpans_ = spans;
    if (!isRaw16() || !target || !spans || width_ > INT16_MAX || height_ > INT16_MAX) return {};
    Filler filler(words(), reinterpret_cast<std::uint16_t *>(target), {width_, height_},
                  static_cast<std::uint16_t>(colour.GetInBPP(bpp_)), spans);
    filler.run(seed);
    floodCount_ = filler.count();
    return filler.box();
}

void CGraphicsObject::FloodFill(const CColor & colour, char * target) {
    if (!target || !floodSpans_) return;
    auto word = static_cast<std::uint16_t>(colour.GetInBPP(bpp_));
    auto * to = reinterpret_cast<std::uint16_t *>(target);
    for (int i = 0; i < floodCount_; i++) {
        const _floodfill & s = floodSpans_[i];
        if (s.y < 0 || s.y >= height_) continue;
        int left = std::max<int>(s.x, 0), right = std::min(s.x + s.length, width_);
        if (left < right)
            std::fill_n(to + static_cast<std::ptrdiff_t>(s.y) * width_ + left, right - left, word);
    }
}
