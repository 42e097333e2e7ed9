#pragma once

// MULTIARRAY: a grid of values that grows by doubling. It may have more dimensions, but only the first two
// coordinates choose a cell. The grid owns copies of what is set. Owned by its scope.

#include "script/CMC_Variable.h"

#include <array>
#include <map>
#include <memory>
#include <span>
#include <string_view>

class CWindow;
class CXArchive;

class CMC_MultiArray : public CMC_Object {
public:
    static constexpr SignalList kSignals{};
    static const char * const kKeys[1];
    static constexpr int kFirstSize = 16;     // of every dimension
    static constexpr int kMostDimensions = 7; // 16 to that power is an int
    static constexpr int kMostCells = 1 << 24;

    using Coordinates = std::span<const int>; // missing ones are 0, more than dimensions are passed over

    CMC_MultiArray(CMC_ObjectsContainer * scope, CMElement * element);

    CMC_Runner * getRunner() override;

    // Grows the grid until the coordinates fit. What lies before 0 or makes the grid too large is refused,
    // with a note.
    virtual void set(Coordinates coordinates, CMC_Variable * value);
    virtual CMC_Variable * get(Coordinates coordinates); // the grid's own; null for an empty cell and outside
    virtual int count(CMC_Variable * value);             // cells that equal it
    virtual int getSize(int dimension);                  // 0 for a dimension that isn't there
    virtual void save(const CXString & fileName);
    virtual void load(const CXString & fileName);

    int getTotal() const { return total_; } // the product of all sizes

    // The form of its files: dimensions, sizes, then place and value of each cell that holds one, the total
    // at the end. A damaged one gives the cells before the damage; with damaged sizes the grid stays as it
    // is.
    void write(CXArchive & archive);
    void read(CXArchive & archive);

private:
    // By place; only those that hold a value, since a few bytes of a file may ask for millions.
    using Cells = std::map<int, std::unique_ptr<CMC_Variable>>;
    using Sizes = std::array<int, kMostDimensions>;

    // Of dimCount_ sizes; false when that makes too large a grid.
    bool measure(const Sizes & sizes, int & total, int & cells) const;
    bool validateSize(Coordinates coordinates);
    int getIndex(Coordinates coordinates) const; // -1 outside
    CWindow * window();
    void note(std::string_view what);

    int total_ = 0;
    int dimCount_ = 0;
    int cellsNo_ = 0; // places that two coordinates reach
    Cells cells_;
    Sizes dims_{};
};
