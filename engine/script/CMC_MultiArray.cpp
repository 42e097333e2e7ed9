#include "script/CMC_MultiArray.h"

#include "files/CFile.h"
#include "files/CXArchive.h"
#include "script/CMC_ObjectsContainer.h"
#include "script/CMC_RunnerFactory.h"
#include "script/CMC_VariableFactory.h"
#include "script/CMElement.h"
#include "script/Notes.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>

const char * const CMC_MultiArray::kKeys[1] = {"DIMENSIONS"};

namespace {

constexpr int kReadMode = CFile::kRead | CFile::kBinary;
constexpr int kWriteMode = CFile::kWrite | CFile::kUpdate | CFile::kBinary;

int coordinate(CMC_MultiArray::Coordinates coordinates, std::size_t i) {
    return i < coordinates.size() ? coordinates[i] : 0;
}

} // namespace

CMC_MultiArray::CMC_MultiArray(CMC_ObjectsContainer * scope, CMElement * element)
    : CMC_Object(scope, element, types::kMultiArray) {
    int wanted = element->getPropertyIntValue("DIMENSIONS");
    dimCount_ = std::clamp(wanted, 1, kMostDimensions);
    if (dimCount_ != wanted)
        notes::add(notes::Kind::other, scope ? scope->getName().view() : "", getName().view(),
                   "DIMENSIONS is " + std::to_string(wanted) + ", taken as " + std::to_string(dimCount_));
    std::fill_n(dims_.begin(), dimCount_, kFirstSize);
    measure(dims_, total_, cellsNo_);
    initializeBehaviours(scope, element);
}

CMC_Runner * CMC_MultiArray::getRunner() { return CMC_RunnerFactory::getRunner(types::kMultiArray); }

CWindow * CMC_MultiArray::window() { return getScene() ? getScene()->getWindow() : nullptr; }

void CMC_MultiArray::note(std::string_view what) {
    std::string line(getName().view());
    line += ": ";
    line += what;
    notes::add(notes::Kind::other, line);
}

bool CMC_MultiArray::measure(const Sizes & sizes, int & total, int & cells) const {
    std::int64_t all = 1, reached = 1;
    for (int i = 0; i < dimCount_; i++) {
        int size = sizes[static_cast<std::size_t>(i)];
        if (size < 1) return false;
        all *= size;
        if (i < 2) reached *= size;
        if (all > std::numeric_limits<int>::max() || reached > kMostCells) return false;
    }
    total = static_cast<int>(all);
    cells = static_cast<int>(reached);
    return true;
}

int CMC_MultiArray::getIndex(Coordinates coordinates) const {
    int x = coordinate(coordinates, 0), y = dimCount_ > 1 ? coordinate(coordinates, 1) : 0;
    int height = dimCount_ > 1 ? dims_[1] : 1;
    return x >= 0 && y >= 0 && x < dims_[0] && y < height ? y * dims_[0] + x : -1;
}

bool CMC_MultiArray::validateSize(Coordinates coordinates) {
    Sizes sizes = dims_;
    for (std::size_t i = 0; i < static_cast<std::size_t>(dimCount_); i++) {
        int wanted = coordinate(coordinates, i);
        if (wanted < 0) return false;
        std::int64_t size = sizes[i];
        while (size <= wanted) size *= 2;
        sizes[i] = static_cast<int>(std::min<std::int64_t>(size, std::numeric_limits<int>::max()));
    }
    if (sizes == dims_) return true;
    int total = 0, count = 0;
    if (!measure(sizes, total, count)) return false;
    Cells cells;
    for (auto & [place, value] : cells_)
        cells.emplace_hint(cells.end(), place / dims_[0] * sizes[0] + place % dims_[0], std::move(value));
    cells_ = std::move(cells);
    dims_ = sizes;
    total_ = total;
    cellsNo_ = count;
    return true;
}

void CMC_MultiArray::set(Coordinates coordinates, CMC_Variable * value) {
    if (!validateSize(coordinates)) {
        note("no cell has such coordinates");
        return;
    }
    cells_[getIndex(coordinates)].reset(static_cast<CMC_Variable *>(value->clone()));
}

CMC_Variable * CMC_MultiArray::get(Coordinates coordinates) {
    auto cell = cells_.find(getIndex(coordinates));
    return cell == cells_.end() ? nullptr : cell->second.get();
}

int CMC_MultiArray::count(CMC_Variable * value) {
    return static_cast<int>(
        std::ranges::count_if(cells_, [&](const auto & cell) { return cell.second->equals(value); }));
}

int CMC_MultiArray::getSize(int dimension) {
    return dimension >= 0 && dimension < dimCount_ ? dims_[static_cast<std::size_t>(dimension)] : 0;
}

void CMC_MultiArray::save(const CXString & fileName) {
    CFile file(window(), fileName, kWriteMode);
    if (file.LastError()) {
        note("SAVE can't write " + std::string(fileName.view()));
        return;
    }
    CXArchive archive(&file, true);
    write(archive);
    if (archive.failed()) note("SAVE can't write all of " + std::string(fileName.view()));
}

void CMC_MultiArray::load(const CXString & fileName) {
    CFile file(window(), fileName, kReadMode);
    if (file.LastError()) {
        note("LOAD finds no file " + std::string(fileName.view()));
        return;
    }
    CXArchive archive(&file, false);
    read(archive);
}

void CMC_MultiArray::write(CXArchive & archive) {
    archive << dimCount_;
    for (int i = 0; i < dimCount_; i++) archive << dims_[static_cast<std::size_t>(i)];
    for (auto & [place, value] : cells_) {
        archive << place;
        value->store(&archive);
    }
    archive << total_;
}

void CMC_MultiArray::read(CXArchive & archive) {
    int before = std::exchange(dimCount_, 0);
    archive >> dimCount_;
    Sizes sizes{};
    bool sound = dimCount_ >= 1 && dimCount_ <= kMostDimensions;
    for (int i = 0; sound && i < dimCount_; i++) archive >> sizes[static_cast<std::size_t>(i)];
    int count = 0;
    if (!sound || archive.failed() || !measure(sizes, total_, count)) {
        dimCount_ = before;
        note("the file is damaged");
        return;
    }
    dims_ = sizes;
    cells_.clear();
    cellsNo_ = count;
    for (int i = 0; archive >> i, i != total_;) {
        CMC_Variable * value = i < 0 || archive.failed() ? nullptr : CMC_VariableFactory::restore(&archive);
        if (!value || i >= cellsNo_) {
            CMC_VariableFactory::free(value);
            note("the file is damaged");
            return;
        }
        cells_[i].reset(static_cast<CMC_Variable *>(value->clone()));
        CMC_VariableFactory::free(value);
    }
}
