#pragma once

// A Photoshop file as a pixel object for each of its layers. The object itself shows all of them, the lowest
// first, in the display's depth; it has an alpha plane where they leave something open. A file that can't be
// read leaves it empty, and the log tells why. The thread of the tick.

#include "graphics/CGraphicsObject.h"

#include <memory>
#include <vector>

namespace psd {
struct File;
}

class CPSD : public CGraphicsObject {
public:
    explicit CPSD(CWindow * window);
    CPSD(CWindow * window, const CXString & name); // loads
    CPSD(const CPSD &) = delete;
    CPSD &
    operator=(const CPSD & other); // the pixels' pointers and ownership included; the layers stay there
    ~CPSD() override;

    int Load(const CXString & name) override;
    int Load(CFile * file) override;      // 0 or the error code
    void Flush() override;                // without layers too
    void SetPosition(CXPoint p) override; // the selected layer goes along
    void SetPosition(int x, int y) override { SetPosition(CXPoint(x, y)); }

    int GetLayerNo() const;
    int GetSelLayer() const { return selected_; }
    CGraphicsObject * GetCurrentLayer() const; // this object's; null without layers
    void SelectLayer(int i);
    void SelectLayer(const CXString & name); // an unknown one changes nothing
    CXString GetLayerName(int i) const;      // -1: of the selected one
    CXRect GetLayerRect(int) const;          // of the selected one, whatever is asked

private:
    struct Layer;

    void flatten(CXSize size);

    std::vector<std::unique_ptr<Layer>> layers_; // the lowest first
    int selected_ = 0;
};
