#include "graphics/CImageFile.h"

#include "files/CPath.h"
#include "graphics/CImage.h"
#include "graphics/CPSD.h"

CGraphicsObject * (*CImageFile::animationLoader)(CWindow *, const CXString &) = nullptr;

namespace {

CXString extensionOf(CWindow * window, const CXString & name) {
    CXString extension = CPath(window, name).getExtension();
    return extension.Lower();
}

} // namespace

int CImageFile::Load(const CXString & name) {
    CXString extension = extensionOf(window_, name);
    object_ = nullptr;
    if (extension == "img" || extension == "jpg") {
        object_ = new CImage(window_, name);
        return kFileImage;
    }
    if (extension == "psd") {
        object_ = new CPSD(window_, name);
        return kFileLayered;
    }
    if (extension == "ann" && animationLoader) {
        object_ = animationLoader(window_, name);
        return kFileAnimation;
    }
    return kUnknown;
}

int CImageFile::Save(CGraphicsObject * object, const CXString & name, _compression compression) {
    CXString extension = extensionOf(window_, name);
    object_ = object;
    if (extension == "img") {
        CImage(window_, object).CGraphicsObject::Save(name, compression);
        return kFileImage;
    }
    if (extension == "ann") {
        object->Save(name, compression);
        return kFileAnimation;
    }
    return kUnknown;
}
